# The lines of bench/ligne.h as one table: work, persons, measured, ratio to the floor, limit, "!" where it is above.
BEGIN { FS = "\t" }

# Counts letters, not bytes: run with LC_ALL=C.
function remplit(texte, largeur,    lettres) {
    lettres = texte
    gsub(/[\200-\277]/, "", lettres)
    return sprintf("%s%*s", texte, largeur - length(lettres), "")
}

{
    rapport = $5 == "" ? "" : sprintf("%.2f fois", $3 / $5)
    limite = $6 == "" ? "" : "au plus " $6 ($5 == "" ? " " $4 : "")
    depasse = $6 != "" && ($5 == "" ? $3 : $3 / $5) > $6
    personnes = $2 > 0 ? $2 " pers." : ""
    print remplit($1, 46) sprintf("%15s %12.3f ", personnes, $3) remplit($4, 8) sprintf("%12s  ", rapport) \
        remplit(limite, 18) (depasse ? "!" : "")
    fflush()
}

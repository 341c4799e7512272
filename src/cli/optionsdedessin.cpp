#include "dessiner.h"

#include "interlocuteurconsole.h"

#include <limits>

namespace {

/// The words of a drawing's command line; each part is none, and \a refus says why, when it makes no sense.
class OptionsDeDessin
{
public:
    OptionsDeDessin()
        : analyseur(commandeDessiner)
    {
        const auto option = [this](const char *nom, const char *description, const char *valeur = "") {
            analyseur.Option(QString::fromLatin1(nom), QString::fromUtf8(description), QString::fromUtf8(valeur));
        };
        option("reduit", "Dessine l'affichage réduit : ni cadre, ni photo, ni lieux.");
        option("page", "La page d'un .pdf ; unique : une seule, aussi grande que l'arbre ; A4 sans cette option.",
               "A4|A3|unique");
        option("paysage", "Couche les pages d'un .pdf.");
        option("reperes", "Met des traits de coupe et un plan des pages dans les marges d'un .pdf.");
        option("couleurs-branches", "Colore le fond des cases, d'une couleur par grand-parent, avec ses ancêtres.");
        option("dpi", "La finesse d'un .png, de 24 à 1200 points par pouce ; 96 sans cette option.", "N");
        option("racine", "Les ancêtres de cette personne seulement.", "N° Sosa");
        option("generations", "Autant de générations seulement, celle de la racine comprise.", "G");
        option("individu", "L'individu d'un fichier GEDCOM qui est la racine de l'arbre.", "@I1@");
    }

    [[nodiscard]] std::optional<Sortie> Lit(const QStringList &mots)
    {
        if (const auto fin = analyseur.Lit(mots))
            return fin;
        demande.arbre = analyseur.Fichiers().at(0);
        demande.sortie = analyseur.Fichiers().at(1);
        demande.reduit = analyseur.A(QStringLiteral("reduit"));
        demande.paysage = analyseur.A(QStringLiteral("paysage"));
        demande.couleursDesBranches = analyseur.A(QStringLiteral("couleurs-branches"));
        demande.reperes = analyseur.A(QStringLiteral("reperes"));
        if (!FormatDeDessinConnu(demande.sortie))
            refus = QStringLiteral("le fichier à dessiner doit se terminer par .pdf, .png ou .svg : ") + demande.sortie;
        LitLaPage();
        LitLaFinesse();
        LitLaPartie();
        InterlocuteurConsole::Installe({.racine = analyseur.Valeur(QStringLiteral("individu"))});
        return refus.isEmpty() ? std::optional<Sortie>() : analyseur.Refuse(refus);
    }

    [[nodiscard]] const DemandeDeDessin &Demande() const { return demande; }

private:
    [[nodiscard]] bool SortEn(QLatin1StringView suffixe) const
    {
        return demande.sortie.endsWith(suffixe, Qt::CaseInsensitive);
    }

    void LitLaPage()
    {
        const bool choisie = analyseur.A(QStringLiteral("page"));
        if ((choisie || demande.paysage) && !SortEn(QLatin1StringView(".pdf")))
            refus = QStringLiteral("--page et --paysage ne valent que pour un .pdf");
        if (demande.reperes && !SortEn(QLatin1StringView(".pdf")))
            refus = QStringLiteral("--reperes ne vaut que pour un .pdf");
        if (!choisie)
            return;
        const QString page = analyseur.Valeur(QStringLiteral("page")).toUpper();
        demande.pageUnique = page == u"UNIQUE";
        if (page == u"A3")
            demande.page = QPageSize::A3;
        else if (page != u"A4" && !demande.pageUnique)
            refus = QStringLiteral("la page est A4, A3 ou unique : ") + analyseur.Valeur(QStringLiteral("page"));
        else if (demande.pageUnique && demande.paysage)
            refus = QStringLiteral("--paysage ne vaut pas pour une page unique");
        else if (demande.pageUnique && demande.reperes)
            refus = QStringLiteral("--reperes ne vaut pas pour une page unique");
    }

    void LitLaFinesse()
    {
        constexpr int moins = 24;
        constexpr int plus = 1200;
        if (!analyseur.A(QStringLiteral("dpi")))
            return;
        if (!SortEn(QLatin1StringView(".png")))
            refus = QStringLiteral("--dpi ne vaut que pour un .png");
        else if (const auto dpi = Nombre(QStringLiteral("dpi"), moins, plus))
            demande.pointsParPouce = static_cast<int>(*dpi);
    }

    void LitLaPartie()
    {
        if (const auto racine = Nombre(QStringLiteral("racine"), 1, std::numeric_limits<quint64>::max()))
            demande.racine = *racine;
        if (const auto generations = Nombre(QStringLiteral("generations"), 1, std::numeric_limits<int>::max()))
            demande.generations = static_cast<int>(*generations);
    }

    /// The number of the option \a nom; none without it, or when it is none from \a moins to \a plus.
    std::optional<quint64> Nombre(const QString &nom, quint64 moins, quint64 plus)
    {
        if (!analyseur.A(nom))
            return {};
        bool estUnNombre = false;
        const quint64 nombre = analyseur.Valeur(nom).toULongLong(&estUnNombre);
        if (estUnNombre && nombre >= moins && nombre <= plus)
            return nombre;
        refus = QStringLiteral("--%1 veut un nombre de %2 à %3 : %4")
                    .arg(nom, QString::number(moins), QString::number(plus), analyseur.Valeur(nom));
        return {};
    }

    Analyseur analyseur;
    DemandeDeDessin demande;
    QString refus;
};

}  // namespace

Sortie ExecuteDessiner(const QStringList &mots)
{
    OptionsDeDessin options;
    if (const auto fin = options.Lit(mots))
        return *fin;
    return Dessiner(options.Demande()) ? Sortie::Fait : Sortie::NonFait;
}

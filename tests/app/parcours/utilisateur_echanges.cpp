#include "utilisateur.h"

#include "dlgindrac.h"
#include "dlgsexrac.h"
#include "dossier.h"
#include "fenetre.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>

#include <bit>

// GEDCOM files and the assembly of two trees.

namespace {

/// A GEDCOM file, who is chosen as its root, and the tree that comes out.
struct Importation
{
    const char *fichier;
    const char *octets;
    const char *racine;    ///< typed by the user; none: the dialog is given up
    int ligne;             ///< clicked instead, from 0; -1: none
    const char *attendus;  ///< "number given names,surname,birth,place,occupation", "|" between persons
    const char *echec;     ///< what is said where no tree comes out
};

constexpr auto famille = "0 HEAD\n1 CHAR UTF-8\n"
                         "0 @I1@ INDI\n1 NAME Élise /LEFÈVRE/\n1 BIRT\n2 DATE ca 1760\n2 PLAC Ploërmel\n1 FAMC @F1@\n"
                         "0 @I2@ INDI\n1 NAME Louis /LEFÈVRE/\n1 OCCU forgeron\n1 FAMS @F1@\n1 FAMC @F2@\n"
                         "0 @I3@ INDI\n1 NAME Anne /ROUX/\n1 FAMS @F1@\n"
                         "0 @I4@ INDI\n1 NAME Jean /LEFÈVRE/\n1 FAMS @F2@\n"
                         "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I3@\n1 CHIL @I1@\n"
                         "0 @F2@ FAM\n1 HUSB @I4@\n1 CHIL @I2@\n0 TRLR\n";
constexpr auto entiere = "1 Élise ,LEFÈVRE,ca 1760,Ploërmel,|2 Louis ,LEFÈVRE,,,forgeron|3 Anne ,ROUX,,,|"
                         "4 Jean ,LEFÈVRE,,,";
constexpr auto coupee = "0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME Élise /LEFÈVRE/\n1 FAMC @F1@\n"
                        "0 @I2@ INDI\n1 NAME Louis /LEF";
constexpr auto cercle = "0 HEAD\n0 @I1@ INDI\n1 NAME Un /A/\n1 FAMS @F2@\n1 FAMC @F1@\n"
                        "0 @I2@ INDI\n1 NAME Deux /B/\n1 FAMS @F1@\n1 FAMC @F2@\n"
                        "0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n0 @F2@ FAM\n1 HUSB @I1@\n1 CHIL @I2@\n0 TRLR\n";
constexpr auto introuvable = "Impossible de trouver la personne  %1\nproposée comme racine de l'arbre";
constexpr auto personne = "Impossible de construire un arbre à partir de ";

const Importation importations[] = {
    {"famille.ged", famille, "@I1@", -1, entiere, nullptr},
    {"famille.ged", famille, "le père est @I2@ ici", -1, "1 Louis ,LEFÈVRE,,,forgeron|2 Jean ,LEFÈVRE,,,", nullptr},
    {"famille.ged", famille, nullptr, -1, entiere, nullptr},
    {"famille.ged", famille, "", 1, "1 Anne ,ROUX,,,", nullptr},
    {"famille.ged", famille, "@I9@", -1, nullptr, introuvable},
    {"coupee.ged", coupee, "@I1@", -1, "1 Élise ,LEFÈVRE,,,", nullptr},
    {"cercle.ged", cercle, "@I1@", -1, "1 Un ,A,,,|2 Deux ,B,,,", nullptr},
    {"cercle.ged", cercle, nullptr, -1, nullptr, introuvable},
    {"vide.ged", "", nullptr, -1, nullptr, personne},
    {"sans.ged", "0 HEAD\n0 @F1@ FAM\n1 HUSB @I1@\n0 TRLR\n", nullptr, -1, nullptr, personne},
    {"binaire.ged", "\x01\xff\xfe\x80 0 @I1@\x02\n\xfe\xff\r\r\n", nullptr, -1, nullptr, personne},
};

Contenu ContenuAttendu(const QString &attendus, const QString &fichier)
{
    Contenu contenu;
    contenu.page[0] = "Généalogie importée de " + fichier;
    const QStringList lignes = attendus.split(u'|');
    for (const QString &ligne : lignes) {
        const QStringList champs = ligne.section(u' ', 1).split(u',');
        Textes &textes = contenu.personnes[ligne.section(u' ', 0, 0).toULongLong()];
        textes[Prenom] = champs.at(0);
        textes[Nom] = champs.at(1);
        textes[DateNais] = champs.at(2);
        textes[LieuNais] = champs.at(3);
        textes[Divers] = champs.at(4);
    }
    return contenu;
}

/// Comes back from a GEDCOM file as it went there.
bool EstSimple(const QString &texte)
{
    const auto simple = [](QChar lettre) {
        return lettre.isLetter() && lettre.unicode() < 256 && lettre.unicode() >= u' ';
    };
    return !texte.isEmpty() && texte.size() < 200 && std::all_of(texte.begin(), texte.end(), simple);
}

/// The number of a father's or a mother's ancestor in the tree of the child.
quint64 NumeroChezLEnfant(quint64 numero, bool pere)
{
    const int generation = static_cast<int>(std::bit_width(numero)) - 1;
    return numero + (quint64(1) << (pere ? generation : generation + 1));
}

}  // namespace

void Utilisateur::PrevoitImportation(const QString &nom)
{
    // The tree goes before the file is chosen.
    modele.PerdLArbre();
    modele.exportPermis = false;
    if (!nom.isEmpty())
        pilote.AttendFichier("Ouvrir", {}, dossier.Chemin(nom));
}

void Utilisateur::ImporteUnGED()
{
    if (!PasseLaGarde())
        return Lance(fenetre->actImporteGED);
    if (tirage.Chance(15)) {
        PrevoitImportation({});
        tirage.Chance(50) ? pilote.AttendFichier("Ouvrir", {}, {}) : AttendFichierAbsent("Ouvrir", "nulle-part.ged");
        partie.NoteLeFait("importation abandonnée");
        return Lance(fenetre->actImporteGED);
    }
    const Importation &choisie = importations[tirage.Parmi(static_cast<int>(std::size(importations)))];
    const QString fichier = QString::fromLatin1(choisie.fichier);
    const QString chemin = dossier.Ecrit(fichier, choisie.octets);
    PrevoitImportation(fichier);
    const bool sansPersonne = choisie.echec == personne;
    if (!sansPersonne)
        pilote.Attend<DlgIndRac>([&choisie](DlgIndRac &dialogue) {
            if (choisie.racine)
                dialogue.IndividuChoisi->setText(QString::fromUtf8(choisie.racine));
            if (choisie.ligne >= 0)
                dialogue.ListeDesIndividus->setCurrentRow(choisie.ligne);
            (choisie.racine ? dialogue.OKButton : dialogue.CancelButton)->click();
            return QString();
        });
    if (choisie.echec) {
        const QString echec = QString::fromUtf8(choisie.echec);
        pilote.AttendBoite("Information", sansPersonne ? echec + chemin : echec.arg(QString(choisie.racine)), "OK");
        partie.NoteLeFait(sansPersonne ? "GEDCOM sans personne" : "racine introuvable");
    } else {
        modele.PrendSansFichier(ContenuAttendu(QString::fromUtf8(choisie.attendus), fichier));
        partie.NoteLeFait(choisie.racine ? "importé" : "importé sans choisir");
    }
    Lance(fenetre->actImporteGED);
}

void Utilisateur::ImporteUneExportation()
{
    if (exportations.isEmpty())
        return partie.Note("rien");
    if (!PasseLaGarde())
        return Lance(fenetre->actImporteGED);
    const QString chemin = tirage.Un(exportations.keys());
    const Contenu parti = exportations[chemin];
    PrevoitImportation(QFileInfo(chemin).fileName());
    pilote.Attend<DlgIndRac>([nombre = parti.personnes.size()](DlgIndRac &dialogue) {
        const qsizetype lignes = dialogue.ListeDesIndividus->count();
        dialogue.IndividuChoisi->setText("@I1@");
        dialogue.OKButton->click();
        return lignes == nombre ? QString() : QStringLiteral("%1 individus au lieu de %2").arg(lignes).arg(nombre);
    });
    Lance(fenetre->actImporteGED);
    const Contenu revenu = fenetre->doc->arbre ? ContenuDe(*fenetre->doc->arbre) : Contenu();
    for (auto i = parti.personnes.begin(); i != parti.personnes.end(); ++i) {
        for (const std::size_t champ : {Nom, DateNais, LieuNais, DateDec, LieuDec, Divers}) {
            const QString vu = revenu.personnes.value(i.key())[champ];
            if (EstSimple(i.value()[champ]) && vu != i.value()[champ])
                ecartDuGeste = QStringLiteral("revenu de GEDCOM : « %1 » parti « %2 »").arg(vu, i.value()[champ]);
        }
    }
    if (revenu.personnes.keys() != parti.personnes.keys())
        ecartDuGeste = QStringLiteral("%1 personnes revenues de GEDCOM").arg(revenu.personnes.size());
    modele.PrendSansFichier(revenu);
    partie.NoteLeFait("réimporté");
}

bool Utilisateur::RefuseDeRemplacerLExportation(const QString &chemin)
{
    if (!QFileInfo::exists(chemin))
        return false;
    const bool oui = tirage.Chance(70);
    pilote.AttendBoite("Exporter vers fichier au format GED...",
                       "ATTENTION !!!\nLe fichier " + chemin
                           + " existe déjà  !!\n\nvous riquez de perdre des données si le fichier existant\nn'a pas "
                             "été créé par Ramelier !!\n\nVoulez-vous vraiement le remplacer ??",
                       oui ? "Oui" : "Non");
    if (!oui)
        pilote.AttendBoite("Information", "L'arbre n'a pas été exporté vers un fichier GEDCOM", "OK");
    return !oui;
}

void Utilisateur::PrevoitExportation(const QString &chemin, bool masculine)
{
    pilote.Attend<DlgSexRac>([masculine](DlgSexRac &dialogue) {
        const bool commence = dialogue.radioButtonM->isChecked();
        if (!masculine)
            dialogue.radioButtonF->click();
        dialogue.pushButton1->click();
        return commence ? QString() : QStringLiteral("sexe proposé");
    });
    pilote.AttendBoite("Exportation vers GEDCOM",
                       "Exportation du fichier : " + QFileInfo(modele.nomFichier).fileName()
                           + "\nvers fichier : " + QFileInfo(chemin).fileName() + "\nterminée",
                       "OK");
}

void Utilisateur::ExporteEnGED()
{
    if (!modele.arbreOuvert || !modele.exportPermis) {
        if (modele.arbreOuvert)
            partie.NoteLeFait("exportation interdite");
        return Lance(fenetre->actExporteGED);
    }
    if (tirage.Chance(15)) {
        pilote.AttendFichier("Exporter au format GED", {}, {});
        partie.NoteLeFait("exportation abandonnée");
        return Lance(fenetre->actExporteGED);
    }
    const QString sansSuffixe = dossier.Chemin("export-" + QString::number(tirage.Parmi(3)));
    const QString chemin = sansSuffixe + ".ged";
    pilote.AttendFichier("Exporter au format GED", {}, tirage.Chance(50) ? sansSuffixe : chemin);
    if (RefuseDeRemplacerLExportation(chemin)) {
        partie.NoteLeFait("exportation refusée");
        return Lance(fenetre->actExporteGED);
    }
    const bool masculine = tirage.Chance(50);
    PrevoitExportation(chemin, masculine);
    Lance(fenetre->actExporteGED);
    ecartDuGeste = VerifieLExportation(chemin, masculine);
    partie.NoteLeFait("exporté");
    // Who has but blanks for a name comes back without any.
    exportations.remove(chemin);
    const auto nomme = [](const Textes &textes) { return EstSimple(textes[Nom]); };
    if (std::all_of(modele.contenu.personnes.begin(), modele.contenu.personnes.end(), nomme))
        exportations[chemin] = modele.contenu;
}

QString Utilisateur::VerifieLExportation(const QString &chemin, bool masculine) const
{
    const QByteArray octets = dossier.Lit(QFileInfo(chemin).fileName());
    qsizetype familles = 0;
    for (const quint64 numero : modele.contenu.personnes.keys())
        familles += modele.Existe(2 * numero) || modele.Existe(2 * numero + 1) ? 1 : 0;
    if (!octets.startsWith("0 HEAD\r\n") || !octets.endsWith("0 TRLR\r\n"))
        return QStringLiteral("GEDCOM écrit en partie");
    if (octets.count("@ INDI\r\n") != modele.contenu.personnes.size() || octets.count("@ FAM\r\n") != familles)
        return QStringLiteral("GEDCOM : %1 individus, %2 familles")
            .arg(octets.count("@ INDI\r\n"))
            .arg(octets.count("@ FAM\r\n"));
    const QByteArray racine = octets.mid(octets.indexOf("0 @I1@ INDI"));
    const QByteArray sexe = racine.mid(racine.indexOf("  1 SEX "), 9);
    return sexe == (masculine ? "  1 SEX M" : "  1 SEX F") ? QString() : QStringLiteral("GEDCOM : sexe de la racine");
}

void Utilisateur::AssembleDeuxArbres()
{
    if (!PasseLaGarde())
        return Lance(fenetre->actAssembleArbres);
    const int abandon = tirage.Parmi(8);
    const QString pere = tirage.Un(fichiers.keys());
    const QString mere = tirage.Un(fichiers.keys());
    const auto montre = [this](const QString &titre, const QString &chemin) {
        pilote.AttendFichier(titre, {}, chemin);
        if (chemin.isEmpty())
            pilote.AttendBoite("Information", "Le fichier  n'existe pas", "OK");
    };
    montre("Fichier arbre du père", abandon == 0 ? QString() : pere);
    if (abandon != 0)
        montre("Fichier arbre de la mère", abandon == 1 ? QString() : mere);
    if (abandon < 2) {
        partie.NoteLeFait("assemblage abandonné");
        return Lance(fenetre->actAssembleArbres);
    }
    const auto &peres = fichiers[pere].contenu.personnes;
    const auto &meres = fichiers[mere].contenu.personnes;
    constexpr quint64 assezHaut = quint64(1) << 60;
    Contenu assemble;
    assemble.page[0] = "Généalogie de l'enfant";
    assemble.personnes[1][Nom] = "Enfant";
    for (auto i = peres.begin(); i != peres.end(); ++i)
        assemble.personnes[NumeroChezLEnfant(i.key(), true)] = i.value();
    for (auto i = meres.begin(); i != meres.end(); ++i)
        assemble.personnes[NumeroChezLEnfant(i.key(), false)] = i.value();
    modele.PrendSansFichier(assemble);
    modele.dernierRep = QDir::homePath();
    partie.NoteLeFait("assemblé");
    Lance(fenetre->actAssembleArbres);
    if (assemble.personnes.size() > 2 * profil.personnes || assemble.personnes.lastKey() > assezHaut)
        suite += {"ouvrir", &Utilisateur::OuvreUnFichier};
}

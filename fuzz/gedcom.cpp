#include "commun.h"
#include "gedcomimport.h"
#include "gedcomnaif.h"
#include "gedcomtexte.h"

#include <QCoreApplication>

/// The bytes are a GEDCOM file: its lists are those of the naive reader of the tests.

namespace {

/// The lists as text.
struct Listes : LectureGedcom
{
    using LectureGedcom::Familles;
    using LectureGedcom::Individus;
};

void VerifieLesMorceaux(QString ligne)
{
    const QString entiere = ligne;
    const short niveau = Niveau(ligne);
    Exige(entiere.endsWith(ligne), "ce qui suit le niveau reste");
    Exige(niveau == 0 || ligne != entiere, "un niveau s'enlève");
    QString adresse = ligne;
    adresse = DecodeAdresse(adresse);
    Exige(adresse.isEmpty() || (adresse.size() >= 2 && adresse.count(u'@') == 2), "un identifiant a deux @");
    QString info;
    const int type = DetermineTypeinfo(ligne, info);
    Exige(type >= 0 && type <= 17, "le type est connu");
    QString prenom;
    QString nom;
    DecodeName(info, prenom, nom);
    Exige(!nom.contains(u'/') && !prenom.contains(u'/'), "un nom n'a pas de barre");
}

/// For every individual who comes early, and for the first line that could be a root.
void ChercheDesParents()
{
    int reste = 20;
    for (IndividuGED *individu = LesIndividus; individu && reste > 0; individu = individu->suivant, --reste)
        ChercheLesParents(individu);
    QString aucun;
    ChercheRacine(aucun);
    Exige(!RacinePos || RacinePos->fams.isEmpty(), "la racine n'a pas de famille");
}

}  // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QCoreApplication>();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    const QByteArray contenu = Vue(octets, taille).toByteArray();
    Exige(DecodeFichierGED(Pose(QStringLiteral("lu.ged"), contenu)), "le fichier s'ouvre");
    const QString texte = TexteGED(contenu);
    const GedcomNaif attendu(texte);
    Exige(Listes::Individus() == attendu.individus, "les individus sont ceux attendus");
    Exige(Listes::Familles() == attendu.familles, "les familles sont celles attendues");
    Exige(CompteIndiv() == attendu.individus.size(), "les individus sont comptés");
    ChercheDesParents();
    VideLesListesGED();
    VerifieLesMorceaux(texte.left(texte.indexOf(u'\n')));
    return 0;
}

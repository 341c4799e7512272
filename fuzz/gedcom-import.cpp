#include "arbre.h"
#include "commun.h"
#include "gedcomexport.h"
#include "gedcomimport.h"
#include "infopersonne.h"
#include "monteelitterale.h"
#include "personne.h"

#include <QCoreApplication>

/// Two bytes answer the questions, the others are a GEDCOM file: it is imported as the literal climb of the tests does it,
/// exported and imported again.

namespace {

/// "number texts" of each person.
QStringList EnTexte(const Arbre &arbre)
{
    QStringList lignes;
    for (const Personne *p = arbre.premiere; p; p = p->suivante) {
        const InfoPersonne &i = *p->info;
        lignes += QString::number(p->numero) + u'|'
            + QStringList{i.nom, i.prenom, i.datenaissance, i.lieunaissance, i.datedeces, i.lieudeces, i.divers}.join(
                u'|');
    }
    return lignes;
}

/// Gives the root up, picks a line, or types one.
std::optional<QString> Choix(const QStringList &lignes, int reponse, int rang)
{
    switch (reponse % 4) {
    case 0:
        return {};
    case 1:
        return QStringLiteral("xx @I%1@ yy").arg(rang);
    default:
        return lignes.value(rang % qMax(1, int(lignes.size())));
    }
}

void CompareALaMonteeLitterale(const QString &chemin, const QString &racine, const Arbre &arbre)
{
    constexpr int assezPetit = 300;  // the literal climb takes the cube
    Exige(DecodeFichierGED(chemin), "le fichier s'ouvre encore");
    if (CompteIndiv() <= assezPetit && arbre.nombrePersonnes <= assezPetit) {
        Arbre attendu;
        QString cle = racine;
        MonteeLitterale().Execute(attendu, DecodeAdresse(cle));
        Exige(EnTexte(arbre) == EnTexte(attendu), "la montée est la montée littérale");
    }
    VideLesListesGED();
}

/// A text that no rule of the format changes.
bool EstSimple(const QString &texte)
{
    for (const QChar c : texte) {
        if (!(c >= u'a' && c <= u'z') && !(c >= u'0' && c <= u'9'))
            return false;
    }
    return true;
}

bool SExporteEntier(const Arbre &arbre)
{
    for (const Personne *p = arbre.premiere; p; p = p->suivante) {
        const InfoPersonne &i = *p->info;
        const QStringList textes{i.nom, i.prenom, i.datenaissance, i.lieunaissance, i.datedeces, i.lieudeces, i.divers};
        if (p->estVide() || !std::all_of(textes.begin(), textes.end(), EstSimple))
            return false;
    }
    return true;
}

void VerifieAllerRetourGedcom(Arbre &arbre)
{
    const QString exporte = Dossier() + QStringLiteral("/ecrit.ged");
    QString nom = QStringLiteral("lu.ged");
    ExporterVersFichierGEDCOM(nullptr, exporte, &arbre, nom);
    Arbre relu;
    Presse().racine = [](const QStringList & /*lignes*/) { return QStringLiteral("@I1@"); };
    ImporterDeFichierGEDCOM(nullptr, exporte, &relu);
    VerifieArbreNumerote(relu);
    if (SExporteEntier(arbre))
        Exige(EnTexte(relu) == EnTexte(arbre), "ce qui fut exporté s'importe de même");
}

}  // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QCoreApplication>();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    if (taille < 2)
        return 0;
    const int reponse = octets[0];
    const int rang = octets[1];
    const QString chemin = Pose(QStringLiteral("lu.ged"), Vue(octets, taille).sliced(2));
    QString racine;
    Presse().masculine = reponse >= 128;
    Presse().racine = [&](const QStringList &lignes) {
        const std::optional<QString> choix = Choix(lignes, reponse, rang);
        racine = choix.value_or(QString());
        return choix;
    };
    Arbre arbre;
    ImporterDeFichierGEDCOM(nullptr, chemin, &arbre);
    VerifieArbreNumerote(arbre);
    CompareALaMonteeLitterale(chemin, racine, arbre);
    if (arbre.premiere)
        VerifieAllerRetourGedcom(arbre);
    return 0;
}

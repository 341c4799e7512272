#include "arbre.h"
#include "bancrlg.h"
#include "commun.h"
#include "ficoldrlg.h"
#include "lecturelitterale.h"

#include <QGuiApplication>

/// The bytes are an older `.rlg` file: it is read as the literal reader of the tests reads it, and saved in the new format.

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QGuiApplication>();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    const QByteArray contenu = Vue(octets, taille).toByteArray();
    const QString chemin = Pose(QStringLiteral("lu.rlg"), contenu);
    QString repertoire = Dossier() + QStringLiteral("/sans photos");
    QString v1 = enteteRlgV1;
    QString v3 = enteteRlgV3;
    const LectureLitterale attendu(contenu);
    int type = 7;
    Arbre arbre;
    Exige(readFicOldRLG(chemin, repertoire, &arbre, v1, v3, type) == attendu.resultat, "le résultat est celui attendu");
    Exige(type == attendu.type, "le type est celui attendu");
    Exige(arbre.nombreGenerations == attendu.generations, "les générations sont celles attendues");
    Exige(PageDe(arbre) == attendu.page, "la page de garde est celle attendue");
    Exige(FichesDe(arbre) == attendu.Fiches(), "les personnes sont celles attendues");
    Exige(VerifieArbre(arbre) == arbre.nombrePersonnes, "le nombre de personnes est juste");
    VerifieAllerRetour(arbre);
    return 0;
}

#include "arbre.h"
#include "commun.h"
#include "ficxrlg.h"

#include <QGuiApplication>
#include <QImage>

/// The bytes are an `.xrlg` file: it is read, written and read again.

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QGuiApplication>();
    Exige(QImage(3, 2, QImage::Format_RGB32).save(Dossier() + QStringLiteral("/p.png")), "une photo s'écrit");
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    const QString chemin = Pose(QStringLiteral("lu.xrlg"), Vue(octets, taille));
    QString repertoire = Dossier();
    Arbre arbre;
    const int resultat = readFicXRLG(chemin, repertoire, &arbre);
    Exige(resultat == 0 || resultat == 2, "le fichier s'ouvre");
    VerifieArbre(arbre);
    VerifieAllerRetour(arbre);
    return 0;
}

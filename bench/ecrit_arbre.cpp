#include "ficxrlg.h"
#include "grandarbre.h"

#include "arbre.h"

#include <QString>

#include <cstdlib>

/// ecrit_arbre PERSONNES FICHIER.xrlg: a complete tree of so many persons.
int main(int argc, char **argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    const auto arbre = GrandArbre(Forme::Complete, std::atoi(argv[1]));
    arbre->infoArbre->titrearbre = QStringLiteral("Grand arbre");
    // The file counts its persons, and its reader counts them again.
    arbre->nombrePersonnes = 0;
    return writeFicXRLG(QString::fromLocal8Bit(argv[2]), arbre.get()) ? EXIT_SUCCESS : EXIT_FAILURE;
}

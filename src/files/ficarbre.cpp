#include "ficarbre.h"

#include "ficxrlg.h"

int LitFichierArbre(const QString &fileName, QString &repertoire, Arbre *arbre)
{
    if (fileName.contains(QStringLiteral(".xrlg"), Qt::CaseInsensitive))
        return readFicXRLG(fileName, repertoire, arbre);
    // The older binary files have no reader yet: refused, never opened as an empty tree that a save would put in place.
    if (fileName.contains(QStringLiteral(".rlg"), Qt::CaseInsensitive))
        return 1;
    return 0;
}

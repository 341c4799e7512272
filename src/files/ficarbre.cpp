#include "ficarbre.h"

#include "ficoldrlg.h"
#include "ficxrlg.h"

int LitFichierArbre(const QString &fileName, QString &repertoire, Arbre *arbre, QString &enteteV1, QString &enteteV3,
                    int &typeFichier)
{
    if (fileName.contains(QStringLiteral(".xrlg"), Qt::CaseInsensitive))
        return readFicXRLG(fileName, repertoire, arbre);
    if (fileName.contains(QStringLiteral(".rlg"), Qt::CaseInsensitive))
        return readFicOldRLG(fileName, repertoire, arbre, enteteV1, enteteV3, typeFichier);
    return 0;
}

int LitFichierArbre(const QString &fileName, QString &repertoire, Arbre *arbre)
{
    QString enteteV1 = enteteRlgV1;
    QString enteteV3 = enteteRlgV3;
    int typeFichier = 0;
    return LitFichierArbre(fileName, repertoire, arbre, enteteV1, enteteV3, typeFichier);
}

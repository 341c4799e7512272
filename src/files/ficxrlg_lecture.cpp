#include "ficxrlg.h"

#include "interlocuteur.h"
#include "xrlghandler.h"

#include <QFile>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

int readFicXRLG(const QString &fileName, QString &repertoire, Arbre *arbre)
{
    XrlgHandler handler(arbre, repertoire);
    QXmlSimpleReader lecteur;
    lecteur.setContentHandler(&handler);
    lecteur.setErrorHandler(&handler);

    QFile fichier(fileName);
    if (!fichier.open(QIODevice::ReadOnly | QIODevice::Text)) {
        Interlocuteur::Courant().Avertissement(
            QStringLiteral("Arbre XRLG"),
            QStringLiteral("Impossible de lire le fichier %1:\n%2.").arg(fileName, fichier.errorString()));
        return 1;
    }
    QXmlInputSource source(&fichier);
    return lecteur.parse(source) ? 0 : 2;
}

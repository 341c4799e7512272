#include "ficxrlg.h"

#include "interlocuteur.h"
#include "lecture.h"
#include "xrlghandler.h"

#include <QFile>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <utility>

namespace {

/// Where a DOCTYPE of \a texte starts declarations of its own, or -1. Tree files have none; in others they may blow up
/// (entities of entities) or nest deeper than the parser's stack before any handler sees them.
qsizetype DebutDesDeclarations(const QString &texte)
{
    const QString balise = QStringLiteral("<!DOCTYPE");
    for (qsizetype debut = texte.indexOf(balise); debut >= 0; debut = texte.indexOf(balise, debut + 1)) {
        QChar guillemet;
        for (qsizetype i = debut; i < texte.size(); ++i) {
            const QChar caractere = texte.at(i);
            if (!guillemet.isNull()) {
                if (caractere == guillemet)
                    guillemet = QChar();
            } else if (caractere == u'[') {
                return i;
            } else if (caractere == u'>') {
                break;
            } else if (caractere == u'"' || caractere == u'\'') {
                guillemet = caractere;
            }
        }
    }
    return -1;
}

bool Refuse(XrlgHandler &handler, qsizetype ligne, qsizetype colonne)
{
    return handler.fatalError(QXmlParseException(QStringLiteral("Le fichier n'est pas un fichier XRLG."),
                                                 static_cast<int>(colonne), static_cast<int>(ligne)));
}

bool RefuseLesDeclarations(XrlgHandler &handler, const QString &texte, qsizetype place)
{
    const auto ligne = QStringView(texte).left(place).count(u'\n') + 1;
    return Refuse(handler, ligne, place - texte.lastIndexOf(u'\n', place));
}

bool Analyse(XrlgHandler &handler, QXmlInputSource &source)
{
    const QString texte = source.data();
    const qsizetype place = DebutDesDeclarations(texte);
    if (place >= 0)
        return RefuseLesDeclarations(handler, texte, place);
    QXmlSimpleReader lecteur;
    // A tree file has no namespaces: the parser need not look for one at every element.
    lecteur.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    lecteur.setContentHandler(&handler);
    lecteur.setErrorHandler(&handler);
    return lecteur.parse(source);
}

}  // namespace

bool AnalyseXRLG(XrlgHandler &handler, QByteArray octets)
{
    // The parser would take five times the memory of such a text before anything came of it.
    if (SansMarqueLongtemps(octets, '<'))
        return Refuse(handler, 1, 1);
    QXmlInputSource source;
    source.setData(std::exchange(octets, {}));
    return Analyse(handler, source);
}

int readFicXRLG(const QString &fileName, QString &repertoire, Arbre *arbre)
{
    QFile fichier(fileName);
    QString cause;
    if (!OuvreEnLecture(fichier, QIODevice::ReadOnly | QIODevice::Text, cause)) {
        Interlocuteur::Courant().Avertissement(
            QStringLiteral("Arbre XRLG"),
            QStringLiteral("Impossible de lire le fichier %1:\n%2.").arg(fileName, cause));
        return 1;
    }
    XrlgHandler handler(arbre, repertoire);
    // Read through the text mode, which drops every "\r".
    return AnalyseXRLG(handler, fichier.readAll()) ? 0 : 2;
}

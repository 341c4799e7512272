#include "ficxrlg.h"

#include "interlocuteur.h"
#include "lecture.h"
#include "xrlghandler.h"

#include <QFile>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <utility>

namespace {

/// Behind the first \a fin from \a debut on, or the end of the text.
qsizetype Apres(QStringView texte, QLatin1StringView fin, qsizetype debut)
{
    const qsizetype place = texte.indexOf(fin, debut);
    return place < 0 ? texte.size() : place + fin.size();
}

/// Where a DOCTYPE that starts at \a debut opens declarations of its own or ends, or the end of the text.
qsizetype CrochetOuFin(QStringView texte, qsizetype debut)
{
    QChar guillemet;
    for (qsizetype i = debut; i < texte.size(); ++i) {
        const QChar caractere = texte.at(i);
        if (!guillemet.isNull()) {
            if (caractere == guillemet)
                guillemet = QChar();
        } else if (caractere == u'[' || caractere == u'>') {
            return i;
        } else if (caractere == u'"' || caractere == u'\'') {
            guillemet = caractere;
        }
    }
    return texte.size();
}

/// Where a DOCTYPE of \a texte starts declarations of its own, or -1. Tree files have none; in others they may blow up
/// (entities of entities) or nest deeper than the parser's stack before any handler sees them. A DOCTYPE stands before the
/// first element, among comments and instructions; behind it the parser takes none.
qsizetype DebutDesDeclarations(QStringView texte)
{
    for (qsizetype i = texte.indexOf(u'<'); i >= 0; i = texte.indexOf(u'<', i)) {
        const QStringView reste = texte.sliced(i);
        if (reste.startsWith(u"<!--")) {
            i = Apres(texte, QLatin1StringView("-->"), i + 4);
        } else if (reste.startsWith(u"<?")) {
            i = Apres(texte, QLatin1StringView("?>"), i + 2);
        } else if (reste.startsWith(u"<!DOCTYPE")) {
            i = CrochetOuFin(texte, i);
            if (i < texte.size() && texte.at(i) == u'[')
                return i;
        } else {
            return -1;
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

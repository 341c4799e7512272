#include "textefiche.h"

#include "francais.h"
#include "lecture.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>

namespace {

/// A sheet is written by hand. The toolkit takes up to fifty bytes of memory for each of its letters.
constexpr qint64 octetsMaxFiche = qint64(16) << 20;

/// The charset that a page declares in its first lines; empty when it declares none.
QByteArray CharsetDeclare(const QByteArray &octets)
{
    constexpr qsizetype zoneDesDeclarations = 4096;
    static const QRegularExpression declaration(QStringLiteral("charset\\s*=\\s*[\"']?\\s*([A-Za-z0-9_:.-]+)"),
                                                QRegularExpression::CaseInsensitiveOption);
    const QString debut = QString::fromLatin1(octets.left(zoneDesDeclarations));
    return declaration.match(debut).captured(1).toLatin1();
}

}  // namespace

QString TexteFicheHtml(const QByteArray &octets)
{
    if (!QStringConverter::encodingForData(octets)) {
        QStringDecoder declare(CharsetDeclare(octets).constData());
        if (declare.isValid())
            return declare.decode(octets);
    }
    return TexteFicheSimple(octets);
}

QString TexteFicheSimple(const QByteArray &octets)
{
    const auto marque = QStringConverter::encodingForData(octets);
    QStringDecoder decodeur(marque.value_or(QStringConverter::Utf8), QStringConverter::Flag::Stateless);
    const QString texte = decodeur.decode(octets);
    return decodeur.hasError() && !marque ? QString::fromLatin1(octets) : texte;
}

QByteArray OctetsFiche(const QString &nom, QString *cause)
{
    QFile fichier(nom);
    QString refus;
    if (QFileInfo(nom).size() > octetsMaxFiche) {
        refus = QStringLiteral("Le fichier est trop grand");
    } else if (OuvreEnLecture(fichier, QIODevice::ReadOnly, refus)) {
        QByteArray octets = fichier.readAll();
        if (fichier.error() == QFileDevice::NoError)
            return octets.isNull() ? QByteArray("") : octets;
        refus = ErreurEnFrancais(fichier.errorString());
    }
    if (cause)
        *cause = refus;
    return {};
}

#include "gedcomtexte.h"

#include "ansel.h"

#include <QStringDecoder>

namespace {

/// The value of the CHAR line in the header, in capitals; empty when there is none.
QByteArray CharAnnonce(QByteArrayView octets)
{
    int blocs = 0;
    qsizetype debut = 0;
    while (debut < octets.size() && blocs < 2) {
        qsizetype fin = debut;
        while (fin < octets.size() && octets[fin] != '\n' && octets[fin] != '\r')
            ++fin;
        const QByteArray ligne = octets.sliced(debut, fin - debut).toByteArray().simplified();
        if (ligne.startsWith("0 "))
            ++blocs;
        if (ligne.startsWith("1 CHAR "))
            return ligne.mid(7).toUpper();
        debut = fin + 1;
    }
    return {};
}

/// Files announce ANSEL and hold Windows-1252: there, a letter with its accent ends words ("René /"), while an ANSEL accent
/// always has a letter behind it.
bool EstAnsel(QByteArrayView octets)
{
    for (qsizetype i = 0; i + 1 < octets.size(); ++i) {
        const auto octet = static_cast<unsigned char>(octets[i]);
        const char suivant = octets[i + 1];
        if (octet >= 0xE0
            && (suivant == ' ' || suivant == '/' || suivant == '\r' || suivant == '\n'
                || (suivant >= '0' && suivant <= '9')))
            return false;
    }
    return true;
}

QString Decode(const char *jeu, const QByteArray &octets)
{
    QStringDecoder decodeur(jeu);
    return decodeur.isValid() ? QString(decodeur.decode(octets)) : QString::fromLatin1(octets);
}

QString DecodeSelonLEnTete(const QByteArray &octets)
{
    const QByteArray annonce = CharAnnonce(octets);
    if (annonce.startsWith("ANSEL") && EstAnsel(octets))
        return DecodeAnsel(octets);
    if (annonce.startsWith("MAC"))
        return Decode("macintosh", octets);
    if (annonce.contains("437"))
        return Decode("IBM437", octets);
    const bool ibm = annonce.startsWith("IBM") && !annonce.contains("WIN");
    if (ibm || annonce.contains("DOS") || annonce.contains("OEM") || annonce.contains("850"))
        return Decode("IBM850", octets);
    return Decode("windows-1252", octets);
}

bool EstUtf16SansMarque(const QByteArray &octets, qsizetype octetFort)
{
    return octets.size() >= 2 && octets.at(octetFort) == '\0' && octets.at(1 - octetFort) != '\0';
}

/// Where a letter of several bytes begins that the end of the file cuts off; else the end.
qsizetype FinDesLettresEntieres(const QByteArray &octets)
{
    for (qsizetype recul = 1; recul <= qMin(qsizetype(3), octets.size()); ++recul) {
        const auto octet = static_cast<unsigned char>(octets.at(octets.size() - recul));
        if (octet < 0x80)
            break;
        if (octet >= 0xC0) {
            const int longueur = octet >= 0xF0 ? 4 : octet >= 0xE0 ? 3 : 2;
            return recul < longueur ? octets.size() - recul : octets.size();
        }
    }
    return octets.size();
}

/// The text when all bytes are valid UTF-8; a last letter may be cut off where others show what the file is.
std::optional<QString> DecodeUtf8(const QByteArray &octets)
{
    const QByteArrayView entiers = QByteArrayView(octets).first(FinDesLettresEntieres(octets));
    if (!entiers.isValidUtf8())
        return {};
    QString texte = QString::fromUtf8(entiers);
    if (entiers.size() < octets.size()) {
        if (texte.size() == entiers.size())
            return {};
        texte += QChar(QChar::ReplacementCharacter);
    }
    return texte;
}

}  // namespace

QString TexteGED(const QByteArray &octets)
{
    if (const auto marque = QStringConverter::encodingForData(octets))
        return QStringDecoder(*marque).decode(octets);
    if (EstUtf16SansMarque(octets, 0))
        return QStringDecoder(QStringConverter::Utf16BE).decode(octets);
    if (EstUtf16SansMarque(octets, 1))
        return QStringDecoder(QStringConverter::Utf16LE).decode(octets);
    const std::optional<QString> utf8 = DecodeUtf8(octets);
    return utf8 ? *utf8 : DecodeSelonLEnTete(octets);
}

std::optional<QByteArrayView> Utf8GED(const QByteArray &octets)
{
    QByteArrayView texte(octets);
    if (const auto marque = QStringConverter::encodingForData(octets)) {
        if (*marque != QStringConverter::Utf8)
            return {};
        texte = texte.sliced(3);
    } else if (EstUtf16SansMarque(octets, 0) || EstUtf16SansMarque(octets, 1)) {
        return {};
    }
    return texte.isValidUtf8() ? std::optional(texte) : std::nullopt;
}

#include "sansaccents.h"

#include <QChar>

#include <array>
#include <utility>

namespace {

/// What one letter becomes: two letters, one (the second is 0) or none.
using Paire = std::array<char16_t, 2>;

/// What most names are made of is looked up: Latin letters with their accents.
constexpr char16_t finDesLatines = 0x250;

Paire SansDecomposition(char16_t lettre)
{
    switch (lettre) {
    case u'Æ':
    case u'æ':
        return {u'a', u'e'};
    case u'Œ':
    case u'œ':
        return {u'o', u'e'};
    case u'ß':
        return {u's', u's'};
    case u'Ø':
    case u'ø':
        return {u'o'};
    case u'Đ':
    case u'đ':
    case u'Ð':
    case u'ð':
        return {u'd'};
    case u'Ł':
    case u'ł':
        return {u'l'};
    case u'-':
    case u'\u00A0':  // no-break space
    case u'\u2010':  // hyphen
    case u'\u2011':  // no-break hyphen
    case u'\u202F':  // narrow no-break space
        return {u' '};
    case u'\u2019':
        return {u'\''};
    default:
        return {QChar::toCaseFolded(lettre) <= 0xFFFF ? static_cast<char16_t>(QChar::toCaseFolded(lettre)) : lettre};
    }
}

/// The letter that carries the accents of \a lettre; itself when there are none.
char16_t Porteuse(char16_t lettre)
{
    if (QChar::decompositionTag(lettre) != QChar::Canonical)
        return lettre;
    const QString parties = QChar::decomposition(lettre);
    for (const QChar accent : QStringView(parties).sliced(1)) {
        if (!accent.isMark())
            return lettre;
    }
    return Porteuse(parties.front().unicode());
}

Paire Calcule(char16_t lettre)
{
    return QChar::isMark(lettre) ? Paire{} : SansDecomposition(Porteuse(lettre));
}

const std::array<Paire, finDesLatines> &Latines()
{
    static const auto table = [] {
        std::array<Paire, finDesLatines> lettres{};
        for (char16_t lettre = 0; lettre < finDesLatines; ++lettre)
            lettres.at(lettre) = Calcule(lettre);
        return lettres;
    }();
    return table;
}

}  // namespace

char16_t LettresSansAccents::Suivante()
{
    if (enAttente != 0)
        return std::exchange(enAttente, u'\0');
    static const std::array<Paire, finDesLatines> &latines = Latines();
    while (place < texte.size()) {
        const char16_t lettre = texte[place++].unicode();
        const Paire paire = lettre < finDesLatines ? latines[lettre] : Calcule(lettre);
        if (paire[0] == 0)
            continue;
        enAttente = paire[1];
        return paire[0];
    }
    return 0;
}

QString SansAccents(QStringView texte)
{
    QString resultat;
    resultat.reserve(texte.size());
    LettresSansAccents lettres(texte);
    while (const char16_t lettre = lettres.Suivante())
        resultat += QChar(lettre);
    return resultat;
}

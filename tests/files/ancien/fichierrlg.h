#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

/// Writes older binary tree files for the tests, sound or not. Texts are bytes: ISO 8859-1.

/// \a valeur on so many bytes, low byte first.
inline QByteArray Entier(quint64 valeur, int octets)
{
    QByteArray entier;
    for (int i = 0; i < octets; ++i, valeur >>= 8)
        entier += char(valeur & 0xff);
    return entier;
}

/// A text behind its 16-bit length.
inline QByteArray Texte(const QByteArray &texte)
{
    return Entier(quint64(texte.size()), 2) + texte;
}

inline QByteArray EnteteRlg(int version)
{
    const QByteArray ligne = "Arbre g\xE9n\xE9"
                             "alogique - R. Lidou - Version "
        + QByteArray(version == 1 ? "1.0" : "3.0");
    return Entier(quint64(ligne.size()), 1) + ligne;
}

/// One person as a file gives it.
struct FicheRlg
{
    quint64 numero = 0;
    quint16 generation = 0;
    quint64 pere = 0;
    quint64 mere = 0;
    quint64 enfant = 0;
    QByteArrayList textes{};         ///< at most nine, the others are empty
    quint16 marqueDesTextes = 1010;  ///< any other: the texts are not written

    /// The slot of the person, its marker included.
    [[nodiscard]] QByteArray Octets(int version) const
    {
        const int taille = version == 1 ? 2 : 8;
        QByteArray octets = Entier(1011, 2) + Entier(numero, taille) + Entier(generation, 2) + Entier(pere, taille)
            + Entier(mere, taille) + Entier(enfant, taille) + Entier(marqueDesTextes, 2);
        if (marqueDesTextes == 1010) {
            for (qsizetype i = 0; i < 9; ++i)
                octets += Texte(textes.value(i));
        }
        return octets;
    }
};

/// A whole file.
struct FichierRlg
{
    int version = 3;
    QByteArrayList emplacements{};
    quint16 generations = 1;
    QByteArrayList page{};            ///< at most five texts, the others are empty
    quint16 marqueDeLaPage = 1012;    ///< any other: the texts are not written
    std::optional<quint64> nombre{};  ///< of slots, when not the true one
    QByteArray entete{};              ///< with its length, when not the one of the version
    quint16 marqueDeDebut = 1013;
    quint16 motInutile = 0;
    quint16 motsInutiles = 0;  ///< version 1: each of the two behind the count

    void Ajoute(const FicheRlg &fiche) { emplacements += fiche.Octets(version); }
    /// An empty slot.
    void Ajoute(quint16 marque) { emplacements += Entier(marque, 2); }

    [[nodiscard]] QByteArray Octets() const
    {
        QByteArray octets =
            (entete.isEmpty() ? EnteteRlg(version) : entete) + Entier(marqueDeDebut, 2) + Entier(marqueDeLaPage, 2);
        if (marqueDeLaPage == 1012) {
            for (qsizetype i = 0; i < 5; ++i)
                octets += Texte(page.value(i));
        }
        octets += Entier(motInutile, 2);
        octets += Entier(nombre.value_or(quint64(emplacements.size())), version == 1 ? 2 : 8);
        if (version == 1)
            octets += Entier(motsInutiles, 2) + Entier(motsInutiles, 2);
        return octets + emplacements.join() + Entier(generations, 2);
    }
};

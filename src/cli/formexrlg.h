#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <array>
#include <functional>
#include <vector>

struct SuiteXRLG;

/// A `.xrlg` file read by the layout of its writer alone: one element a line, a fixed indentation, a fixed order. What the
/// texts hold does not matter, so that a file with "&" and "<" in its texts is read too. See FormeXRLG.

/// The numbers of one person as they stand; what is no number is 0.
struct NombresXRLG
{
    quint64 numero = 0;
    unsigned short generation = 0;
    quint64 pere = 0;
    quint64 mere = 0;
    quint64 enfant = 0;
};

struct PersonneXRLG
{
    NombresXRLG nombres;
    std::array<QByteArrayView, 9> textes;  ///< in the order of the file: nom, prenom, ..., ficphoto
    bool douteuse = false;                 ///< another cut of its texts would have kept as much markup
};

/// Markup between two texts is recognised as a whole, from the end tag of the first to the start tag of the second with all
/// the lines between them; this is a joint. A text may hold what looks like one. Of all ways to read the file as something
/// that the writer writes, the one with the most joints is taken; of several, the one whose texts end first. Linear in time;
/// 16 bytes of memory for each text.
///
/// Not decided: a text that itself holds a whole joint which fits where it stands. Such a file is, byte for byte, also that of
/// another tree.
class FormeXRLG
{
public:
    /// \a desOctets stay the caller's.
    explicit FormeXRLG(QByteArrayView desOctets);

    /// The file is one of the writer's, whole or cut off behind a whole person.
    [[nodiscard]] bool EstReconnue() const { return dernier >= 0; }
    [[nodiscard]] bool EstEntiere() const { return entiere; }
    /// What the whole persons of a recognised file take, its beginning included: all before the count of generations.
    [[nodiscard]] qsizetype FinDesPersonnes() const { return finDesPersonnes; }
    /// The counts as they stand; 0 for what is no number or is cut off.
    [[nodiscard]] quint64 NombrePersonnes() const { return nombrePersonnes; }
    [[nodiscard]] unsigned short NombreGenerations() const { return nombreGenerations; }

    using Titres = std::array<QByteArrayView, 5>;  ///< in the order of the file: titrearbre, ..., datemaj
    /// The texts of the title page, then every whole person in the order of the file.
    void Parcourt(const std::function<void(const Titres &)> &surTitres,
                  const std::function<void(const PersonneXRLG &)> &surPersonne) const;

    /// True when a text holds \a caractere.
    [[nodiscard]] bool UnTexteContient(char caractere) const;

private:
    /// A joint, known by the end tag that it starts with.
    struct Jointure
    {
        qsizetype place;    ///< of its end tag
        qint32 precedente;  ///< on the best way that leads here; -1 for none
        qint8 de;           ///< the text that it ends
        bool douteuse;      ///< another way is as good
    };
    /// The best way to stand inside a text.
    struct Etat
    {
        bool possible = false;
        bool egal = false;  ///< another way has as many joints
        quint32 jointures = 0;
        qint32 derniere = -1;
    };

    void Cherche(qsizetype debut);
    void Essaie(qsizetype place, int champ);
    void EntreDans(Etat &arrivee, const Jointure &jointure, quint32 nombre);
    void Conclut();
    void GardeLeChemin();
    [[nodiscard]] SuiteXRLG Suite(const Jointure &jointure,
                                  const std::function<void(const NombresXRLG &)> &surDebut = {}) const;

    QByteArrayView octets;
    std::vector<Jointure> jointures;
    std::array<Etat, 14> etats;
    qint32 dernier = -1;         ///< last joint of the way taken
    quint32 jusquAuDernier = 0;  ///< joints of that way
    bool entiere = false;
    qsizetype finDesPersonnes = 0;
    quint64 nombrePersonnes = 0;
    unsigned short nombreGenerations = 0;
};

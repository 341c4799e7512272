#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A `.xrlg` file made readable again.
///
/// Texts. A file that the program reads keeps its texts as they are read: what was escaped once is not escaped twice. When
/// the program stops, or would lose a part of a text because that holds whole elements, the texts are taken to the letter,
/// by the layout of the writer alone (see FormeXRLG): "&amp;" in such a file was typed as such.
/// A file that is not whole is cut behind its last whole person, and then the same holds.
///
/// Numbers. Persons come in the order of their numbers, and each has the links and the generation that Coherence says. Who
/// bears a number that another has, or none, stays as it is: nobody can tell who is right.
///
/// What comes out is read back and compared, character by character, before it is given.
struct Reparation
{
    QString echec;      ///< why nothing could be done; empty when it could
    QStringList faits;  ///< what was mended, one line each; none: nothing was wrong
    QByteArray octets;  ///< of the file to be written
};

/// Linear in time, but for the sorting of a tree out of order; a few copies of the file in memory.
[[nodiscard]] Reparation RepareXRLG(QByteArray octets);

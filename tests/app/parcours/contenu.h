#pragma once

#include <QMap>
#include <QString>

#include <array>

class Arbre;

/// What a tree says, as values: kept beside the window and compared with what it holds.

/// The nine texts of a person, in the order of the person's dialog.
using Textes = std::array<QString, 9>;
/// Places in Textes.
enum : std::size_t { Nom, Prenom, DateNais, LieuNais, DateDec, LieuDec, Divers, FicHtml, FicPhoto };
/// The five texts of the title page, in the order of its dialog.
using Page = std::array<QString, 5>;

struct Contenu
{
    QMap<quint64, Textes> personnes;  ///< by number
    Page page;
};

Contenu ContenuDe(const Arbre &arbre);

/// The first thing that differs, for a human reader; empty when nothing does.
QString Difference(const Contenu &attendu, const Contenu &vu);

/// What is broken in \a arbre: its list, its counts (\a compteEnTrop is what the count of persons holds beside them), its
/// links, its generations or its selection. Empty when all is well.
QString DefautDe(const Arbre &arbre, quint64 compteEnTrop);

#pragma once

#include <QDataStream>
#include <QFont>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

/// A chart as the plainest program would hold it: pages of rectangles, lines of text and links, in dots of the page.
/// The one program writes it, the other draws it: neither knows a tree or our painting.

enum PoliceDuDessin : quint8 { PoliceNumero, PoliceNom, PoliceTextes, nombreDePolices };

struct LigneDeTexte
{
    quint8 police = PoliceTextes;
    QPointF place;  ///< where its baseline starts
    QString texte;
};

/// A child under its two parents: the middles of the three boxes, and the heights of the link.
struct Lien
{
    int pere = 0;
    int mere = 0;
    int enfant = 0;
    int bas = 0;     ///< below the parents' boxes
    int milieu = 0;  ///< half-way between the rows
    int haut = 0;    ///< above the child's box
};

struct PageEcrite
{
    QList<QRect> cadres;
    QList<LigneDeTexte> lignes;
    QList<Lien> liens;
};

struct DessinEcrit
{
    int rayon = 0;
    int epaisseur = 0;
    int rondeur = 0;
    QList<QFont> polices;
    QList<PageEcrite> pages;
};

inline QDataStream &operator<<(QDataStream &flux, const LigneDeTexte &l)
{
    return flux << l.police << l.place << l.texte;
}
inline QDataStream &operator>>(QDataStream &flux, LigneDeTexte &l)
{
    return flux >> l.police >> l.place >> l.texte;
}
inline QDataStream &operator<<(QDataStream &flux, const Lien &l)
{
    return flux << l.pere << l.mere << l.enfant << l.bas << l.milieu << l.haut;
}
inline QDataStream &operator>>(QDataStream &flux, Lien &l)
{
    return flux >> l.pere >> l.mere >> l.enfant >> l.bas >> l.milieu >> l.haut;
}
inline QDataStream &operator<<(QDataStream &flux, const PageEcrite &p)
{
    return flux << p.cadres << p.lignes << p.liens;
}
inline QDataStream &operator>>(QDataStream &flux, PageEcrite &p)
{
    return flux >> p.cadres >> p.lignes >> p.liens;
}
inline QDataStream &operator<<(QDataStream &flux, const DessinEcrit &d)
{
    return flux << d.rayon << d.epaisseur << d.rondeur << d.polices << d.pages;
}
inline QDataStream &operator>>(QDataStream &flux, DessinEcrit &d)
{
    return flux >> d.rayon >> d.epaisseur >> d.rondeur >> d.polices >> d.pages;
}

#pragma once

#include <QDataStream>
#include <QFile>
#include <QSet>
#include <QtTest>

/// What a translated catalogue of the toolkit (.qm) holds.

struct TexteDuToolkit
{
    QByteArray contexte;
    QByteArray source;
    friend bool operator==(const TexteDuToolkit &, const TexteDuToolkit &) = default;
    friend size_t qHash(const TexteDuToolkit &texte, size_t graine = 0)
    {
        return qHashMulti(graine, texte.contexte, texte.source);
    }
};

/// The bytes of the section \a etiquette of a .qm file; empty when it has none.
inline QByteArray SectionDe(const QByteArray &catalogue, quint8 etiquette)
{
    constexpr qsizetype entete = 16;
    QDataStream flux(catalogue.sliced(qMin(entete, catalogue.size())));
    while (!flux.atEnd()) {
        quint8 lue = 0;
        QByteArray octets;
        flux >> lue >> octets;
        if (lue == etiquette)
            return octets;
    }
    return {};
}

/// All texts of the catalogue \a chemin that have a translation.
inline QSet<TexteDuToolkit> TextesTraduits(const QString &chemin)
{
    enum Etiquette : quint8 { Fin = 1, Traduction = 3, Source = 6, Contexte = 7, Messages = 0x69 };
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return {};
    QSet<TexteDuToolkit> textes;
    TexteDuToolkit texte;
    bool traduit = false;
    QDataStream flux(SectionDe(fichier.readAll(), Messages));
    while (!flux.atEnd()) {
        quint8 etiquette = 0;
        flux >> etiquette;
        if (etiquette == Fin) {
            if (traduit)
                textes += texte;
            texte = {};
            traduit = false;
            continue;
        }
        QByteArray octets;
        flux >> octets;
        if (etiquette == Source)
            texte.source = octets;
        else if (etiquette == Contexte)
            texte.contexte = octets;
        else if (etiquette == Traduction)
            traduit = traduit || !octets.isEmpty();
    }
    return textes;
}

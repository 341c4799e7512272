#pragma once

#include <QByteArray>
#include <QDate>
#include <QStringList>

/// The expected files of the GEDCOM export.

/// The lines as the file holds them: Latin-1, "\r\n" behind each.
inline QByteArray Octets(const QStringList &lignes)
{
    QByteArray octets;
    for (const QString &ligne : lignes)
        octets += ligne.toLatin1() + "\r\n";
    return octets;
}

/// The header of famille.xrlg exported to a.ged on \a jour, without title and authors.
inline QStringList EnTete(const QDate &jour)
{
    return {
        "0 HEAD",
        "  1 SOUR Ramelier",
        "    2 VERS 3.2",
        "    2 NAME Ramelier - Arbre généalogique",
        "    2 CORP R. Lidou",
        "      3 ADDR contact@ramelier.example",
        "  1 DATE " + jour.toString(Qt::TextDate),
        "  1 CHAR ANSI",
        "  1 FILE a.ged",
        "    2 NOTE Exporté du fichier : famille.xrlg",
        "  1 GEDC",
        "    2 VERS 5.5",
        "    2 FORM LINEAGE_LINKED",
    };
}

/// Pieces between line feeds, every "\r" kept: two files are the same when these are, and a difference is easy to read.
inline QByteArrayList Morceaux(const QByteArray &octets)
{
    return octets.split('\n');
}

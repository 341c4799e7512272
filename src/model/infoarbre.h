#pragma once

#include <QString>

/// The title page of a tree: five free texts, all empty at construction.
struct InfoArbre
{
    QString titrearbre;  ///< title of the tree
    QString creepar;     ///< created by
    QString date;        ///< creation date
    QString majpar;      ///< updated by
    QString datemaj;     ///< date of update
};

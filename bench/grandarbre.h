#pragma once

#include <QByteArray>

#include <memory>

class Arbre;

/// How a tree of the measures grows.
enum class Forme {
    Complete,       ///< everybody's parents are known, up to the last generation
    ParGeneration,  ///< three parents of four are known
    Attachee,       ///< each new person is a parent of anybody who lacks one: the layout needs most passes
};

/// A tree of about \a personnes persons with names, dates and places of usual length; always the same one.
std::unique_ptr<Arbre> GrandArbre(Forme forme, int personnes);
/// A GEDCOM file of \a personnes individuals and their families; the root is "@I1@".
QByteArray GrandGedcom(int personnes);

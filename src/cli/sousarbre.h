#pragma once

#include <QtGlobal>

#include <memory>

class Arbre;

/// The tree of the ancestors of person \a racine of \a arbre, with the numbers that they bear there, \a generations of them
/// counting the root's own; all when it is 0. None when nobody bears that number. Linear.
[[nodiscard]] std::unique_ptr<Arbre> SousArbre(const Arbre &arbre, quint64 racine, int generations);

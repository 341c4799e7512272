#pragma once

#include "xrlghandler.h"

#include <optional>

/// Reads a `.xrlg` file without telling anybody, and without looking for photos.

struct ErreurXRLG
{
    int ligne;
    int colonne;
    QString cause;
};

/// Fills the empty \a arbre from \a octets as the program reads a file, every "\r" left out; where and why it would stop, or
/// none. The person count becomes the written one plus the persons.
[[nodiscard]] std::optional<ErreurXRLG> LitEnSilence(QByteArray octets, Arbre &arbre);

/// A folder that holds nothing, for readers that look for photos.
[[nodiscard]] QString DossierSansPhotos();

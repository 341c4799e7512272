#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <limits>

/// Lengths and scales of the drawing. Every length of a chart is a number of millimetres; a device converts it
/// with its own pair of scales, in device pixels per millimetre. Positions are 64-bit device pixels.

static_assert(sizeof(long) == 8, "positions of huge charts need a 64-bit long");

/// Pixels per millimetre of a device axis with \a pointsParPouce logical dots per inch.
[[nodiscard]] inline float EchelleDeResolution(int pointsParPouce)
{
    return static_cast<float>(pointsParPouce / 25.4);
}

/// Converts \a valeur millimetres to device pixels: single precision product, truncated toward zero, never rounded.
[[nodiscard]] inline long Px(long valeur, float echelle)
{
    return static_cast<long>(static_cast<float>(valeur) * echelle);
}

/// The larger of two integers, \a a when they are equal.
[[nodiscard]] inline long MaxLI(long a, long b)
{
    return a >= b ? a : b;
}

/// The smaller of two integers.
[[nodiscard]] inline long MinLI(long a, long b)
{
    return b > a ? a : b;
}

/// The larger of two numbers. Not a number as \a a is the result; as \a b it leaves \a a.
[[nodiscard]] inline float MaxF(float a, float b)
{
    return a <= b ? b : a;
}

/// The smaller of two numbers. Not a number as \a a gives \a b; as \a b it is the result.
[[nodiscard]] inline float MinF(float a, float b)
{
    return a <= b ? a : b;
}

/// 2 to the power \a n; 1 for every n <= 0, and the largest power that fits for n beyond 62.
[[nodiscard]] inline long DeuxPuissanceN(int n)
{
    return 1L << std::clamp(n, 0, 62);
}

/// \a valeur truncated toward zero and kept within \a mini and \a maxi; not a number gives \a mini.
[[nodiscard]] inline int EntierBorne(double valeur, int mini, int maxi)
{
    if (!(valeur > mini))
        return mini;
    return valeur >= maxi ? maxi : static_cast<int>(valeur);
}

/// \a position as a painter coordinate: positions of charts fit, absurd ones stop at one thousand million pixels.
[[nodiscard]] inline int Coordonnee(long position)
{
    constexpr long limite = 1'000'000'000L;
    return static_cast<int>(std::clamp(position, -limite, limite));
}

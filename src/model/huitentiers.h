#pragma once

#include <array>
#include <cstdint>

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>

/// Marks a function whose instructions not every processor has: to be called only where HuitEntiers::Existent().
#define AVEC_HUIT_ENTIERS [[gnu::target("avx2")]]
#define DANS_HUIT_ENTIERS [[gnu::target("avx2"), gnu::always_inline]]

/// Eight 32-bit numbers that are worked on at once (AVX2); a sum that does not fit wraps around.
struct HuitEntiers
{
    [[nodiscard]] static bool Existent() { return __builtin_cpu_supports("avx2"); }

    DANS_HUIT_ENTIERS static inline HuitEntiers Tous(int valeur) { return {_mm256_set1_epi32(valeur)}; }
    DANS_HUIT_ENTIERS static inline HuitEntiers Lus(const int *source)
    {
        return {_mm256_loadu_si256(reinterpret_cast<const __m256i_u *>(source))};
    }
    DANS_HUIT_ENTIERS static inline HuitEntiers Lus(const std::array<std::int8_t, 8> &source)
    {
        return {_mm256_cvtepi8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i_u *>(&source)))};
    }
    DANS_HUIT_ENTIERS inline void Ecrit(int *cible) const
    {
        _mm256_storeu_si256(reinterpret_cast<__m256i_u *>(cible), v);
    }

    DANS_HUIT_ENTIERS inline HuitEntiers operator+(HuitEntiers b) const { return {_mm256_add_epi32(v, b.v)}; }
    DANS_HUIT_ENTIERS inline HuitEntiers operator-(HuitEntiers b) const { return {_mm256_sub_epi32(v, b.v)}; }
    DANS_HUIT_ENTIERS inline HuitEntiers operator|(HuitEntiers b) const { return {_mm256_or_si256(v, b.v)}; }
    /// Rounded down, also below zero.
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers Moitie() const { return {_mm256_srai_epi32(v, 1)}; }
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers Max(HuitEntiers b) const { return {_mm256_max_epi32(v, b.v)}; }

    /// At each place the number that stands here at the place that the three low bits of \a places tell.
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers Pris(HuitEntiers places) const
    {
        return {_mm256_permutevar8x32_epi32(v, places.v)};
    }
    /// As above out of sixteen, these eight and \a suite: four low bits.
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers PrisAvec(HuitEntiers suite, HuitEntiers places) const
    {
        const HuitEntiers quatriemeBitEnSigne{_mm256_slli_epi32(places.v, 28)};
        return Pris(places).OuSiNegatif(quatriemeBitEnSigne, suite.Pris(places));
    }
    /// \a autre where \a signe is negative.
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers OuSiNegatif(HuitEntiers signe, HuitEntiers autre) const
    {
        return {_mm256_castps_si256(
            _mm256_blendv_ps(_mm256_castsi256_ps(v), _mm256_castsi256_ps(autre.v), _mm256_castsi256_ps(signe.v)))};
    }
    /// At each place the largest of the numbers up to there.
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers MaxJusquIci() const
    {
        constexpr int unDecale = 0b10'01'00'00;     // 0 0 1 2, in both halves
        constexpr int deuxDecales = 0b01'00'01'00;  // 0 1 0 1
        HuitEntiers resultat = Max({_mm256_shuffle_epi32(v, unDecale)});
        resultat = resultat.Max({_mm256_shuffle_epi32(resultat.v, deuxDecales)});
        return resultat.Max(resultat.Pris({_mm256_setr_epi32(0, 1, 2, 3, 3, 3, 3, 3)}));
    }
    [[nodiscard]] DANS_HUIT_ENTIERS inline HuitEntiers DernierPartout() const { return Pris(Tous(7)); }

    /// One bit a place, the first one lowest.
    [[nodiscard]] DANS_HUIT_ENTIERS inline unsigned Differents(HuitEntiers b) const
    {
        return 0xFFU & ~HuitEntiers{_mm256_cmpeq_epi32(v, b.v)}.Negatifs();
    }
    [[nodiscard]] DANS_HUIT_ENTIERS inline unsigned Negatifs() const
    {
        return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(v)));
    }

    __m256i v;
};

#undef DANS_HUIT_ENTIERS
#endif

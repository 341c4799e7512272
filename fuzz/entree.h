#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <limits>

/// Values out of the bytes of an input, one after the other; zeros behind their end.
class Entree
{
public:
    explicit Entree(QByteArrayView desOctets)
        : octets(desOctets)
    {
    }

    std::uint8_t Octet()
    {
        if (octets.isEmpty())
            return 0;
        const auto octet = static_cast<std::uint8_t>(octets.front());
        octets = octets.sliced(1);
        return octet;
    }
    bool Oui() { return Octet() % 2 != 0; }

    /// Mostly a usual length; some are as absurd as a damaged file can make them.
    int Longueur()
    {
        const std::uint8_t octet = Octet();
        if (octet < plusPetitAbsurde)
            return octet - 20;
        absurde = true;
        static constexpr int absurdes[] = {std::numeric_limits<int>::min(),
                                           std::numeric_limits<int>::max(),
                                           -1'000'000,
                                           -1'000,
                                           500,
                                           5'000,
                                           100'000,
                                           20'000'000};
        return absurdes[octet % std::size(absurdes)];
    }

    [[nodiscard]] bool EutDeLAbsurde() const { return absurde; }
    [[nodiscard]] QByteArrayView Reste() const { return octets; }

private:
    static constexpr std::uint8_t plusPetitAbsurde = 220;

    QByteArrayView octets;
    bool absurde = false;
};

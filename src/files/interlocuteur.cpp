#include "interlocuteur.h"

#include <cstdio>
#include <utility>

namespace {

/// Nobody asked to be told: the message must still not be lost.
class InterlocuteurMuet : public Interlocuteur
{
public:
    void Information(const QString &titre, const QString &texte) override { Ecrit(titre, texte); }
    void Avertissement(const QString &titre, const QString &texte) override { Ecrit(titre, texte); }
    std::optional<QString> ChoisitRacine(QWidget * /*parent*/, const Lignes & /*individus*/) override { return {}; }
    bool RacineMasculine(QWidget * /*parent*/) override { return true; }

private:
    static void Ecrit(const QString &titre, const QString &texte)
    {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(titre), qUtf8Printable(texte));
    }
};

std::unique_ptr<Interlocuteur> &Place()
{
    static std::unique_ptr<Interlocuteur> courant = std::make_unique<InterlocuteurMuet>();
    return courant;
}

}  // namespace

Interlocuteur::~Interlocuteur() = default;

Interlocuteur &Interlocuteur::Courant()
{
    return *Place();
}

void Interlocuteur::Installe(std::unique_ptr<Interlocuteur> interlocuteur)
{
    Place() = std::move(interlocuteur);
}

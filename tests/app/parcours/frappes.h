#pragma once

#include <QList>
#include <QString>

#include <random>

class QDialog;
class QLineEdit;
class QPushButton;

/// Seeded choices of a random user. The same seed gives the same choices.
class Tirage
{
public:
    explicit Tirage(quint32 graine)
        : source(graine)
    {
    }

    /// 0 to \a n - 1.
    int Parmi(int n) { return static_cast<int>(source() % static_cast<quint32>(n)); }
    bool Chance(int pourcent) { return Parmi(100) < pourcent; }
    template <typename Liste> auto Un(const Liste &liste)
    {
        return liste[static_cast<decltype(liste.size())>(Parmi(static_cast<int>(liste.size())))];
    }
    /// A surname, a date, a remark...: accents, quotes, blanks, other alphabets, long texts. Never "&" nor "<", which the
    /// tree file does not hold.
    QString Texte();

private:
    std::mt19937 source;
};

/// What a user types into one line of a dialog.
struct Frappe
{
    enum Maniere { Remplacer, Ajouter, Effacer };
    std::size_t champ;
    Maniere maniere;
    QString texte;
};

/// How a user fills a dialog of line edits and leaves it.
struct Saisie
{
    enum Fin { BoutonOk, Entree, BoutonAnnuler, Echap, Fermeture };
    static constexpr int longueurMax = 250;

    QList<Frappe> frappes;  ///< one a line at most
    Fin fin = BoutonOk;

    [[nodiscard]] bool EstAcceptee() const { return fin == BoutonOk || fin == Entree; }
    /// Types it all into \a lignes and leaves \a dialogue by its \a ok or \a annuler button.
    void Joue(QDialog &dialogue, const QList<QLineEdit *> &lignes, QPushButton &ok, QPushButton &annuler) const;
    /// The texts afterwards, where the lines held \a avant. A line holds 250 characters, the line \a sansLimite any number.
    template <typename Lignes> [[nodiscard]] Lignes Resultat(Lignes avant, std::size_t sansLimite = 99) const;
    /// Some line has been changed by typing, whatever it holds now: there was something to delete, or room to write.
    template <typename Lignes> [[nodiscard]] bool ATouche(const Lignes &avant, std::size_t sansLimite = 99) const;
};

template <typename Lignes> Lignes Saisie::Resultat(Lignes avant, std::size_t sansLimite) const
{
    for (const Frappe &frappe : frappes) {
        QString &texte = avant[frappe.champ];
        texte = (frappe.maniere == Frappe::Ajouter ? texte : QString()) + frappe.texte;
        if (frappe.champ != sansLimite)
            texte.truncate(longueurMax);
    }
    return avant;
}

template <typename Lignes> bool Saisie::ATouche(const Lignes &avant, std::size_t sansLimite) const
{
    for (const Frappe &frappe : frappes) {
        const QString &texte = avant[frappe.champ];
        const bool pleine = frappe.champ != sansLimite && texte.size() == longueurMax;
        const bool sansEffet =
            (frappe.maniere == Frappe::Effacer && texte.isEmpty()) || (frappe.maniere == Frappe::Ajouter && pleine);
        if (!sansEffet)
            return true;
    }
    return false;
}

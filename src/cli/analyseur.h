#pragma once

#include "commandes.h"

#include <QCommandLineParser>

#include <optional>

/// A command as the help lists it.
struct Commande
{
    const char *nom;
    const char *arguments;  ///< the words that it needs: "ARBRE SORTIE"; "..." at the end: and more of the last one
    const char *resume;
};

/// Reads the words behind a command's name.
class Analyseur
{
public:
    explicit Analyseur(const Commande &uneCommande);

    /// \a valeur names what the option takes; none for an option that is there or not.
    void Option(const QString &nom, const QString &description, const QString &valeur = {});

    /// None when the command is to be done; else it is over: its help was asked for, or the words make no sense.
    [[nodiscard]] std::optional<Sortie> Lit(const QStringList &mots);
    /// The same end for a value that makes no sense.
    [[nodiscard]] Sortie Refuse(const QString &cause) const;

    [[nodiscard]] QStringList Fichiers() const { return options.positionalArguments(); }
    [[nodiscard]] bool A(const QString &nom) const { return options.isSet(nom); }
    [[nodiscard]] QString Valeur(const QString &nom) const { return options.value(nom); }

private:
    [[nodiscard]] QString Aide() const;

    const Commande &commande;
    QCommandLineParser options;
};

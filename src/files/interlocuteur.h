#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

/// The one door to the user for code that knows no widget: readers and writers tell and ask through it.
/// The desktop installs one that shows message boxes, a command line one that writes to its error stream.
class Interlocuteur
{
public:
    virtual ~Interlocuteur();

    /// A refusal or a mistake in what was asked or read. Returns when the user has seen it.
    virtual void Information(const QString &titre, const QString &texte) = 0;
    /// A failure to read or write.
    virtual void Avertissement(const QString &titre, const QString &texte) = 0;

    /// What makes the lines of a choice. To call it takes time and memory: only who shows the lines does.
    using Lignes = std::function<QStringList()>;
    /// Which of the individuals of a GEDCOM file, one line each, is the root? The text that the user chose or typed, none
    /// when it was given up. \a parent owns what is shown; \a individus is good during the call.
    [[nodiscard]] virtual std::optional<QString> ChoisitRacine(QWidget *parent, const Lignes &individus) = 0;
    /// Is the root a man? Its number does not tell.
    [[nodiscard]] virtual bool RacineMasculine(QWidget *parent) = 0;

    /// The one installed; before any is, one that writes to the standard error stream.
    [[nodiscard]] static Interlocuteur &Courant();
    /// Installs \a interlocuteur for the rest of the program.
    static void Installe(std::unique_ptr<Interlocuteur> interlocuteur);
};

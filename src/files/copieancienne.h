#pragma once

#include <QByteArray>

/// The former content of a file that is about to be replaced, kept beside it under its name with a "~" (one generation).
/// That name holds a whole file at every instant. What cannot be done is left out without a word: a copy that fails
/// must not prevent a save, and leaves the former copy as it is.
class CopieAncienne
{
public:
    /// Nothing happens yet. \a unTemporaire is the temporary file that will take the name \a uneCible: its name with a
    /// "~" is used on the way.
    CopieAncienne(const QByteArray &uneCible, const QByteArray &unTemporaire);
    /// Lets the generation before go.
    ~CopieAncienne();
    CopieAncienne(const CopieAncienne &) = delete;
    CopieAncienne &operator=(const CopieAncienne &) = delete;

    /// Puts the present content of the target under the "~" name. Nothing when there is no target.
    void Pose();
    /// The target could not be replaced: the "~" name is again what it was, where the file system can exchange names.
    void Reprend();

private:
    [[nodiscard]] bool Prepare() const;
    [[nodiscard]] bool CopieLeContenu() const;

    enum Etat { Rien, Creee, Remplacee, Echangee };

    QByteArray cible;
    QByteArray copie;          ///< NAME~
    QByteArray intermediaire;  ///< holds the present content on its way to NAME~, then the generation before
    Etat etat = Rien;
};

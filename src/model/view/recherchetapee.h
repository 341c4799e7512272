#pragma once

#include <QElapsedTimer>
#include <QString>

class Arbre;
class Personne;

/// The search that somebody types without a field: each letter or digit leads to the next person whose name or number
/// begins with what was typed since the last pause.
class RechercheTapee
{
public:
    /// After \a patience milliseconds without a letter what was typed is forgotten.
    explicit RechercheTapee(int patience);

    /// Something was typed, and not forgotten since.
    [[nodiscard]] bool EstEnCours() const;
    void Oublie();
    /// Whom the text typed so far, \a texte behind it, leads to from the selected person on; none when nobody is meant.
    /// The same letter again, where no name begins so, goes from one person of this letter to the next.
    [[nodiscard]] Personne *Tape(const QString &texte, const Arbre &arbre);

private:
    int patienceMs;
    QString tape;
    QElapsedTimer derniereTouche;
};

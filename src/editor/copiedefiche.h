#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class LyTextEdit;
class PlaceDeSecours;

/// Keeps a copy of what was typed into a sheet and is not saved in the user's state folder, for the day when the program
/// ends without being asked to: the bytes that a save would write, once in a while. No unsaved text: no copy. Says nothing
/// to the user; a copy that cannot be written is told once on the error stream.
class CopieDeFiche : public QObject
{
    Q_OBJECT

public:
    static constexpr int intervalleMs = 30'000;

    /// Watches the text of \a unEditeur, which outlives this object. A change is in the copy after \a unIntervalle
    /// milliseconds.
    explicit CopieDeFiche(LyTextEdit &unEditeur, int unIntervalle = intervalleMs);
    /// The copy stays.
    ~CopieDeFiche() override;

    /// The text was saved, or another one has taken its place: no copy of what is not unsaved any more.
    void Regarde();
    /// Writes the present text here and now, for a program that is about to end against its user's will. Nothing without
    /// unsaved text.
    void EcritEtGarde();
    /// The editor closes: the text was saved or is not wanted, unless EcritEtGarde was called since its last change.
    void Ferme();
    /// The copy; empty while there is none.
    [[nodiscard]] QString Chemin() const { return chemin; }

private:
    void TexteChange();
    [[nodiscard]] bool Ecrit();
    void EcritOuSePlaint();
    void Retire();

    LyTextEdit &editeur;
    QTimer ecriture;
    std::unique_ptr<PlaceDeSecours> place;
    QString chemin;
    bool gardee = false;
    bool plainte = false;
};

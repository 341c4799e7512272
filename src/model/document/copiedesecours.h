#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <sys/types.h>

class PlaceDeSecours;
class RamelierDoc;

/// Keeps a copy of the document's unsaved work in the user's state folder, for the day when the program ends without
/// being asked to: written when the event loop is next at rest after a change, but once in a while only, by a child
/// process that has the memory of this moment, so that the user never waits. No unsaved work: no copy. Says nothing to
/// the user; a copy that cannot be written is told once on the error stream.
class CopieDeSecours : public QObject
{
    Q_OBJECT

public:
    static constexpr int intervalleMs = 30'000;

    /// Watches \a unDoc. Photos and sheets of a tree without a file are in \a unDossier. At least \a unIntervalle
    /// milliseconds pass from one copy to the next. Both objects outlive this one.
    CopieDeSecours(RamelierDoc &unDoc, const QString &unDossier, int unIntervalle = intervalleMs);
    /// Removes the copy: the program ends in the usual way.
    ~CopieDeSecours() override;

    /// Something may have changed, been saved or been closed.
    void Regarde();
    /// Writes the present state here and now; the copy then outlives this object. For a program that is about to end
    /// against its user's will: a person whose first texts are still being typed is taken out of the tree. Nothing without
    /// unsaved work.
    void EcritEtGarde();
    /// The copy, or empty while there is none or its writing has not ended.
    [[nodiscard]] QString Chemin() const;

private:
    [[nodiscard]] bool TravailNonSauve() const;
    [[nodiscard]] QString DossierDesPhotos() const;
    void Ecrit();
    [[nodiscard]] bool PrendPlace();
    [[nodiscard]] bool LanceLEnfant();
    [[noreturn]] void TravailleCommeEnfant();
    void Moissonne();
    void ArreteLEnfant();
    [[nodiscard]] bool EcritLesFichiers() const;
    void EcritLesOptions() const;
    void SePlaint();
    void Retire();

    RamelierDoc &doc;
    const QString &dossierSansFichier;
    int intervalle;
    std::unique_ptr<PlaceDeSecours> place;
    pid_t enfant = 0;  ///< writes a copy just now
    QElapsedTimer depuisLaDerniere;
    QTimer regard;            ///< looks at the document when the event loop is at rest
    QTimer ecriture;          ///< writes when it is time
    QTimer moisson;           ///< looks whether the child has ended
    bool arbreParti = false;  ///< the copy is of a tree that is no longer there
    bool ecrite = false;
    bool gardee = false;
    bool plainte = false;
};

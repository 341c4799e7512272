#pragma once

#include "infoarbre.h"
#include "mesuresdisposition.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <optional>

class Annuaire;
class IndexDessin;
class InfoPersonne;
class Personne;
class QColor;
class QPainter;
struct Bloc;
struct FormatsDessins;
struct LesPolices;

/// One ascending tree: a doubly linked list of Personne sorted by Sosa number, which it owns.
/// Not thread-safe; never copied. Its operations check nothing but what is said here: callers keep the preconditions.
class Arbre
{
public:
    /// An empty title page and no person.
    Arbre();
    ~Arbre();
    Q_DISABLE_COPY_MOVE(Arbre)

    /// Appends \a personne at the tail without looking at its number, and counts it. Takes ownership. O(1).
    /// The number of generations is left alone: readers take it from the file.
    void AjouteALaFin(Personne *personne);
    /// Inserts \a personne where its number belongs (at the tail when no place is found), counts it, and adds one
    /// generation when it opens a new one. Takes ownership. O(n), or the distance from \a depuis, a person of the
    /// list whose number is smaller: in a sorted list the place is the same. O(log n) when the list is sorted and has its
    /// Annuaire.
    void AjouteASaPlace(Personne *personne, Personne *depuis = nullptr);
    /// Fills the parent pointers from the parent numbers; called once after a whole tree was read. Linear. A number that
    /// nobody later in the list bears leaves its pointer none; each person becomes the parent of one child at most.
    void DetermineLiensDeParente();
    /// Creates the father (\a estPere) or the mother of \a enfant with empty data, links it to its child and to its own
    /// parents where they stand in the list already, inserts it and returns it (it belongs to the tree).
    /// Precondition: that parent is missing. \a depuis as in AjouteASaPlace.
    Personne *AjoutePersonne(Personne *enfant, bool estPere, Personne *depuis = nullptr);
    /// Deletes the selected person and leaves nothing selected. Does nothing without a selection or when it is the first
    /// person. The number of generations falls, by one, only when the last person of the list goes and leaves its
    /// generation empty.
    void SupprimePersonne();
    /// Replaces infoSauvee by a copy of the selected person's texts, its photo loaded from \a dossier, and notes whose
    /// they are; by none when nothing is selected.
    void SauveInfoPersonne(const QString &dossier);

    /// Nothing can be taken back any more: empties infoSauvee and both slots of a deleted person.
    void OublieAnnulation();

    /// Changes the selection after a click at the pixel (\a px, \a py); true when it changed. A click beside every box
    /// clears the selection, a click in the selected box leaves it.
    bool DeselectSelect(long px, long py, float sx, float sy, const FormatsDessins &formats);
    /// Selects \a personne, of this tree, in the place of whoever was; true when the selection changed.
    bool Selectionne(Personne *personne);
    /// Whom a click at that pixel selects; none beside every box.
    [[nodiscard]] Personne *PersonneSous(long px, long py, float sx, float sy, const FormatsDessins &formats) const;
    /// The persons by place, number and name; made when it is first asked for, and kept from then on: adding and
    /// deleting find their places in it.
    [[nodiscard]] const Annuaire &SonAnnuaire() const;

    /// Draws every person in list order, then the links. Where the painter clips, what lies outside is skipped: the
    /// picture is the same. See Personne::Affiche for the arguments.
    void Affiche(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats,
                 const LesPolices &polices, bool arbreOuvert);
    using FondDeCase = std::function<QColor(const Personne &)>;
    /// Fills the boxes of those for whom \a fond has a valid colour. For a drawing on top, by Affiche with the same lengths.
    /// Who lies outside of the painter's clip is not asked for.
    void PeintLesFonds(QPainter *painter, float sx, float sy, const FormatsDessins &formats,
                       const FondDeCase &fond) const;
    /// Draws the lines and arcs between each person and its parents.
    void TraceLesLiaisons(QPainter *painter, float sx, float sy, const FormatsDessins &formats) const;

    /// Notes where everybody stands, for drawing and clicks to find it without a walk along the list, and with which
    /// lengths they were placed, if known. O(n); called when everybody has been placed. Positions changed by hand
    /// afterwards call for OublieLesPlaces, texts for TextesChanges; whoever enters or leaves the list makes the tree
    /// forget by itself.
    void NoteLesPlaces(std::optional<MesuresDisposition> mesures = {});
    void OublieLesPlaces();
    /// True when a layout with \a mesures would change nothing: it was the last, and the same persons have photos. O(n).
    [[nodiscard]] bool EstPlaceAvec(const MesuresDisposition &mesures) const;
    /// To be called when the texts of \a personne changed.
    void TextesChanges(const Personne &personne);

    InfoArbre *infoArbre;          ///< owned, always there
    quint64 nombrePersonnes = 0;   ///< after a file was read: its written count plus its persons; never loop on it
    Personne *premiere = nullptr;  ///< head of the list, owned with the persons behind it
    Personne *derniere = nullptr;  ///< tail of the list
    unsigned short nombreGenerations = 0;
    Personne *selection = nullptr;
    InfoPersonne *infoSauvee = nullptr;  ///< owned: a person's data kept for undo
    quint64 numeroSauve = 0;             ///< number of the person whose data infoSauvee keeps
    Personne *enfantSansPere = nullptr;  ///< the child that lost its father, for undo
    Personne *enfantSansMere = nullptr;  ///< the child that lost its mother, for undo

private:
    void Insere(Personne *personne, Personne *depuis);
    [[nodiscard]] Personne *DepartVers(const Personne &personne) const;
    void RetrouveSesParents(Personne *personne);
    [[nodiscard]] const Annuaire *AnnuaireTrie() const;
    void DetacheDeSonEnfant(const Personne *parent);
    void Parcourt(const std::function<bool(const Bloc &)> &question,
                  const std::function<void(const Bloc &)> &visite) const;

    std::unique_ptr<IndexDessin> index;
    mutable std::unique_ptr<Annuaire> annuaire;
    std::optional<MesuresDisposition> mesuresDesPlaces;
};

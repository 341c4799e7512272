#pragma once

#include <QRect>
#include <QtGlobal>

#include <cstddef>

class InfoPersonne;
class QPainter;
struct FormatsDessins;
struct LesPolices;
struct OutilsPersonne;

/// One person of an ascending tree, known by a Sosa number: 1 for the root, 2n for the father of n, 2n+1 for the
/// mother. Owns its data and the rest of the list behind it; never copied.
class Personne
{
public:
    /// Every number, position and pointer is zero or none, affichable is true.
    explicit Personne(unsigned short generation);
    /// Destroys the data and every later person of the list, one after the other: a million of them fit any stack.
    ~Personne();
    Q_DISABLE_COPY_MOVE(Personne)

    /// True when both the surname and the given names are empty, or when there are no data at all.
    [[nodiscard]] bool estVide() const;

    /// 2 when a photo stands beside the box, else 1: how many box widths the person takes.
    [[nodiscard]] int FacteurPhoto() const;

    /// Draws box, number, texts, photo and selection mark at the scales \a sx and \a sy (pixels per millimetre).
    /// \a impression leaves the selection mark out; \a arbreOuvert false is the reduced display: no frame, photo,
    /// places nor remark. Texts that do not fit run over the frame. The painter's state is left as it was. Returns the
    /// rectangle that the lines of the texts took, the number's included; null when nothing was drawn.
    QRect Affiche(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats,
                  const LesPolices &polices, bool arbreOuvert);
    /// The same with tools that serve for other persons too. The painter's pen, brush and font change.
    QRect Dessine(QPainter &peintre, const OutilsPersonne &outils);
    /// What Dessine would return, nothing being drawn. The painter's pen and font change.
    [[nodiscard]] QRect MesureLesTextes(QPainter &peintre, const OutilsPersonne &outils) const;
    /// Draws the photo to the right of the box; scales its copy for the screen or the printer when there is none yet.
    void AffichePhoto(QPainter *painter, float sx, float sy, bool impression, const FormatsDessins &formats);
    /// Draws (\a trace true, blue) or erases (false, white) the dashed mark around the box.
    void TraceSelection(QPainter *painter, float sx, float sy, bool trace, const FormatsDessins &formats) const;
    /// True when the point (pixels) lies strictly inside the box; its border and the photo do not count.
    [[nodiscard]] bool EstClique(long px, long py, float sx, float sy, const FormatsDessins &formats) const;

    quint64 numero = 0;
    unsigned short numerogeneration;  ///< 0 for the root, child's + 1 for a parent
    bool affichable = true;           ///< false: skipped by all drawing
    bool selectionnee = false;
    quint64 pere = 0;              ///< number of the father, 0 when there is none
    quint64 mere = 0;              ///< number of the mother, 0 when there is none
    quint64 enfant = 0;            ///< number of the child, 0 for the root
    long x = 0;                    ///< left edge of the box, in pixels of the device laid out for
    long y = 0;                    ///< top edge of the box
    InfoPersonne *info = nullptr;  ///< owned
    Personne *suivante = nullptr;  ///< owned: the rest of the list
    Personne *precedente = nullptr;
    Personne *ptrPere = nullptr;
    Personne *ptrMere = nullptr;

private:
    friend class DispositionPrudente;
    friend class DispositionRapide;
    /// Place in the list while a layout runs; means nothing outside of it.
    std::size_t rang = 0;
};

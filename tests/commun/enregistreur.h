#pragma once

#include <QFont>
#include <QImage>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <QTransform>

#include <memory>

/// One thing that a painter drew, with the state that it drew it in. Coordinates are the painter's own.
struct Trace
{
    enum class Genre { Ligne, Chemin, Texte, Image };

    Genre genre = Genre::Chemin;
    QLineF ligne;         ///< Ligne
    QPainterPath chemin;  ///< Chemin: arcs, rectangles and rounded rectangles are paths
    QString texte;        ///< Texte: one item, a wrapped text gives one for each of its lines
    QPointF position;     ///< Texte: start of the baseline; Image: top-left corner
    QFont police;         ///< Texte
    QImage image;         ///< Image
    QSizeF taille;        ///< Image: drawn size
    QPen plume;
    QBrush brosse;
    QTransform repere;

    /// What was drawn, without the state, in one line:
    /// "ligne 1,2 3,4"; "arc x,y LxH départ ouverture" for a quarter of an ellipse, as given to QPainter::drawArc;
    /// "cadre x,y LxH rondeurs h,v" for a rounded rectangle, as given to QPainter::drawRoundedRect;
    /// "rectangle x,y LxH"; "chemin x,y LxH" for any other; "texte ..."; "image x,y LxH".
    [[nodiscard]] QString EnTexte() const;
};

/// A paint device that draws nothing and keeps what it is told: geometry is asserted without pixels.
class Enregistreur : public QPaintDevice
{
public:
    explicit Enregistreur(QSize taille = QSize(4000, 4000), int pointsParPouce = 96);
    ~Enregistreur() override;

    /// Everything drawn since the construction, in order.
    [[nodiscard]] const QList<Trace> &Traces() const { return traces; }
    [[nodiscard]] QList<Trace> Traces(Trace::Genre genre) const;
    /// EnTexte of every trace, in order.
    [[nodiscard]] QStringList EnTexte() const;
    /// The same for one kind only.
    [[nodiscard]] QStringList EnTexte(Trace::Genre genre) const;
    /// The texts alone, in order.
    [[nodiscard]] QStringList Textes() const;
    /// The first text item that reads \a texte; an empty trace when there is none.
    [[nodiscard]] Trace Texte(const QString &texte) const;

    [[nodiscard]] QPaintEngine *paintEngine() const override;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric mesure) const override;

private:
    class Moteur;

    QSize taille;
    int pointsParPouce;
    std::unique_ptr<Moteur> moteur;
    QList<Trace> traces;
};

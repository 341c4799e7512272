#include "enregistreur.h"

#include <QPainter>

#include <cmath>
#include <limits>
#include <utility>

namespace {

QString Nombre(double valeur)
{
    return QString::number(std::round(valeur * 100) / 100 + 0.0);
}

QString Point(QPointF point)
{
    return Nombre(point.x()) + u',' + Nombre(point.y());
}

QString Rectangle(const QRectF &rectangle)
{
    return Point(rectangle.topLeft()) + u' ' + Nombre(rectangle.width()) + u'x' + Nombre(rectangle.height());
}

/// One cubic curve that leaves along one axis and ends along the other.
QString QuartDEllipse(const QPainterPath &chemin)
{
    const QPointF depart = chemin.elementAt(0);
    const QPointF fin = chemin.elementAt(3);
    const bool departVertical = std::abs(chemin.elementAt(1).x - depart.x()) < 0.001;
    const QPointF coin = departVertical ? QPointF(depart.x(), fin.y()) : QPointF(fin.x(), depart.y());
    const QPointF centre = depart + fin - coin;
    const QPointF rayons(std::abs(coin.x() - centre.x()), std::abs(coin.y() - centre.y()));
    const auto angle = [&](QPointF point) {
        const int degres = qRound(qRadiansToDegrees(
            std::atan2((centre.y() - point.y()) / rayons.y(), (point.x() - centre.x()) / rayons.x())));
        return (degres + 360) % 360;
    };
    const int ouverture = (angle(fin) - angle(depart) + 360) % 360;
    return QStringLiteral("arc %1 %2 %3")
        .arg(Rectangle({centre - rayons, centre + rayons}))
        .arg(16 * angle(depart))
        .arg(16 * (ouverture > 180 ? ouverture - 360 : ouverture));
}

/// Begins at the end of its left edge: straight up to the first corner.
QString RectangleArrondi(const QPainterPath &chemin)
{
    const QRectF cadre = chemin.boundingRect();
    const QPointF depart = chemin.elementAt(0);
    const QPointF finDuCoin = chemin.elementAt(3);
    return QStringLiteral("cadre %1 rondeurs %2,%3")
        .arg(Rectangle(cadre), Nombre(200 * (finDuCoin.x() - cadre.x()) / cadre.width()),
             Nombre(200 * (depart.y() - cadre.y()) / cadre.height()));
}

QString CheminEnTexte(const QPainterPath &chemin)
{
    int courbes = 0;
    for (int i = 0; i < chemin.elementCount(); ++i) {
        if (chemin.elementAt(i).type == QPainterPath::CurveToElement)
            ++courbes;
    }
    if (courbes == 1 && chemin.elementCount() == 4)
        return QuartDEllipse(chemin);
    if (courbes == 4)
        return RectangleArrondi(chemin);
    const QString genre =
        courbes == 0 && chemin.elementCount() == 5 ? QStringLiteral("rectangle ") : QStringLiteral("chemin ");
    return genre + Rectangle(chemin.boundingRect());
}

}  // namespace

QString Trace::EnTexte() const
{
    switch (genre) {
    case Genre::Ligne:
        return QStringLiteral("ligne ") + Point(ligne.p1()) + u' ' + Point(ligne.p2());
    case Genre::Chemin:
        return CheminEnTexte(chemin);
    case Genre::Texte:
        return QStringLiteral("texte ") + texte;
    case Genre::Image:
        return QStringLiteral("image ") + Rectangle({position, taille});
    }
    Q_UNREACHABLE();
}

class Enregistreur::Moteur : public QPaintEngine
{
public:
    explicit Moteur(QList<Trace> &ouNoter)
        : QPaintEngine(AllFeatures)
        , traces(ouNoter)
    {
    }

    bool begin(QPaintDevice * /*appareil*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*etat*/) override { }
    [[nodiscard]] Type type() const override { return User; }

    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void drawLines(const QLineF *lignes, int nombre) override
    {
        for (int i = 0; i < nombre; ++i) {
            Trace trace = Nouvelle(Trace::Genre::Ligne);
            trace.ligne = lignes[i];
            traces += trace;
        }
    }

    void drawRects(const QRectF *rectangles, int nombre) override
    {
        for (int i = 0; i < nombre; ++i) {
            QPainterPath chemin;
            chemin.addRect(rectangles[i]);
            drawPath(chemin);
        }
    }

    void drawPath(const QPainterPath &chemin) override
    {
        Trace trace = Nouvelle(Trace::Genre::Chemin);
        trace.chemin = chemin;
        traces += trace;
    }

    void drawPolygon(const QPointF *points, int nombre, PolygonDrawMode /*mode*/) override
    {
        QPainterPath chemin;
        chemin.addPolygon(QPolygonF(QList<QPointF>(points, points + nombre)));
        drawPath(chemin);
    }

    void drawTextItem(const QPointF &position, const QTextItem &item) override
    {
        Trace trace = Nouvelle(Trace::Genre::Texte);
        trace.position = position;
        trace.texte = item.text();
        trace.police = item.font();
        traces += trace;
    }

    void drawImage(const QRectF &cible, const QImage &image, const QRectF & /*source*/,
                   Qt::ImageConversionFlags /*conversion*/) override
    {
        Trace trace = Nouvelle(Trace::Genre::Image);
        trace.position = cible.topLeft();
        trace.taille = cible.size();
        trace.image = image;
        traces += trace;
    }

    void drawPixmap(const QRectF &cible, const QPixmap &pixmap, const QRectF &source) override
    {
        drawImage(cible, pixmap.toImage(), source, Qt::AutoColor);
    }

private:
    [[nodiscard]] Trace Nouvelle(Trace::Genre genre) const
    {
        Trace trace;
        trace.genre = genre;
        trace.plume = painter()->pen();
        trace.brosse = painter()->brush();
        trace.repere = painter()->transform();
        return trace;
    }

    QList<Trace> &traces;
};

Enregistreur::Enregistreur(QSize uneTaille, int desPointsParPouce)
    : taille(uneTaille)
    , pointsParPouce(desPointsParPouce)
    , moteur(std::make_unique<Moteur>(traces))
{
}

Enregistreur::~Enregistreur() = default;

QList<Trace> Enregistreur::Traces(Trace::Genre genre) const
{
    QList<Trace> choisies;
    for (const Trace &trace : traces) {
        if (trace.genre == genre)
            choisies += trace;
    }
    return choisies;
}

QStringList Enregistreur::EnTexte() const
{
    QStringList textes;
    for (const Trace &trace : traces)
        textes += trace.EnTexte();
    return textes;
}

QStringList Enregistreur::EnTexte(Trace::Genre genre) const
{
    QStringList textes;
    for (const Trace &trace : Traces(genre))
        textes += trace.EnTexte();
    return textes;
}

QStringList Enregistreur::Textes() const
{
    QStringList textes;
    for (const Trace &trace : Traces(Trace::Genre::Texte))
        textes += trace.texte;
    return textes;
}

Trace Enregistreur::Texte(const QString &texte) const
{
    for (const Trace &trace : traces) {
        if (trace.genre == Trace::Genre::Texte && trace.texte == texte)
            return trace;
    }
    return {};
}

QPaintEngine *Enregistreur::paintEngine() const
{
    return moteur.get();
}

int Enregistreur::metric(PaintDeviceMetric mesure) const
{
    constexpr double millimetresParPouce = 25.4;
    const auto enMillimetres = [this](int pixels) { return qRound(pixels * millimetresParPouce / pointsParPouce); };
    switch (mesure) {
    case PdmWidth:
        return taille.width();
    case PdmHeight:
        return taille.height();
    case PdmWidthMM:
        return enMillimetres(taille.width());
    case PdmHeightMM:
        return enMillimetres(taille.height());
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return pointsParPouce;
    case PdmDepth:
        return 32;
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    }
    return 0;
}

#include "dialogue.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

/// The frame that the window manager adds, more or less.
constexpr QSize cadre(16, 48);

bool TientDans(QSize taille, QSize place)
{
    return taille.width() <= place.width() && taille.height() <= place.height();
}

/// As large as what it holds.
class ZoneDuFormulaire : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

    [[nodiscard]] QSize sizeHint() const override
    {
        return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};

/// Brings \a champ into view: whole, or its beginning where it is larger than the window.
void Amene(QScrollArea &zone, const QWidget *champ)
{
    if (!zone.widget()->isAncestorOf(champ))
        return;
    constexpr int marge = 4;
    const QRect place(champ->mapTo(zone.widget(), QPoint()), champ->size());
    zone.ensureVisible(place.right(), place.bottom(), marge, marge);
    zone.ensureVisible(place.left(), place.top(), marge, marge);
}

}  // namespace

void Dialogue::setVisible(bool visible)
{
    if (visible) {
        ensurePolished();
        TientSurLEcran();
    }
    QDialog::setVisible(visible);
}

bool Dialogue::event(QEvent *evenement)
{
    const bool resultat = QDialog::event(evenement);
    if (evenement->type() == QEvent::LayoutRequest && isVisible())
        TientSurLEcran();
    return resultat;
}

void Dialogue::TientSurLEcran()
{
    if (zone || !layout())
        return;
    const QSize place = screen()->availableSize() - cadre;
    if (minimumSizeHint().width() > place.width())
        EmpileLesColonnes();
    if (!TientDans(minimumSizeHint(), place))
        Defile(place);
}

void Dialogue::EmpileLesColonnes()
{
    auto *colonnes = findChild<QBoxLayout *>(QStringLiteral("colonnes"));
    if (!colonnes || colonnes->direction() != QBoxLayout::LeftToRight)
        return;
    colonnes->setDirection(QBoxLayout::TopToBottom);
    if (auto *separation = findChild<QFrame *>(QStringLiteral("separation")))
        separation->setFrameShape(QFrame::HLine);
    layout()->activate();
}

void Dialogue::Defile(QSize place)
{
    QWidget *champ = focusWidget();
    QLayout *boutons = SortLesBoutons(place);
    const QMargins marges = layout()->contentsMargins();
    // A child from the start: the widgets keep their window, and with it their order.
    auto *formulaire = new QWidget(this);
    formulaire->setLayout(layout());
    zone = new ZoneDuFormulaire(this);
    zone->setObjectName(QStringLiteral("zone"));
    zone->setFrameShape(QFrame::NoFrame);
    zone->setFocusPolicy(Qt::NoFocus);
    zone->setWidgetResizable(true);
    zone->setWidget(formulaire);
    auto *dehors = new QVBoxLayout(this);
    dehors->setContentsMargins(0, 0, 0, 0);
    dehors->addWidget(zone);
    if (boutons) {
        boutons->setContentsMargins(marges.left(), 0, marges.right(), marges.bottom());
        dehors->addLayout(boutons);
    }
    // Not through this: a dialog that is deleted while it is shown loses the focus when it is a QDialog only.
    connect(qApp, &QApplication::focusChanged, zone,
            [autour = zone](const QWidget * /*avant*/, const QWidget *nouveau) { Amene(*autour, nouveau); });
    LaMoletteDefile();
    dehors->activate();
    resize(dehors->sizeHint().boundedTo(place));
    // A shown form hides its fields on their way into another.
    if (champ)
        champ->setFocus();
}

void Dialogue::LaMoletteDefile()
{
    const auto champs = zone->findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *champ : champs) {
        champ->setFocusPolicy(Qt::StrongFocus);
        champ->installEventFilter(this);
    }
}

bool Dialogue::eventFilter(QObject *objet, QEvent *evenement)
{
    if (evenement->type() != QEvent::Wheel)
        return QDialog::eventFilter(objet, evenement);
    // Nobody's: it goes on to the form.
    evenement->ignore();
    return true;
}

QLayout *Dialogue::SortLesBoutons(QSize place)
{
    auto *boutons = findChild<QLayout *>(QStringLiteral("rangeeBoutons"));
    if (!boutons || boutons->minimumSize().width() > place.width())
        return nullptr;
    layout()->removeItem(boutons);
    boutons->setParent(nullptr);
    return boutons;
}

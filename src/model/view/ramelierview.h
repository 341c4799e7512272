#pragma once

#include <QScrollArea>

class arbView;
class RamelierDoc;

/// The scrolled view of the document's tree. Charts may be larger than any widget: the scroll bars then go over the whole
/// chart, and the drawing, as large as a widget can be, is put where the user looks.
class RamelierView : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes \a parent's size first, so that the drawing starts with the size that the window gives it.
    RamelierView(QWidget *parent, RamelierDoc *doc);

    /// The drawing; belongs to this scroll area.
    [[nodiscard]] arbView *vue() const { return dessin; }

    bool eventFilter(QObject *objet, QEvent *evenement) override;

protected:
    bool event(QEvent *evenement) override;
    void resizeEvent(QResizeEvent *evenement) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void PrendLeCanevas(long largeur, long hauteur);
    [[nodiscard]] QPoint Position() const;
    [[nodiscard]] bool EstImmense() const;
    void Etend(QPoint position);
    void PlaceLeDessin();

    arbView *dessin = nullptr;
    QSize canevas;  ///< in pixels
};

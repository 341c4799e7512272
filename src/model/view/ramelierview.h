#pragma once

#include <QScrollArea>

class arbView;
class RamelierDoc;

/// The scrolled view of the document's tree.
class RamelierView : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes \a parent's size first, so that the drawing starts with the size that the window gives it.
    RamelierView(QWidget *parent, RamelierDoc *doc);

    /// The drawing; belongs to this scroll area.
    [[nodiscard]] arbView *vue() const { return dessin; }

private:
    arbView *dessin;
};

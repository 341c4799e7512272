#pragma once

#include <QObject>
#include <QTextObjectInterface>

class QTextDocument;

/// Shows the pictures of a document as the toolkit does, none larger than 20000 pixels each way and all together not longer
/// than 4 million: with longer lines beside a table the toolkit would never come to an end. Belongs to the document.
class ImagesBornees : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit ImagesBornees(QTextDocument *document);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *peintre, const QRectF &cadre, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    [[nodiscard]] qreal PlusGrandCote(const QTextDocument &document);

    QTextObjectInterface *duToolkit;
    int revision = -1;  ///< of the document when plusGrandCote was found
    qreal plusGrandCote = 0;
};

#include "imagesbornees.h"

#include <QAbstractTextDocumentLayout>
#include <QTextDocument>

ImagesBornees::ImagesBornees(QTextDocument *document)
    : QObject(document)
    , duToolkit(document->documentLayout()->handlerForObject(QTextFormat::ImageObject))
{
    document->documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

qreal ImagesBornees::PlusGrandCote(const QTextDocument &document)
{
    constexpr qreal pourUne = 20'000;
    constexpr qreal pourToutes = 4'000'000;
    if (revision != document.revision()) {
        revision = document.revision();
        const auto images = document.toRawText().count(QChar::ObjectReplacementCharacter);
        plusGrandCote = qMin(pourUne, pourToutes / qreal(qMax(images, qsizetype(1))));
    }
    return plusGrandCote;
}

QSizeF ImagesBornees::intrinsicSize(QTextDocument *document, int position, const QTextFormat &format)
{
    const QSizeF voulue = duToolkit->intrinsicSize(document, position, format);
    const qreal cote = PlusGrandCote(*document);
    // Not a number, in a page that says so, is the largest.
    const auto bornee = [cote](qreal longueur) { return qAbs(longueur) <= cote ? longueur : cote; };
    return {bornee(voulue.width()), bornee(voulue.height())};
}

void ImagesBornees::drawObject(QPainter *peintre, const QRectF &cadre, QTextDocument *document, int position,
                               const QTextFormat &format)
{
    duToolkit->drawObject(peintre, cadre, document, position, format);
}

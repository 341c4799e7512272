#include "monqtextedit.h"

#include "longsmots.h"
#include "papier.h"

#include <QKeyEvent>

monQTextEdit::monQTextEdit(QWidget *parent)
    : QTextEdit(parent)
{
    setAcceptRichText(false);
    setAccessibleName(QStringLiteral("Texte édité"));
    CoupeLesTresLongsMots(this);
    // The colours of the source are chosen for a light page.
    setPalette(PaletteDePapier(palette()));
}

QString monQTextEdit::TexteExact() const
{
    QString texte = document()->toRawText();
    texte.replace(QChar::ParagraphSeparator, u'\n');
    texte.replace(QChar::LineSeparator, u'\n');
    return texte;
}

void monQTextEdit::keyPressEvent(QKeyEvent *evenement)
{
    QTextEdit::keyPressEvent(evenement);
    const bool seule = !(evenement->modifiers() & ~Qt::KeypadModifier);
    if (evenement->key() == Qt::Key_Insert && seule)
        Q_EMIT insertKeyPressed();
}

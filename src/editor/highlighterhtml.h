#pragma once

#include <QList>
#include <QRegularExpression>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

/// Colours the source of an HTML sheet, line by line, from a fixed table of rules: quoted text green, angle brackets and
/// known attributes blue, "<!" and the rest of its line red. Later rules override earlier ones; nothing is carried from
/// one line to the next. Linear in the length of a line.
class HighlighterHtml : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// Belongs to \a document.
    explicit HighlighterHtml(QTextDocument *document);

protected:
    void highlightBlock(const QString &texte) override;

private:
    struct HighlightingRule
    {
        QRegularExpression pattern;
        QTextCharFormat format;
    };

    QList<HighlightingRule> highlightingRules;
};

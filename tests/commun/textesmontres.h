#pragma once

#include <QStringList>
#include <QTranslator>

class QWidget;

/// Every text that \a fenetre shows or has a screen reader say, from all its widgets, hidden pages included: titles,
/// labels, buttons, tool tips, items of lists and menus, headers, accessible names. What the user typed is left out.
QStringList TextesMontres(const QWidget &fenetre);

/// A translator that knows nothing and remembers what it was asked. Install it before all others: it is then asked last,
/// for what nobody translated.
class TextesNonTraduits : public QTranslator
{
    Q_OBJECT

public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    QString translate(const char *contexte, const char *source, const char *precision, int nombre) const override;

    /// "contexte: source" of each, once, since the last call.
    [[nodiscard]] QStringList Pris();
    void Oublie() { textes.clear(); }

private:
    mutable QStringList textes;
};

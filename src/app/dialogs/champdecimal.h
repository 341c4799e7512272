#pragma once

#include <QDoubleSpinBox>

/// A real number whose decimal sign may also be typed as a point, the one of the numeric keypad: where the language wants a
/// comma the toolkit would drop it, and "2.5" would be 25.
class ChampDecimal : public QDoubleSpinBox
{
    Q_OBJECT

public:
    using QDoubleSpinBox::QDoubleSpinBox;

protected:
    QValidator::State validate(QString &texte, int &position) const override
    {
        texte.replace(u'.', locale().decimalPoint());
        return QDoubleSpinBox::validate(texte, position);
    }
};

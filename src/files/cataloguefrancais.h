#pragma once

#include <QTranslator>

#include <span>

/// What the toolkit's own French catalogue (qtbase_fr of Qt 6.4) leaves in English among the texts that a user of these
/// programs may meet, and the C library's error messages, which stay English wherever the system's language is not set up.
/// Install it before the toolkit's catalogue, which then has the first word.
class CatalogueFrancais : public QTranslator
{
    Q_OBJECT

public:
    struct Texte
    {
        const char *contexte;
        const char *source;
        const char *francais;  ///< UTF-8
    };
    static std::span<const Texte> Textes();

    using QTranslator::QTranslator;

    [[nodiscard]] bool isEmpty() const override { return false; }
    /// A null string for a text that the catalogue does not have.
    QString translate(const char *contexte, const char *source, const char *precision, int nombre) const override;
};

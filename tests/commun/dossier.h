#pragma once

#include <QTemporaryDir>

/// A scratch folder. No dot in its path: a dot would keep the extension away from a new name.
class Dossier
{
public:
    [[nodiscard]] QString Chemin(const QString &nom = {}) const;
    /// Writes the file \a nom and returns its path.
    QString Ecrit(const QString &nom, const QByteArray &contenu) const;
    [[nodiscard]] QByteArray Lit(const QString &nom) const;
    /// The names of all files, sorted.
    [[nodiscard]] QStringList Noms() const;

private:
    QTemporaryDir dossier{QStringLiteral("/tmp/ramelier-essai-XXXXXX")};
};

#pragma once

#include <QTextBrowser>

/// Shows sheets from local files only: nothing is fetched from a network. Pages are decoded by TexteFicheHtml; one that
/// cannot be read says so in its place.
class NavigateurFiche : public QTextBrowser
{
    Q_OBJECT

public:
    explicit NavigateurFiche(QWidget *parent);

    QVariant loadResource(int type, const QUrl &nom) override;

    /// What is said of a file that could not be read, for the reason \a cause.
    [[nodiscard]] static QString NonLu(const QString &fichier, const QString &cause);
};

#include "copiesretrouvees.h"

#include <QFile>
#include <QStatusBar>

#include <cstdio>

void AnnonceLesCopies(const QStringList &copies, QStatusBar &barre)
{
    for (const QString &copie : copies)
        std::fprintf(stderr, "Une copie de secours a été retrouvée : %s\n", QFile::encodeName(copie).constData());
    if (copies.isEmpty())
        return;
    if (copies.size() == 1)
        barre.showMessage(QStringLiteral("Une copie de secours a été retrouvée : ") + copies.constFirst());
    else
        barre.showMessage(QString::number(copies.size())
                          + QStringLiteral(" copies de secours ont été retrouvées, la plus récente : ")
                          + copies.constFirst());
    barre.setToolTip(barre.currentMessage());
    QObject::connect(&barre, &QStatusBar::messageChanged, &barre, [&barre] { barre.setToolTip(QString()); });
}

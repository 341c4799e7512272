#include "tableactions.h"

#include <QIcon>
#include <QKeySequence>
#include <QWhatsThis>

QAction *NouvelleAction(QObject *parent, const char *texte, const char *raccourci, const char *icone,
                        const char *status, const char *quEstCe)
{
    auto *action = new QAction(QString::fromUtf8(texte), parent);
    if (*raccourci)
        action->setShortcut(QKeySequence(QString::fromLatin1(raccourci), QKeySequence::PortableText));
    if (*icone)
        action->setIcon(QIcon(QString::fromLatin1(icone)));
    action->setStatusTip(QString::fromUtf8(status));
    action->setWhatsThis(QString::fromUtf8(quEstCe));
    return action;
}

QAction *NouvelleActionQuEstCe(QObject *parent)
{
    QAction *action = QWhatsThis::createAction(parent);
    action->setIcon(QIcon(QStringLiteral(":/images/questceque.png")));
    return action;
}

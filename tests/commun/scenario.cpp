#include "scenario.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>
#include <QtTest>

namespace {

QString TexteDe(const QAbstractButton *bouton)
{
    return bouton ? bouton->text() : QString();
}

}  // namespace

Scenario *Scenario::actif = nullptr;

Scenario::Scenario() : precedent(actif)
{
    actif = this;
    connect(&minuterie, &QTimer::timeout, this, &Scenario::Regarde);
    minuterie.start(5);
}

Scenario::~Scenario()
{
    actif = precedent;
}

void Scenario::ClicPlusTard(QWidget *bouton)
{
    QMetaObject::invokeMethod(bouton, "click", Qt::QueuedConnection);
}

Scenario &Scenario::Repond(const QString &texte)
{
    return Dialogue<QMessageBox>([this, texte](QMessageBox &boite) {
        const auto boutons = boite.buttons();
        for (QAbstractButton *bouton : boutons) {
            if (bouton->text() == texte) {
                ClicPlusTard(bouton);
                return;
            }
        }
        ecarts += QStringLiteral("pas de bouton « %1 » dans « %2 »").arg(texte, boite.text());
        QMetaObject::invokeMethod(
            &boite, [&boite] { boite.done(QDialog::Rejected); }, Qt::QueuedConnection);
    });
}

Scenario &Scenario::Echappe()
{
    return Dialogue<QMessageBox>([](QMessageBox &boite) {
        QMetaObject::invokeMethod(
            &boite, [&boite] { QTest::keyClick(&boite, Qt::Key_Escape); }, Qt::QueuedConnection);
    });
}

void Scenario::Note(QMessageBox &boite)
{
    BoiteVue vue;
    vue.titre = boite.windowTitle();
    vue.texte = boite.text();
    vue.icone = boite.icon();
    const auto boutons = boite.buttons();
    for (const QAbstractButton *bouton : boutons)
        vue.boutons += TexteDe(bouton);
    vue.defaut = TexteDe(boite.defaultButton());
    vue.echappement = TexteDe(boite.escapeButton());
    vue.parent = boite.parentWidget();
    boites += vue;
}

void Scenario::Regarde()
{
    QWidget *fenetre = QApplication::activeModalWidget();
    if (actif != this || !fenetre || fenetre == derniereVue || !fenetre->isVisible())
        return;
    derniereVue = fenetre;
    if (auto *boite = qobject_cast<QMessageBox *>(fenetre))
        Note(*boite);
    if (!etapes.isEmpty() && etapes.dequeue()(fenetre))
        return;
    ecarts += QStringLiteral("inattendu : %1 « %2 »")
                  .arg(QString::fromLatin1(fenetre->metaObject()->className()), fenetre->windowTitle());
    if (auto *dialogue = qobject_cast<QDialog *>(fenetre))
        QMetaObject::invokeMethod(
            dialogue, [dialogue] { dialogue->done(QDialog::Rejected); }, Qt::QueuedConnection);
    else
        fenetre->close();
}

QStringList Scenario::Ecarts() const
{
    QStringList tous = ecarts;
    if (!etapes.isEmpty())
        tous += QStringLiteral("%1 étapes jamais atteintes").arg(etapes.size());
    return tous;
}

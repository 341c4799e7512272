#include "pilote.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QtTest>

#include <algorithm>

namespace {

constexpr int dureeDUnDialogueMs = 60000;

QString Clique(QMessageBox &boite, const QString &texte)
{
    const auto boutons = boite.buttons();
    const auto bouton = std::find_if(boutons.begin(), boutons.end(),
                                     [&texte](const QAbstractButton *candidat) { return candidat->text() == texte; });
    if (bouton == boutons.end())
        return QStringLiteral("pas de bouton « %1 »").arg(texte);
    (*bouton)->click();
    return {};
}

}  // namespace

PiloteDialogues::PiloteDialogues()
{
    qApp->installEventFilter(this);
    garde.setInterval(dureeDUnDialogueMs);
    connect(&garde, &QTimer::timeout, this, &PiloteDialogues::FermeTout);
    garde.start();
}

bool PiloteDialogues::eventFilter(QObject *objet, QEvent *evenement)
{
    if (evenement->type() != QEvent::Show || evenement->spontaneous())
        return false;
    auto *dialogue = qobject_cast<QDialog *>(objet);
    if (!dialogue || !dialogue->isModal() || dialogue == dernier)
        return false;
    dernier = dialogue;
    // From the dialog's own event loop: it is not running yet.
    QMetaObject::invokeMethod(
        dialogue, [this, dialogue] { Repond(*dialogue); }, Qt::QueuedConnection);
    return false;
}

QString PiloteDialogues::refus(const QDialog &dialogue)
{
    const auto *boite = qobject_cast<const QMessageBox *>(&dialogue);
    return QStringLiteral("inattendu : %1 « %2 » %3")
        .arg(QString::fromLatin1(dialogue.metaObject()->className()), dialogue.windowTitle(),
             boite ? boite->text() : QString());
}

void PiloteDialogues::Repond(QDialog &dialogue)
{
    garde.start();
    const QPointer<QDialog> ouvert(&dialogue);
    const QString ecart = !etapes.isEmpty() ? etapes.dequeue()(dialogue)
        : improvise                         ? improvise(dialogue)
                                            : refus(dialogue);
    if (ecart.isEmpty())
        return;
    ecarts += ecart;
    if (ouvert)
        ouvert->done(QDialog::Rejected);
}

void PiloteDialogues::FermeTout()
{
    while (auto *fenetre = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
        ecarts += QStringLiteral("resté ouvert : ") + refus(*fenetre);
        fenetre->done(QDialog::Rejected);
        if (fenetre->isVisible())
            return;
    }
}

QStringList PiloteDialogues::PrendEcarts()
{
    garde.start();
    if (!etapes.isEmpty())
        ecarts += QStringLiteral("%1 dialogues jamais ouverts").arg(etapes.size());
    etapes.clear();
    return std::exchange(ecarts, {});
}

void PiloteDialogues::AttendBoite(const QString &titre, const QString &texte, const QString &bouton)
{
    Attend<QMessageBox>([titre, texte, bouton](QMessageBox &boite) {
        if (boite.windowTitle() != titre || boite.text() != texte)
            return refus(boite);
        return Clique(boite, bouton);
    });
}

void Choisit(QFileDialog &dialogue, const QString &chemin)
{
    // A dialog that starts with a name may write it again, as that of the file that it shows as chosen.
    const auto listes = dialogue.findChildren<QAbstractItemView *>();
    for (const QAbstractItemView *liste : listes) {
        if (liste->selectionModel())
            liste->selectionModel()->clear();
    }
    auto *champ = dialogue.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    champ->setText(chemin);  // typing would open its list of completions
    QTest::keyClick(champ, Qt::Key_Return);
}

void PiloteDialogues::AttendFichier(const QString &titre, const QString &nom, const QString &chemin)
{
    Attend<QFileDialog>([titre, nom, chemin](QFileDialog &dialogue) {
        auto *champ = dialogue.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (dialogue.windowTitle() != titre || champ->text() != nom)
            return refus(dialogue) + u' ' + champ->text();
        if (chemin.isEmpty()) {
            QTest::keyClick(&dialogue, Qt::Key_Escape);
        } else {
            Choisit(dialogue, chemin);
        }
        return QString();
    });
}

void PiloteDialogues::AttendImpression(bool imprime)
{
    Attend<QPrintDialog>([imprime](QPrintDialog &dialogue) {
        if (!imprime) {
            QTest::keyClick(&dialogue, Qt::Key_Escape);
            return QString();
        }
        const auto boutons = dialogue.findChildren<QPushButton *>();
        const auto imprimer =
            std::find_if(boutons.begin(), boutons.end(), [](const QPushButton *bouton) { return bouton->isDefault(); });
        if (imprimer == boutons.end())
            return QStringLiteral("rien pour imprimer");
        (*imprimer)->click();
        return QString();
    });
}

void PiloteDialogues::AttendPolice(int taille, bool accepte)
{
    Attend<QFontDialog>([taille, accepte](QFontDialog &dialogue) {
        QFont police = dialogue.currentFont();
        police.setPointSize(taille);
        dialogue.setCurrentFont(police);
        static_cast<QDialog &>(dialogue).done(accepte ? QDialog::Accepted : QDialog::Rejected);
        return QString();
    });
}

void Remplace(QLineEdit &champ, const QString &texte)
{
    if (texte.isEmpty())
        return Efface(champ);
    champ.selectAll();
    Ajoute(champ, texte);
}

void Ajoute(QLineEdit &champ, const QString &texte)
{
    if (!champ.hasSelectedText())
        champ.end(false);
    // The way of accents and of everything that no single key writes.
    QInputMethodEvent saisie;
    saisie.setCommitString(texte);
    QCoreApplication::sendEvent(&champ, &saisie);
}

void Efface(QLineEdit &champ)
{
    champ.selectAll();
    QTest::keyClick(&champ, Qt::Key_Delete);
}

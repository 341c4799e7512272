#include "dialoguefichier.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QtTest>

namespace {

DialogueVu Regarde(const QFileDialog &dialogue)
{
    return {.titre = dialogue.windowTitle(),
            .dossier = dialogue.directory().absolutePath(),
            .nom = dialogue.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text(),
            .filtres = dialogue.nameFilters(),
            .enregistre = dialogue.acceptMode() == QFileDialog::AcceptSave,
            .confirme = !dialogue.testOption(QFileDialog::DontConfirmOverwrite),
            .parent = dialogue.parentWidget()};
}

}  // namespace

void Choisit(Scenario &scenario, const QString &chemin, DialogueVu *vu)
{
    scenario.Dialogue<QFileDialog>([chemin, vu](QFileDialog &dialogue) {
        if (vu)
            *vu = Regarde(dialogue);
        auto *champ = dialogue.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        // In one go: the dialog writes the name that it starts with again when it has found its file.
        QMetaObject::invokeMethod(
            champ,
            [champ, chemin] {
                champ->setText(chemin);
                QTest::keyClick(champ, Qt::Key_Return);
            },
            Qt::QueuedConnection);
    });
}

void Renonce(Scenario &scenario, DialogueVu *vu)
{
    scenario.Dialogue<QFileDialog>([vu](QFileDialog &dialogue) {
        if (vu)
            *vu = Regarde(dialogue);
        QMetaObject::invokeMethod(&dialogue, "reject", Qt::QueuedConnection);
    });
}

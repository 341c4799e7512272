#include "lytextedit.h"

#include "boites.h"
#include "dlgcherche.h"
#include "dlgremplace.h"
#include "monqtextedit.h"

void LyTextEdit::slotEditAnnuler()
{
    texte->undo();
}

void LyTextEdit::slotEditRefaire()
{
    texte->redo();
}

void LyTextEdit::slotEditCut()
{
    texte->cut();
}

void LyTextEdit::slotEditCopy()
{
    texte->copy();
}

void LyTextEdit::slotEditPaste()
{
    texte->paste();
}

void LyTextEdit::slotEditCherche()
{
    DlgCherche dialogue;
    dialogue.setWindowIcon(windowIcon());
    dialogue.lineEditCherche->setText(texteCherche);
    dialogue.lineEditCherche->selectAll();
    dialogue.cbCasse->setChecked(casseRespectee);
    if (dialogue.exec() != QDialog::Accepted)
        return;
    texteCherche = dialogue.lineEditCherche->text();
    casseRespectee = dialogue.cbCasse->isChecked();
    // What was to be put in its place is forgotten: F3 then only finds.
    texteRemplacement.clear();
    if (!texteCherche.isEmpty())
        slotEditReplaceEncore();
}

void LyTextEdit::slotEditReplace()
{
    DlgRemplace dialogue;
    dialogue.setWindowIcon(windowIcon());
    dialogue.lineEditCherche->setText(texteCherche);
    dialogue.lineEditCherche->selectAll();
    dialogue.lineEditRemplace->setText(texteRemplacement);
    dialogue.cbCasse->setChecked(casseRespectee);
    if (dialogue.exec() != QDialog::Accepted)
        return;
    texteCherche = dialogue.lineEditCherche->text();
    casseRespectee = dialogue.cbCasse->isChecked();
    texteRemplacement = dialogue.lineEditRemplace->text();
    if (!texteCherche.isEmpty())
        slotEditReplaceEncore();
}

void LyTextEdit::slotEditReplaceEncore()
{
    const QTextDocument::FindFlags casse =
        casseRespectee ? QTextDocument::FindCaseSensitively : QTextDocument::FindFlags();
    if (!texte->find(texteCherche, casse)) {
        Boites::Information(this, QStringLiteral("Recherche/Remplacement"),
                            u'"' + texteCherche + QStringLiteral("\" non trouvé"));
        return;
    }
    if (!texteRemplacement.isEmpty())
        texte->insertPlainText(texteRemplacement);
}

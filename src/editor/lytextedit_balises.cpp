#include "lytextedit.h"

#include "dlgtableau.h"
#include "monqtextedit.h"

#include <QLabel>
#include <QTextBlock>

namespace {

/// Everything done in the scope is taken back by one undo. At its end the cursor is in sight, as after typing.
class EnUneFois
{
public:
    explicit EnUneFois(QTextEdit &aModifier)
        : texte(aModifier)
        , curseur(texte.document())
    {
        curseur.beginEditBlock();
    }
    ~EnUneFois()
    {
        curseur.endEditBlock();
        texte.ensureCursorVisible();
    }
    Q_DISABLE_COPY_MOVE(EnUneFois)

private:
    QTextEdit &texte;
    QTextCursor curseur;
};

}  // namespace

bool LyTextEdit::isTextSelected() const
{
    return texte->textCursor().hasSelection();
}

void LyTextEdit::insertTag(const QString &ouvrante, const QString &fermante, int decalCar, int decalBloc)
{
    const EnUneFois enUneFois(*texte);
    texte->insertPlainText(ouvrante + texte->textCursor().selectedText() + fermante);
    if (decalCar != 0 || decalBloc != 0)
        decaleCurseur(decalCar, decalBloc);
}

void LyTextEdit::decaleCurseur(int decalCar, int decalBloc)
{
    QTextCursor curseur = texte->textCursor();
    if (decalCar != 0) {
        // The first step would only leave the selection.
        curseur.clearSelection();
        curseur.movePosition(decalCar < 0 ? QTextCursor::PreviousCharacter : QTextCursor::NextCharacter,
                             QTextCursor::MoveAnchor, std::abs(decalCar));
    }
    if (decalBloc != 0) {
        QTextBlock ligne = curseur.block();
        for (int i = decalBloc; i < 0 && ligne.previous().isValid(); ++i)
            ligne = ligne.previous();
        curseur.setPosition(ligne.position());
    }
    texte->setTextCursor(curseur);
}

void LyTextEdit::finLigne()
{
    insertTag(QString(), QStringLiteral("\n"), 0, 0);
}

void LyTextEdit::Encadre(const QString &ouvrante, const QString &fermante)
{
    insertTag(ouvrante, fermante, isTextSelected() ? 0 : -static_cast<int>(fermante.size()), 0);
}

void LyTextEdit::slotCarGras()
{
    Encadre(QStringLiteral("<b>"), QStringLiteral("</b>"));
}

void LyTextEdit::slotCarItalic()
{
    Encadre(QStringLiteral("<i>"), QStringLiteral("</i>"));
}

void LyTextEdit::slotCarSouligne()
{
    Encadre(QStringLiteral("<u>"), QStringLiteral("</u>"));
}

void LyTextEdit::slotCarPreformate()
{
    Encadre(QStringLiteral("<pre>"), QStringLiteral("</pre>"));
}

void LyTextEdit::slotTextAlign(QAction *action)
{
    if (action == actCentre)
        alignement = QStringLiteral(" align=center");
    else if (action == actDroite)
        alignement = QStringLiteral(" align=right");
    else if (action == actJustifie)
        alignement = QStringLiteral(" align=justify");
    else
        alignement.clear();
    MontreAlignement();
}

void LyTextEdit::slotParagraphe()
{
    // Before the closing tag in any case, also round a selection: deliberate.
    const QString fermante = QStringLiteral("</p>");
    insertTag(QStringLiteral("<p") + alignement + u'>', fermante, -static_cast<int>(fermante.size()), 0);
}

void LyTextEdit::slotAlaLigne()
{
    insertTag(QString(), QStringLiteral("<br>"), 0, 0);
}

void LyTextEdit::slotLigneHoriz()
{
    insertTag(QString(), QStringLiteral("<hr>"), 0, 0);
}

void LyTextEdit::slotBlancInsec()
{
    insertTag(QString(), QStringLiteral("&nbsp;"), 0, 0);
}

void LyTextEdit::InsereTitre(int niveau)
{
    const EnUneFois enUneFois(*texte);
    const bool selection = isTextSelected();
    const QString balise = u'h' + QString::number(niveau);
    Encadre(u'<' + balise + alignement + u'>', QStringLiteral("</") + balise + u'>');
    if (selection)
        finLigne();
}

void LyTextEdit::slotTitre1()
{
    InsereTitre(1);
}

void LyTextEdit::slotTitre2()
{
    InsereTitre(2);
}

void LyTextEdit::slotTitre3()
{
    InsereTitre(3);
}

void LyTextEdit::slotTitre4()
{
    InsereTitre(4);
}

void LyTextEdit::slotTitre5()
{
    InsereTitre(5);
}

void LyTextEdit::slotTitre6()
{
    InsereTitre(6);
}

void LyTextEdit::slotListeSimple()
{
    Encadre(QStringLiteral("<ul>"), QStringLiteral("</ul>"));
}

void LyTextEdit::slotListeOrdo()
{
    Encadre(QStringLiteral("<ol>"), QStringLiteral("</ol>"));
}

void LyTextEdit::slotElemListe()
{
    Encadre(QStringLiteral("<li>"), QStringLiteral("</li>"));
}

void LyTextEdit::slotListeDef()
{
    Encadre(QStringLiteral("<dl>"), QStringLiteral("</dl>"));
}

void LyTextEdit::slotTermDef()
{
    Encadre(QStringLiteral("<dt>"), QStringLiteral("</dt>"));
}

void LyTextEdit::slotDefinition()
{
    Encadre(QStringLiteral("<dd>"), QStringLiteral("</dd>"));
}

void LyTextEdit::slotLienHypText()
{
    Encadre(QStringLiteral("<a href=\"\">"), QStringLiteral("</a>"));
}

void LyTextEdit::slotNameAncre()
{
    Encadre(QStringLiteral("<a name=\"\">"), QStringLiteral("</a>"));
}

void LyTextEdit::slotImage()
{
    texte->insertPlainText(QStringLiteral("<img src=\"\" name=\"\" align=bottom width=180 height=240 border=0>"));
}

void LyTextEdit::InsereLigne(const QString &ligne)
{
    texte->insertPlainText(ligne);
    finLigne();
}

void LyTextEdit::slotSqueletteHtml()
{
    const EnUneFois enUneFois(*texte);
    // At the cursor: a text that happens to be selected stays.
    QTextCursor curseur = texte->textCursor();
    curseur.clearSelection();
    texte->setTextCursor(curseur);
    static const char *const lignes[] = {
        R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">)",
        R"(<html lang="fr" dir="ltr">)",
        "<head>",
        R"(<meta http-equiv="Content-Type" content="text/html; charset=ISO-8859-1">)",
        "<title></title>",
        "</head>",
        "<body>",
        "",
        "</body>",
        "</html>",
    };
    for (const char *ligne : lignes)
        InsereLigne(QString::fromLatin1(ligne));
    decaleCurseur(0, -3);
}

void LyTextEdit::slotTableaux()
{
    constexpr int casesProposees = 3;
    DlgTableau dialogue;
    dialogue.setWindowIcon(windowIcon());
    dialogue.spbNumLignes->setValue(casesProposees);
    dialogue.spbNumCols->setValue(casesProposees);
    dialogue.spbNumLignes->selectAll();
    if (dialogue.exec() == QDialog::Accepted)
        InsereTableau(dialogue.spbNumLignes->value(), dialogue.spbNumCols->value(), dialogue.cbBordure->isChecked());
}

void LyTextEdit::InsereTableau(int lignes, int colonnes, bool bordure)
{
    const EnUneFois enUneFois(*texte);
    finLigne();
    InsereLigne(bordure ? QStringLiteral("<table border>") : QStringLiteral("<table>"));
    for (int i = 0; i < lignes; ++i) {
        InsereLigne(QStringLiteral("<tr>"));
        for (int j = 0; j < colonnes; ++j)
            InsereLigne(QStringLiteral("<td></td>"));
        InsereLigne(QStringLiteral("</tr>"));
    }
    InsereLigne(QStringLiteral("</table>"));
}

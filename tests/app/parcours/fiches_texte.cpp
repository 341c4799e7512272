#include "fiches.h"

#include "dlgtableau.h"
#include "editeur.h"
#include "partie.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QSpinBox>

// What a user types, and the commands for tags, each with the text that it must leave.

namespace {

struct DefBalise
{
    ActionEditeur action;
    const char *ouvrante;
    const char *fermante;
};

const QList<DefBalise> &Balises()
{
    using Vue = LyTextEdit;
    static const QList<DefBalise> balises{
        {&Vue::actCarGras, "<b>", "</b>"},
        {&Vue::actCarItalic, "<i>", "</i>"},
        {&Vue::actCarSouligne, "<u>", "</u>"},
        {&Vue::actCarPreformate, "<pre>", "</pre>"},
        {&Vue::actListeSimple, "<ul>", "</ul>"},
        {&Vue::actListeOrdo, "<ol>", "</ol>"},
        {&Vue::actElemListe, "<li>", "</li>"},
        {&Vue::actListeDef, "<dl>", "</dl>"},
        {&Vue::actTermDef, "<dt>", "</dt>"},
        {&Vue::actDefinition, "<dd>", "</dd>"},
        {&Vue::actLienHypText, "<a href=\"\">", "</a>"},
        {&Vue::actNameAncre, "<a name=\"\">", "</a>"},
        {&Vue::actParagraphe, "<p%1>", "</p>"},
        {&Vue::actTitre1, "<h1%1>", "</h1>"},
        {&Vue::actTitre3, "<h3%1>", "</h3>"},
        {&Vue::actTitre6, "<h6%1>", "</h6>"},
        {&Vue::actAlaLigne, "", "<br>"},
        {&Vue::actLigneHoriz, "", "<hr>"},
        {&Vue::actBlancInsec, "", "&nbsp;"},
    };
    return balises;
}

QString Selection(const Edite &edite)
{
    const QTextCursor curseur = edite.vue->texte->textCursor();
    return edite.texte.mid(curseur.selectionStart(), curseur.selectionEnd() - curseur.selectionStart());
}

}  // namespace

QList<Fiches::DefGeste> Fiches::GestesDe(const Edite &edite)
{
    using Moi = Fiches;
    QList<DefGeste> gestes{
        {"taper", 20, &Moi::Tape},
        {"effacer", edite.texte.size() > 2000 ? 60 : 10, &Moi::Efface},
        {"déplacer", 20, &Moi::Deplace},
        {"annuler la frappe", 14, &Moi::Annule},
        {"presse-papier", 10, &Moi::PressePapier},
        {"écraser", 3, &Moi::Ecrase},
        {"chercher", 4, &Moi::Cherche},
        {"remplacer", 4, &Moi::Remplace},
        {"chercher encore", 4, &Moi::Encore},
        {"sauver la fiche", 7, &Moi::Sauve},
        {"fermer la fiche", 5, &Moi::Ferme},
        {"montrer la fiche", 4, &Moi::Montre},
        {"police de la fiche", 1, &Moi::ChangeLaPolice},
        {"à propos de l'éditeur", 1, &Moi::DemandeQuiEstCe},
        {"aide de l'éditeur", 1, &Moi::Aide},
        {"barres de l'éditeur", 3, &Moi::ChangeLesBarres},
    };
    if (edite.html)
        gestes += {{"balise", 20, &Moi::Balise},
                   {"aligner", 6, &Moi::Aligne},
                   {"corps ou image", 4, &Moi::InsereUnBloc},
                   {"tableau", 6, &Moi::InsereUnTableau}};
    if (edite.seul)
        gestes += {{"fiche sous un nom", 6, &Moi::SauveSous},
                   {"fiche nouvelle", 4, &Moi::Commence},
                   {"ouvrir une fiche", 8, &Moi::Ouvre}};
    return gestes;
}

void Fiches::UtiliseLEditeur(Edite &edite)
{
    const QList<DefGeste> gestes = GestesDe(edite);
    QList<Partie::Chance> chances;
    for (const DefGeste &geste : gestes)
        chances += {QString::fromUtf8(geste.nom), geste.chance};
    const qsizetype choisi = partie.Choisit(chances);
    partie.Precise(chances.at(choisi).nom);
    (this->*gestes.at(choisi).fait)(edite);
}

void Fiches::Insere(Edite &edite, const QString &texte, int recul)
{
    const QTextCursor curseur = edite.vue->texte->textCursor();
    const int debut = curseur.selectionStart();
    edite.texte.replace(debut, curseur.selectionEnd() - debut, texte);
    edite.passes += edite.texte;
    edite.modifie = true;
    curseurAttendu = debut + static_cast<int>(texte.size()) - recul;
}

void Fiches::Constate(const Edite &edite)
{
    const int vu = edite.vue->texte->textCursor().position();
    if (vu != curseurAttendu)
        ecart = QStringLiteral("curseur en %1 au lieu de %2").arg(vu).arg(curseurAttendu);
}

void Fiches::Tape(Edite &edite)
{
    static const QStringList mots{"Paul", "Élise", "<b>x</b>", "né vers 1650", "a & b", "Łódź", " ", "PAUL", "e", "\n"};
    const QString mot = partie.tirage.Un(mots);
    for (const QChar lettre : mot) {
        QTextCursor curseur = edite.vue->texte->textCursor();
        const bool remplace = edite.ecrase && !curseur.hasSelection() && lettre != u'\n' && !curseur.atBlockEnd();
        if (remplace) {
            edite.texte.remove(curseur.position(), 1);
            edite.passes += edite.texte;  // two steps for the undo
        }
        Insere(edite, lettre, 0);
        if (lettre == u'\n')
            QTest::keyClick(edite.vue->texte, Qt::Key_Return);
        else
            ::Tape(*edite.vue, lettre);
    }
    partie.NoteLeFait(edite.ecrase ? "fiche : tapé en écrasant" : "fiche : tapé");
    Constate(edite);
}

void Fiches::Efface(Edite &edite)
{
    const QTextCursor curseur = edite.vue->texte->textCursor();
    const bool avant = partie.tirage.Chance(50);
    int debut = curseur.selectionStart();
    int longueur = curseur.selectionEnd() - debut;
    if (longueur == 0) {
        debut -= avant ? 1 : 0;
        longueur = 1;
    }
    if (debut >= 0 && debut + longueur <= edite.texte.size()) {
        edite.texte.remove(debut, longueur);
        edite.passes += edite.texte;
        edite.modifie = true;
        partie.NoteLeFait("fiche : effacé");
    }
    QTest::keyClick(edite.vue->texte, avant ? Qt::Key_Backspace : Qt::Key_Delete);
}

void Fiches::Deplace(Edite &edite)
{
    static const QList<Qt::Key> touches{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down,
                                        Qt::Key_Home, Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown};
    if (partie.tirage.Chance(edite.texte.size() > 2000 ? 60 : 8)) {
        QTest::keyClick(edite.vue->texte, Qt::Key_A, Qt::ControlModifier);
        return partie.Note("tout");
    }
    Qt::KeyboardModifiers avec = partie.tirage.Chance(50) ? Qt::ShiftModifier : Qt::NoModifier;
    avec |= partie.tirage.Chance(30) ? Qt::ControlModifier : Qt::NoModifier;
    for (int fois = partie.tirage.Parmi(6); fois >= 0; --fois)
        QTest::keyClick(edite.vue->texte, partie.tirage.Un(touches), avec);
}

void Fiches::Balise(Edite &edite)
{
    const DefBalise &balise = partie.tirage.Un(Balises());
    const QString selection = Selection(edite);
    QString ouvrante = QString::fromLatin1(balise.ouvrante);
    if (ouvrante.contains("%1"))
        ouvrante = ouvrante.arg(edite.alignement);
    const QString fermante = QString::fromLatin1(balise.fermante);
    const bool paragraphe = balise.action == &LyTextEdit::actParagraphe;
    const bool dedans = (selection.isEmpty() && !ouvrante.isEmpty()) || paragraphe;
    const bool titre = ouvrante.startsWith("<h") && !selection.isEmpty();
    Insere(edite, ouvrante + selection + fermante + (titre ? "\n" : ""),
           dedans ? static_cast<int>(fermante.size()) : 0);
    (edite.vue->*balise.action)->trigger();
    partie.NoteLeFait(selection.isEmpty() ? "fiche : balise vide" : "fiche : balise autour");
    Constate(edite);
}

void Fiches::Aligne(Edite &edite)
{
    const struct
    {
        ActionEditeur action;
        const char *attribut;
    } sens[] = {
        {&LyTextEdit::actGauche, ""},
        {&LyTextEdit::actCentre, " align=center"},
        {&LyTextEdit::actDroite, " align=right"},
        {&LyTextEdit::actJustifie, " align=justify"},
    };
    const auto &choisi = sens[partie.tirage.Parmi(4)];
    edite.alignement = QString::fromLatin1(choisi.attribut);
    (edite.vue->*choisi.action)->trigger();
    partie.NoteLeFait("fiche : alignée");
}

void Fiches::InsereUnBloc(Edite &edite)
{
    if (partie.tirage.Chance(60)) {
        Insere(edite, "<img src=\"\" name=\"\" align=bottom width=180 height=240 border=0>", 0);
        edite.vue->actImage->trigger();
        partie.NoteLeFait("fiche : image");
        return Constate(edite);
    }
    // What is selected stays.
    QTextCursor curseur = edite.vue->texte->textCursor();
    curseur.clearSelection();
    edite.vue->texte->setTextCursor(curseur);
    Insere(edite,
           "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\n<html lang=\"fr\" dir=\"ltr\">\n<head>\n"
           "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=ISO-8859-1\">\n<title></title>\n</head>\n"
           "<body>\n\n</body>\n</html>\n",
           17);
    edite.vue->actSqueletteHtml->trigger();
    partie.NoteLeFait("fiche : corps");
    Constate(edite);
}

void Fiches::InsereUnTableau(Edite &edite)
{
    const bool accepte = partie.tirage.Chance(70);
    const bool bordure = partie.tirage.Chance(50);
    const int lignes = 1 + partie.tirage.Parmi(3);
    partie.pilote.Attend<DlgTableau>([accepte, bordure, lignes](DlgTableau &dialogue) {
        const bool commence = dialogue.spbNumLignes->value() == 3 && dialogue.spbNumCols->value() == 3;
        dialogue.spbNumLignes->setValue(lignes);
        dialogue.spbNumCols->setValue(1);
        dialogue.cbBordure->setChecked(bordure);
        accepte ? dialogue.accept() : dialogue.reject();
        return commence ? QString() : QStringLiteral("tableau proposé");
    });
    if (!accepte) {
        edite.vue->actTableaux->trigger();
        return partie.NoteLeFait("fiche : tableau abandonné");
    }
    // The line break comes after what is selected.
    Insere(edite,
           Selection(edite) + '\n' + (bordure ? "<table border>" : "<table>") + '\n'
               + QString("<tr>\n<td></td>\n</tr>\n").repeated(lignes) + "</table>\n",
           0);
    edite.vue->actTableaux->trigger();
    partie.NoteLeFait("fiche : tableau");
    Constate(edite);
}

void Fiches::Annule(Edite &edite)
{
    const bool refait = edite.vue->actEditRefaire->isEnabled() && partie.tirage.Chance(50);
    QAction *action = refait ? edite.vue->actEditRefaire : edite.vue->actEditAnnuler;
    if (!action->isEnabled())
        return partie.Note("rien");
    const QString avant = edite.texte;
    action->trigger();
    const QString vu = TexteDe(*edite.vue);
    if (!edite.passes.contains(vu))
        ecart = QStringLiteral("annulation vers un texte jamais vu : ") + vu;
    // And back again.
    QAction *retour = action == edite.vue->actEditAnnuler ? edite.vue->actEditRefaire : edite.vue->actEditAnnuler;
    if (partie.tirage.Chance(30)) {
        retour->trigger();
        if (TexteDe(*edite.vue) != avant)
            ecart =
                QStringLiteral("aller et retour de « %1 » : « %2 » puis « %3 »").arg(avant, vu, TexteDe(*edite.vue));
    }
    edite.texte = TexteDe(*edite.vue);
    edite.modifie = EstModifie(*edite.vue);
    partie.NoteLeFait(action == edite.vue->actEditAnnuler ? "fiche : annulé" : "fiche : refait");
}

void Fiches::PressePapier(Edite &edite)
{
    LyTextEdit &vue = *edite.vue;
    if (partie.tirage.Chance(60))
        QTest::keyClick(vue.texte, Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
    const QString selection = Selection(edite);
    switch (partie.tirage.Parmi(3)) {
    case 0:
        if (selection.isEmpty())
            return partie.Note("rien");
        Insere(edite, {}, 0);
        vue.actEditCut->trigger();
        partie.NoteLeFait("fiche : coupé");
        break;
    case 1:
        if (selection.isEmpty())
            return partie.Note("rien");
        vue.actEditCopy->trigger();
        partie.NoteLeFait("fiche : copié");
        break;
    default:
        const QString colle = QApplication::clipboard()->text();
        if (colle.isEmpty())
            return partie.Note("rien à coller");
        Insere(edite, colle, 0);
        vue.actEditPaste->trigger();
        partie.NoteLeFait("fiche : collé");
        return Constate(edite);
    }
    if (QApplication::clipboard()->text() != selection)
        ecart = QStringLiteral("presse-papier : ") + QApplication::clipboard()->text();
}

void Fiches::Ecrase(Edite &edite)
{
    edite.ecrase = !edite.ecrase;
    QTest::keyClick(edite.vue->texte, Qt::Key_Insert);
    partie.NoteLeFait("fiche : insertion ou remplacement");
}

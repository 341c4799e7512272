#include "fiches.h"

#include "dlgcherche.h"
#include "dlgremplace.h"
#include "editeur.h"
#include "partie.h"

#include <QCheckBox>
#include <QLineEdit>

// Searching and replacing in a sheet.

namespace {

const QStringList cherches{"Paul", "paul", "e", "<b>", "né", "introuvable", ""};

/// Something to look for, which is there as often as not.
QString Cherchee(Tirage &tirage, const Edite &edite)
{
    const QStringList lignes = edite.texte.split(u'\n', Qt::SkipEmptyParts);
    if (lignes.isEmpty() || tirage.Chance(50))
        return tirage.Un(cherches);
    const QString ligne = tirage.Un(lignes);
    return ligne.mid(tirage.Parmi(static_cast<int>(ligne.size())), 1 + tirage.Parmi(3));
}

/// Fills the common part of both dialogs; what they did not show as stated.
QString Remplit(auto &dialogue, const Edite &avant, const QString &cherche, bool casse)
{
    if (dialogue.lineEditCherche->text() != avant.cherche || dialogue.cbCasse->isChecked() != avant.casse)
        return QStringLiteral("recherche proposée : ") + dialogue.lineEditCherche->text();
    Remplace(*dialogue.lineEditCherche, cherche);
    dialogue.cbCasse->setChecked(casse);
    return {};
}

}  // namespace

void Fiches::PrevoitRecherche(Edite &edite)
{
    const int depart = edite.vue->texte->textCursor().selectionEnd();
    const auto casse = edite.casse ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const qsizetype trouve = edite.cherche.isEmpty() ? -1 : edite.texte.indexOf(edite.cherche, depart, casse);
    curseurAttendu = edite.vue->texte->textCursor().position();
    if (trouve < 0) {
        partie.pilote.AttendBoite("Recherche/Remplacement", '"' + edite.cherche + "\" non trouvé", "OK");
        return partie.NoteLeFait("fiche : non trouvé");
    }
    if (edite.remplacement.isEmpty()) {
        curseurAttendu = static_cast<int>(trouve + edite.cherche.size());
        return partie.NoteLeFait("fiche : trouvé");
    }
    edite.texte.replace(trouve, edite.cherche.size(), edite.remplacement);
    edite.passes += edite.texte;
    edite.modifie = true;
    curseurAttendu = static_cast<int>(trouve + edite.remplacement.size());
    partie.NoteLeFait("fiche : remplacé");
}

void Fiches::Cherche(Edite &edite)
{
    const bool accepte = partie.tirage.Chance(80);
    const QString cherche = Cherchee(partie.tirage, edite);
    const bool casse = partie.tirage.Chance(50);
    partie.pilote.Attend<DlgCherche>([avant = edite, accepte, cherche, casse](DlgCherche &dialogue) {
        const QString defaut = Remplit(dialogue, avant, cherche, casse);
        (accepte ? dialogue.buttonOk : dialogue.buttonCancel)->click();
        return defaut;
    });
    curseurAttendu = edite.vue->texte->textCursor().position();
    if (accepte) {
        edite.cherche = cherche;
        edite.casse = casse;
        edite.remplacement.clear();
        if (!cherche.isEmpty())
            PrevoitRecherche(edite);
    }
    edite.vue->actEditCherche->trigger();
    Constate(edite);
}

void Fiches::Remplace(Edite &edite)
{
    const bool accepte = partie.tirage.Chance(80);
    const QString cherche = Cherchee(partie.tirage, edite);
    const QString remplacement = partie.tirage.Un(QStringList{"", "Paule", "e", "«»"});
    const bool casse = partie.tirage.Chance(50);
    partie.pilote.Attend<DlgRemplace>([avant = edite, accepte, cherche, remplacement, casse](DlgRemplace &dialogue) {
        QString defaut = Remplit(dialogue, avant, cherche, casse);
        if (dialogue.lineEditRemplace->text() != avant.remplacement)
            defaut = QStringLiteral("remplacement proposé : ") + dialogue.lineEditRemplace->text();
        ::Remplace(*dialogue.lineEditRemplace, remplacement);
        (accepte ? dialogue.buttonOk : dialogue.buttonCancel)->click();
        return defaut;
    });
    curseurAttendu = edite.vue->texte->textCursor().position();
    if (accepte) {
        edite.cherche = cherche;
        edite.casse = casse;
        edite.remplacement = remplacement;
        if (!cherche.isEmpty())
            PrevoitRecherche(edite);
    }
    edite.vue->actEditReplace->trigger();
    Constate(edite);
}

void Fiches::Encore(Edite &edite)
{
    PrevoitRecherche(edite);
    edite.vue->actEditReplaceEncore->trigger();
    Constate(edite);
}

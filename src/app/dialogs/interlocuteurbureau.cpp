#include "interlocuteurbureau.h"

#include "boites.h"
#include "curseurattente.h"
#include "dlgindrac.h"
#include "dlgsexrac.h"

void InterlocuteurBureau::Information(const QString &titre, const QString &texte)
{
    Boites::Information(nullptr, titre, texte);
}

void InterlocuteurBureau::Avertissement(const QString &titre, const QString &texte)
{
    Boites::Avertissement(nullptr, titre, texte);
}

std::optional<QString> InterlocuteurBureau::ChoisitRacine(QWidget *parent, const Lignes &individus)
{
    const CurseurRendu curseur;
    DlgIndRac dialogue(parent);
    dialogue.IndividuChoisi->clear();
    dialogue.ListeDesIndividus->addItems(individus());
    if (dialogue.exec() != QDialog::Accepted)
        return {};
    return dialogue.IndividuChoisi->text();
}

bool InterlocuteurBureau::RacineMasculine(QWidget *parent)
{
    const CurseurRendu curseur;
    DlgSexRac dialogue(parent);
    dialogue.exec();  // whatever closes it, the answer is the button that is checked
    return dialogue.radioButtonM->isChecked();
}

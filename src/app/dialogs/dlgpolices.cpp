#include "dlgpolices.h"

#include "champspresentation.h"

DlgPolices::DlgPolices(LesPolices *reference, QWidget *parent)
    : Dialogue(parent)
    , policesReference(reference)
{
    setupUi(this);
    connect(pbModifPolTextes, &QPushButton::clicked, this, &DlgPolices::slotModifPolTextes);
    connect(pbModifPolNum, &QPushButton::clicked, this, &DlgPolices::slotModifPolNum);
    connect(pbModifPolTitre, &QPushButton::clicked, this, &DlgPolices::slotModifPolTitre);
    connect(pbModifPolLegende, &QPushButton::clicked, this, &DlgPolices::slotModifPolLegende);
    connect(pbModifCouleur, &QPushButton::clicked, this, &DlgPolices::slotModifCouleur);
    connect(pbPolicesParDefaut, &QPushButton::clicked, this, &DlgPolices::slotPolicesParDefaut);
}

void DlgPolices::Montre(const LesPolices &montrees)
{
    polices = montrees;
    MontrePolices(*this, polices);
    MontreCouleur({LineEditCouleur, pbModifCouleur}, polices.couleurCaracteres);
}

void DlgPolices::slotModifPolTextes()
{
    if (ChoisitPolice(this, polices.policeTextes))
        MontrePolices(*this, polices);
}

void DlgPolices::slotModifPolNum()
{
    if (ChoisitPolice(this, polices.policeNumeros))
        MontrePolices(*this, polices);
}

void DlgPolices::slotModifPolTitre()
{
    if (ChoisitPolice(this, polices.policeTitre))
        MontrePolices(*this, polices);
}

void DlgPolices::slotModifPolLegende()
{
    if (ChoisitPolice(this, polices.policeLegende))
        MontrePolices(*this, polices);
}

void DlgPolices::slotModifCouleur()
{
    ChoisitCouleur(this, polices.couleurCaracteres, {LineEditCouleur, pbModifCouleur});
}

void DlgPolices::slotPolicesParDefaut()
{
    Montre(*policesReference);
}

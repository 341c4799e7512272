#include "dlgpreferences.h"

#include "champspresentation.h"

DlgPreferences::DlgPreferences(QWidget *parent)
    : Dialogue(parent)
{
    setupUi(this);
    connect(pbModifPolTextes, &QPushButton::clicked, this, &DlgPreferences::slotModifPolTextes);
    connect(pbModifPolNum, &QPushButton::clicked, this, &DlgPreferences::slotModifPolNum);
    connect(pbModifPolTitre, &QPushButton::clicked, this, &DlgPreferences::slotModifPolTitre);
    connect(pbModifPolLegende, &QPushButton::clicked, this, &DlgPreferences::slotModifPolLeg);
    connect(pbModifCouleurTraits, &QPushButton::clicked, this, &DlgPreferences::slotModifCoulTraits);
    connect(pbModifCouleurTextes, &QPushButton::clicked, this, &DlgPreferences::slotModifCoulTextes);
    connect(pbValParDef, &QPushButton::clicked, this, &DlgPreferences::slotValeursParDefaut);
}

void DlgPreferences::Montre(const FormatsDessins &formats, const LesPolices &montrees)
{
    MontreLongueurs(*this, formats);
    couleurTraits = formats.couleurTraits;
    MontreCouleur({LineEditCouleurTraits, pbModifCouleurTraits}, couleurTraits);
    polices = montrees;
    MontrePolices(*this, polices);
    MontreCouleur({LineEditCouleurTextes, pbModifCouleurTextes}, polices.couleurCaracteres);
}

FormatsDessins DlgPreferences::Saisie() const
{
    return FormatsSaisis(*this, couleurTraits);
}

void DlgPreferences::slotModifPolTextes()
{
    if (ChoisitPolice(this, polices.policeTextes))
        MontrePolices(*this, polices);
}

void DlgPreferences::slotModifPolNum()
{
    if (ChoisitPolice(this, polices.policeNumeros))
        MontrePolices(*this, polices);
}

void DlgPreferences::slotModifPolTitre()
{
    if (ChoisitPolice(this, polices.policeTitre))
        MontrePolices(*this, polices);
}

void DlgPreferences::slotModifPolLeg()
{
    if (ChoisitPolice(this, polices.policeLegende))
        MontrePolices(*this, polices);
}

void DlgPreferences::slotModifCoulTraits()
{
    ChoisitCouleur(this, couleurTraits, {LineEditCouleurTraits, pbModifCouleurTraits});
}

void DlgPreferences::slotModifCoulTextes()
{
    ChoisitCouleur(this, polices.couleurCaracteres, {LineEditCouleurTextes, pbModifCouleurTextes});
}

void DlgPreferences::slotValeursParDefaut()
{
    LesPolices defaut = LesPolices::ParDefaut();
    defaut.policeTitre = QFont(defNomPol, defaut.policeTitre.pointSize());
    Montre(FormatsDessins::ParDefaut(), defaut);
}

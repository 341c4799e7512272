#include "dlgoptdessin.h"

#include "champspresentation.h"

DlgOptDessin::DlgOptDessin(FormatsDessins *reference, QWidget *parent)
    : Dialogue(parent)
    , formatsReference(reference)
{
    setupUi(this);
    connect(pbModifCouleur, &QPushButton::clicked, this, &DlgOptDessin::slotModifCouleur);
    connect(pbValeursParDefaut, &QPushButton::clicked, this, &DlgOptDessin::slotValeursParDefaut);
}

void DlgOptDessin::Montre(const FormatsDessins &formats)
{
    MontreLongueurs(*this, formats);
    couleurTraits = formats.couleurTraits;
    MontreCouleur({LineEditCouleurTraits, pbModifCouleur}, couleurTraits);
}

FormatsDessins DlgOptDessin::Saisie() const
{
    return FormatsSaisis(*this, couleurTraits);
}

void DlgOptDessin::slotModifCouleur()
{
    ChoisitCouleur(this, couleurTraits, {LineEditCouleurTraits, pbModifCouleur});
}

void DlgOptDessin::slotValeursParDefaut()
{
    Montre(*formatsReference);
}

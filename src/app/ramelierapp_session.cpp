#include "ramelierapp.h"

#include "copiedesecours.h"
#include "lytextedit.h"

bool RamelierApp::PeutFinirLaSession()
{
    // A hidden window is leaving already: its tree has been asked about.
    if (isVisible() && TravailNonSauve() && !queryExit())
        return false;
    return LyTextEdit::TousPeuventFermer();
}

void RamelierApp::MetEnSurete()
{
    if (secours)
        secours->EcritEtGarde();
    LyTextEdit::MetLesFichesEnSurete();
}

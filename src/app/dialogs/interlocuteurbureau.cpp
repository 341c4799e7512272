#include "interlocuteurbureau.h"

#include "boites.h"

void InterlocuteurBureau::Information(const QString &titre, const QString &texte)
{
    Boites::Information(nullptr, titre, texte);
}

void InterlocuteurBureau::Avertissement(const QString &titre, const QString &texte)
{
    Boites::Avertissement(nullptr, titre, texte);
}

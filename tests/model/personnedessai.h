#pragma once

#include "enregistreur.h"
#include "formatsdessins.h"
#include "infopersonne.h"
#include "lespolices.h"
#include "personne.h"

#include <QPainter>

/// Person 4 with every text, in a box whose corner is (100, 200), drawn at 4 pixels per millimetre across and 2 down:
/// the default box takes 120 x 84 pixels. Red lines, dark green texts. What Affiche draws stands in the recorder.
struct PersonneDEssai
{
    static constexpr float sx = 4.0F;
    static constexpr float sy = 2.0F;

    PersonneDEssai()
    {
        formats.couleurTraits = Qt::red;
        polices.couleurCaracteres = Qt::darkGreen;
        personne.numero = 4;
        personne.x = 100;
        personne.y = 200;
        personne.info = new InfoPersonne(
            QStringLiteral("DUPONT"), QStringLiteral("Jean"), QStringLiteral("1er mai 1900"), QStringLiteral("Lyon"),
            QStringLiteral("vers 1970"), QStringLiteral("Paris"), QStringLiteral("Notaire"),
            QStringLiteral("jean.html"), QStringLiteral("jean.png"), InfoPersonne::PhotoNonEssayee);
    }

    /// Forgets what was drawn before.
    void Affiche(bool impression = false, bool arbreOuvert = true)
    {
        dessin = std::make_unique<Enregistreur>();
        QPainter peintre(dessin.get());
        personne.Affiche(&peintre, sx, sy, impression, formats, polices, arbreOuvert);
    }

    FormatsDessins formats = FormatsDessins::ParDefaut();
    LesPolices polices = LesPolices::ParDefaut();
    Personne personne{2};
    std::unique_ptr<Enregistreur> dessin = std::make_unique<Enregistreur>();
};

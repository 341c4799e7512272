#pragma once

#include "grandarbre.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

class Personne;

/// A document with its view, as a window holds them; the view is not shown and paints nothing.
struct DocumentOuvert
{
    /// A tree of this form, laid out for the screen.
    DocumentOuvert(Forme forme, int personnes);

    RamelierDoc doc;
    RamelierView vue;
    float echelle;  ///< of the view, in both directions
};

/// The open tree of this form and size; made once, its users leave it as they found it.
DocumentOuvert &DocumentDe(Forme forme, int personnes);
/// Their windows must not outlive the application.
void FermeLesDocuments();

/// The person in the middle of the list.
Personne *PersonneDuMilieu(const RamelierDoc &doc);

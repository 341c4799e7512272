#pragma once

#include "dialogue.h"
#include "ui_dlgindrac.h"

/// The choice of the root among the individuals of a GEDCOM file. The caller fills the list, one line an individual; the
/// line that becomes current is copied into the line edit, where the user may also type.
class DlgIndRac : public Dialogue, public Ui_DlgIndRac
{
    Q_OBJECT

public:
    /// Builds the form. The line edit has the focus at first: a list that gets it chooses its first line by itself.
    explicit DlgIndRac(QWidget *parent)
        : Dialogue(parent)
    {
        setupUi(this);
        IndividuChoisi->setFocus();
    }
};

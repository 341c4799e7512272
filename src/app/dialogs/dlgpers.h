#pragma once

#include "dialogue.h"
#include "ui_dlgpers.h"

/// The texts of one person. Holds no logic: the caller sets the heading, fills the nine line edits, and copies back those
/// that the user touched (isModified()), so that an untouched field keeps its stored text to the letter.
class DlgPers : public Dialogue, public Ui_DlgPers
{
    Q_OBJECT

public:
    /// Builds the form, and nothing else.
    explicit DlgPers(QWidget *parent)
        : Dialogue(parent)
    {
        setupUi(this);
    }
};

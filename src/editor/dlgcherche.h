#pragma once

#include "dialogue.h"
#include "ui_dlgcherche.h"

/// What to look for in the text of a sheet. The caller fills the fields and reads them back.
class DlgCherche : public Dialogue, public Ui_DlgCherche
{
    Q_OBJECT

public:
    explicit DlgCherche(QWidget *parent = nullptr)
        : Dialogue(parent)
    {
        setupUi(this);
    }
};

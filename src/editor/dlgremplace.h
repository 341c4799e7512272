#pragma once

#include "dialogue.h"
#include "ui_dlgremplace.h"

/// What to look for in the text of a sheet, and what to put in its place. The caller fills the fields and reads them back.
class DlgRemplace : public Dialogue, public Ui_DlgRemplace
{
    Q_OBJECT

public:
    explicit DlgRemplace(QWidget *parent = nullptr)
        : Dialogue(parent)
    {
        setupUi(this);
    }
};

#pragma once

#include "dialogue.h"
#include "ui_dlgtableau.h"

/// Size and border of a new HTML table. The caller fills the fields and reads them back.
class DlgTableau : public Dialogue, public Ui_DlgTableau
{
    Q_OBJECT

public:
    explicit DlgTableau(QWidget *parent = nullptr)
        : Dialogue(parent)
    {
        setupUi(this);
    }
};

#pragma once

#include "ui_dlgtableau.h"

#include <QDialog>

/// Size and border of a new HTML table. The caller fills the fields and reads them back.
class DlgTableau : public QDialog, public Ui_DlgTableau
{
    Q_OBJECT

public:
    explicit DlgTableau(QWidget *parent = nullptr)
        : QDialog(parent)
    {
        setupUi(this);
    }
};

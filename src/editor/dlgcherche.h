#pragma once

#include "ui_dlgcherche.h"

#include <QDialog>

/// What to look for in the text of a sheet. The caller fills the fields and reads them back.
class DlgCherche : public QDialog, public Ui_DlgCherche
{
    Q_OBJECT

public:
    explicit DlgCherche(QWidget *parent = nullptr)
        : QDialog(parent)
    {
        setupUi(this);
    }
};

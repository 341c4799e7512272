#pragma once

#include "ui_dlgremplace.h"

#include <QDialog>

/// What to look for in the text of a sheet, and what to put in its place. The caller fills the fields and reads them back.
class DlgRemplace : public QDialog, public Ui_DlgRemplace
{
    Q_OBJECT

public:
    explicit DlgRemplace(QWidget *parent = nullptr)
        : QDialog(parent)
    {
        setupUi(this);
    }
};

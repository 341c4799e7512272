#pragma once

#include "ui_dlgpdg.h"

#include <QDialog>

/// The title page of a tree. The caller fills the five line edits and copies back those that the user touched.
class DlgPdG : public QDialog, public Ui_DlgPdG
{
    Q_OBJECT

public:
    /// Builds the form, and nothing else.
    explicit DlgPdG(QWidget *parent)
        : QDialog(parent)
    {
        setupUi(this);
    }
};

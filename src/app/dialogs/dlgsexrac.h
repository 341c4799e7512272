#pragma once

#include "ui_dlgsexrac.h"

#include <QDialog>

/// The sex of the root, which its number does not tell. Male unless the user says otherwise; it cannot be declined.
class DlgSexRac : public QDialog, public Ui_DlgSexRac
{
    Q_OBJECT

public:
    /// Builds the form, with the focus on the answer that is checked.
    explicit DlgSexRac(QWidget *parent)
        : QDialog(parent)
    {
        setupUi(this);
        radioButtonM->setFocus();
    }
};

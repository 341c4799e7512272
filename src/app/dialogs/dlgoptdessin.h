#pragma once

#include "dialogue.h"
#include "formatsdessins.h"
#include "ui_dlgoptdessin.h"

#include <QColor>

/// The drawing lengths (mm) and the line colour of one tree. The caller shows values before exec() and reads them back
/// when the dialog was accepted.
class DlgOptDessin : public Dialogue, public Ui_DlgOptDessin
{
    Q_OBJECT

public:
    /// The restore button puts back the values of \a reference, which is not owned.
    DlgOptDessin(FormatsDessins *reference, QWidget *parent);

    void Montre(const FormatsDessins &formats);
    [[nodiscard]] FormatsDessins Saisie() const;

    FormatsDessins *formatsReference;
    QColor couleurTraits;  ///< what the swatch shows

public Q_SLOTS:
    void slotModifCouleur();
    void slotValeursParDefaut();
};

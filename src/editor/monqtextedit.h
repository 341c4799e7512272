#pragma once

#include <QTextEdit>

/// The text of a sheet, without formats, on white paper whatever the desktop's colours are.
class monQTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit monQTextEdit(QWidget *parent);

    /// The text with "\n" between its lines and with its non-breaking blanks, which toPlainText() would make plain.
    [[nodiscard]] QString TexteExact() const;

Q_SIGNALS:
    /// The Insert key was pressed alone; with Shift or Ctrl it pastes or copies.
    void insertKeyPressed();

protected:
    void keyPressEvent(QKeyEvent *evenement) override;
};

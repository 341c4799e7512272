#pragma once

#include <benchmark/benchmark.h>

#include <QChildEvent>
#include <QDialog>
#include <QLineEdit>
#include <QWidget>

/// The parent of the dialogs that a work opens: types a surname and accepts, and the clock stands still meanwhile.
class ParentDesBoites : public QWidget
{
public:
    explicit ParentDesBoites(benchmark::State &unEtat)
        : etat(unEtat)
    {
    }

protected:
    void childEvent(QChildEvent *evenement) override
    {
        if (evenement->added()) {
            etat.PauseTiming();
            QMetaObject::invokeMethod(this, &ParentDesBoites::Repond, Qt::QueuedConnection);
        } else if (evenement->removed()) {
            etat.ResumeTiming();
        }
    }

private:
    void Repond()
    {
        auto *dialogue = findChild<QDialog *>(QString(), Qt::FindDirectChildrenOnly);
        auto *nom = dialogue->findChild<QLineEdit *>(QStringLiteral("TxtNom"));
        nom->setText(QStringLiteral("DUPONT"));
        nom->setModified(true);
        dialogue->accept();
    }

    benchmark::State &etat;
};

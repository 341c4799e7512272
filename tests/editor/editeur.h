#pragma once

#include "dialoguefichier.h"
#include "dossier.h"
#include "lytextbrowser.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "programmebureau.h"

#include <QAction>
#include <QPointer>
#include <QSettings>
#include <QStatusBar>
#include <QTextDocument>

#include <memory>

/// The editor of sheets for the tests. Main function: RAMELIER_TEST_BUREAU_MAIN.

/// A folder with sheets, and one editor on one of them, which starts with the settings of a first use.
class Atelier
{
public:
    Atelier() { EffaceReglages(); }
    ~Atelier()
    {
        editeur.reset();
        qDeleteAll(Afficheurs());
    }
    Q_DISABLE_COPY_MOVE(Atelier)

    /// An editor that belongs to the tree program, titled "Fiche n° 12", on the sheet \a nom, which need not exist.
    LyTextEdit &Ouvre(const QString &nom)
    {
        const QString chemin = nom.isEmpty() ? QString() : dossier.Chemin(nom);
        return Construit(chemin, false, dossier.Chemin());
    }
    /// The same on a new sheet with this content.
    LyTextEdit &Ouvre(const QString &nom, const QByteArray &contenu)
    {
        dossier.Ecrit(nom, contenu);
        return Ouvre(nom);
    }
    /// An editor that is a program of its own, in the scratch folder; a new text when \a nom is empty.
    LyTextEdit &OuvreSeul(const QString &nom = {})
    {
        const QString chemin = nom.isEmpty() ? QString() : dossier.Chemin(nom);
        return Construit(chemin, true, dossier.Chemin(QStringLiteral("lyedithtml")));
    }

    /// The browsers that are open.
    [[nodiscard]] static QList<LyTextBrowser *> Afficheurs()
    {
        QList<LyTextBrowser *> trouves;
        const auto fenetres = QApplication::topLevelWidgets();
        for (QWidget *candidate : fenetres) {
            if (auto *afficheur = qobject_cast<LyTextBrowser *>(candidate))
                trouves += afficheur;
        }
        return trouves;
    }
    static void EffaceReglages()
    {
        QSettings(QStringLiteral("ProgrammesLY"), QStringLiteral("ramelieredithtml")).clear();
    }

    Dossier dossier;
    std::unique_ptr<LyTextEdit> editeur;

private:
    LyTextEdit &Construit(const QString &chemin, bool seul, const QString &programme)
    {
        editeur =
            std::make_unique<LyTextEdit>(QStringLiteral("Fiche"), chemin, seul, programme, QStringLiteral("n° 12"));
        return *editeur;
    }
};

using ActionEditeur = QAction *LyTextEdit::*;
Q_DECLARE_METATYPE(ActionEditeur)

/// The texts of \a actions in order, "|" for a separator, joined by " / ".
inline QString TextesDe(const QList<QAction *> &actions)
{
    QStringList textes;
    for (const QAction *action : actions)
        textes += action->isSeparator() ? QStringLiteral("|") : action->text();
    return textes.join(QStringLiteral(" / "));
}

/// The user types at the cursor.
inline void Tape(const LyTextEdit &editeur, const QString &texte)
{
    for (const QChar caractere : texte) {
        if (caractere.unicode() < 128)
            QTest::keyClick(editeur.texte, caractere.toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, editeur.texte, Qt::Key_unknown, QString(caractere), {});
    }
}

/// The whole text of the window, "\n" between its lines.
inline QString TexteDe(const LyTextEdit &editeur)
{
    return editeur.texte->TexteExact();
}

inline bool EstModifie(const LyTextEdit &editeur)
{
    return editeur.texte->document()->isModified();
}

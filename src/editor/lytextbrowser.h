#pragma once

#include <QMainWindow>

class NavigateurFiche;
class QMenu;
class QPrinter;
class QToolBar;

/// A window that shows one sheet, HTML or plain text, with a history of the pages visited, and prints it. Deletes itself
/// when it is closed: whoever keeps a pointer to it keeps a QPointer.
class LyTextBrowser : public QMainWindow
{
    Q_OBJECT

public:
    /// Shows \a fichier, as HTML when \a commeHtml, under the title \a titreDeBase, and shows itself.
    LyTextBrowser(const QIcon &icone, const QString &titreDeBase, const QString &fichier, bool commeHtml);

    /// Shows another file, in the same way.
    void Montre(const QString &fichier);

    NavigateurFiche *navigateur;
    QString titre;          ///< base of the window's title
    QString legende;        ///< the window's title with that of the page
    QString fichierMontre;  ///< the file given last, not the page that its links led to
    QString fichierPdf;     ///< where the sheet is printed as PDF: beside the file
    bool html;
    QMenu *menuFichier = nullptr;
    QMenu *menuAffichage = nullptr;
    QMenu *menuAller = nullptr;
    QMenu *menuAide = nullptr;
    QToolBar *barreOutils = nullptr;
    QAction *actFilePrint = nullptr;
    QAction *actFileQuit = nullptr;
    QAction *actSuivant = nullptr;
    QAction *actPrecedent = nullptr;
    QAction *actRecharger = nullptr;
    QAction *actOrigine = nullptr;
    QAction *actViewToolBar = nullptr;
    QAction *actHelpAbout = nullptr;
    QAction *actHelpAboutQt = nullptr;
    QAction *actWhatsThis = nullptr;

public Q_SLOTS:
    void slotFilePrint();
    void slotFileQuit();
    void slotSuivant();
    void slotPrecedent();
    void slotRecharger();
    void slotOrigine();
    void slotViewToolBar(bool visible);
    void slotHelpAbout();
    void slotHelpAboutQt();
    /// Puts the title of the page into the window's.
    void slotMaJCaption();

Q_SIGNALS:
    /// The window closes.
    void FermetureBrowser();

protected:
    void closeEvent(QCloseEvent *evenement) override;

private:
    void initActions();
    void initMenus();
    void initBarreOutils();
};

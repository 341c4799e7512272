#include "lytextedit.h"

#include "boites.h"
#include "copiedefiche.h"
#include "curseurattente.h"
#include "ecriture.h"
#include "findesession.h"
#include "monqtextedit.h"
#include "placedesecours.h"
#include "textefiche.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QStatusBar>

namespace {

const QStringList ouiNonAnnuler{QStringLiteral("Oui"), QStringLiteral("Non"), QStringLiteral("Annuler")};
constexpr int oui = 0;
constexpr int annuler = 2;

/// Puts \a octets into the file \a nom. False with \a cause when that failed; the old file is then still there.
bool Ecrit(const QString &nom, const QByteArray &octets, QString &cause)
{
    EcritureFichier ecriture(nom);
    if (ecriture.Ouvre()) {
        ecriture.Appareil().write(octets);
        if (ecriture.Termine())
            return true;
    }
    cause = ecriture.Erreur();
    return false;
}

}  // namespace

bool LyTextEdit::loadFile(const QString &f)
{
    QString cause;
    const bool lu = [&] {
        const CurseurAttente attente;
        const QByteArray octets = OctetsFiche(f, &cause);
        if (!octets.isNull())
            texte->setPlainText(QStringDecoder(codec).decode(octets));
        return !octets.isNull();
    }();
    if (lu)
        // The toolkit does not always tell that a new text is not modified.
        slotMaJStatusBarreInfoModif(false);
    else
        // A window that a box precedes would forget its frame, and move at each opening by its size.
        Boites::Avertissement(isVisible() ? this : nullptr, QStringLiteral("LyEditHtml"),
                              QStringLiteral("Cannot read file %1:\n%2.").arg(f, cause));
    return lu;
}

QByteArray LyTextEdit::OctetsAEnregistrer(bool *complets) const
{
    QStringEncoder encodeur(codec);
    QByteArray octets = encodeur.encode(texte->TexteExact());
    if (complets)
        *complets = !encodeur.hasError();
    return octets;
}

bool LyTextEdit::saveFile(const QString &f)
{
    bool complets = true;
    const QByteArray octets = OctetsAEnregistrer(&complets);
    QString cause;
    const bool ecrit = [&] {
        const CurseurAttente attente;
        return Ecrit(f, octets, cause);
    }();
    // Another title than that of a failed reading: deliberate.
    if (!ecrit) {
        Boites::Avertissement(this, QStringLiteral("LyTextEdit"),
                              QStringLiteral("Cannot write file %1:\n%2.").arg(f, cause));
        return false;
    }
    texte->document()->setModified(false);
    setCurrentFile(f);
    statusBar()->clearMessage();
    if (!complets)
        statusBar()->showMessage(QStringLiteral("Des caractères qui n'existent pas en ISO 8859-1 ont été enregistrés "
                                                "comme « ? »"));
    return true;
}

bool LyTextEdit::Sauve()
{
    return fichierCourant.isEmpty() ? slotFileSaveAs() : saveFile(fichierCourant);
}

bool LyTextEdit::PeutAbandonnerLeTexte()
{
    bool continuer = true;
    if (texte->document()->isModified())
        proposeSauvegarde(&continuer);
    return continuer;
}

void LyTextEdit::proposeSauvegarde(bool *continuer)
{
    const int reponse = Boites::Demande(this, QMessageBox::Warning, QStringLiteral("Sauvegarde"),
                                        QStringLiteral("Le texte a été modifié \n enregistrer les modifications ?"),
                                        ouiNonAnnuler, oui, annuler);
    if (reponse == oui)
        *continuer = Sauve();
    else if (reponse == annuler)
        *continuer = false;
}

void LyTextEdit::slotFileNew()
{
    if (!PeutAbandonnerLeTexte())
        return;
    texte->setPlainText(QString());
    slotMaJStatusBarreInfoModif(false);
    fichierCourant.clear();
    nomCourt.clear();
    modeHtml = true;
    disableHtml(true);
    ComposeTitre(QStringLiteral("Nouveau"));
    MontreAlignement();
}

void LyTextEdit::slotFileOpen()
{
    if (!PeutAbandonnerLeTexte())
        return;
    const QString nom = QFileDialog::getOpenFileName(
        this, QStringLiteral("Ouvrir"), dernierRep,
        QStringLiteral("Fichiers html (*.htm *.html);;Textes simples (*.txt);;Tous les fichiers (*)"));
    if (nom.isEmpty() || !loadFile(nom))
        return;
    dernierRep = QFileInfo(nom).absolutePath();
    setCurrentFile(nom);
    setHtmlOuTxt(nom);
    disableHtml(modeHtml);
}

bool LyTextEdit::slotFileSave()
{
    return Sauve();
}

QString LyTextEdit::DemandeUnNom()
{
    // A new text goes where the last one was; the program's own folder is no place for it.
    const bool ailleurs = fichierCourant.isEmpty() && dernierRep != repApplication;
    QFileDialog dialogue(this, QStringLiteral("Enregistrer sous"), ailleurs ? dernierRep : fichierCourant,
                         QStringLiteral("Textes (*.htm; *.html; *.txt)"));
    dialogue.setAcceptMode(QFileDialog::AcceptSave);
    // The toolkit parts the patterns at blanks alone, and would only show names that end with ";".
    if (auto *modele = dialogue.findChild<QFileSystemModel *>())
        modele->setNameFilters({QStringLiteral("*.htm"), QStringLiteral("*.html"), QStringLiteral("*.txt")});
    return dialogue.exec() == QDialog::Accepted ? dialogue.selectedFiles().value(0) : QString();
}

QString LyTextEdit::ChoisitUnNom()
{
    QString nom = DemandeUnNom();
    if (nom.isEmpty() || nom.contains(u'.'))
        return nom;
    nom += modeHtml ? QStringLiteral(".html") : QStringLiteral(".txt");
    // The dialog asked for the name as it was typed, not for this one.
    if (QFileInfo::exists(nom)
        && Boites::Demande(this, QMessageBox::Warning, QStringLiteral("Enregistrer sous"),
                           QStringLiteral("Le fichier %1 existe déjà.\nVoulez-vous le remplacer ?").arg(nom),
                           {QStringLiteral("Oui"), QStringLiteral("Non")}, 1, 1)
            != oui)
        return {};
    return nom;
}

bool LyTextEdit::slotFileSaveAs()
{
    const QString avant = fichierCourant;
    const QString nom = ChoisitUnNom();
    if (nom.isEmpty() || !saveFile(nom))
        return false;
    if (QFileInfo(avant) != QFileInfo(nom))
        OublieLaCopieDeSecours(avant);
    dernierRep = QFileInfo(nom).absolutePath();
    setHtmlOuTxt(nom);
    disableHtml(modeHtml);
    return true;
}

bool LyTextEdit::queryExit()
{
    const int reponse = Boites::Demande(
        this, QMessageBox::Warning, QStringLiteral("Fermer..."),
        QStringLiteral("La fiche éditée a été modifiée \n enregistrer les modifications avant de fermer ?"),
        ouiNonAnnuler, oui, annuler);
    if (reponse == oui) {
        Sauve();
        // The window closes whatever became of the save: what it did not write must not be lost.
        secours->EcritEtGarde();
    }
    return reponse != annuler;
}

bool LyTextEdit::TousPeuventFermer()
{
    const auto fenetres = QApplication::topLevelWidgets();
    for (const QPointer<QWidget> fenetre : fenetres) {
        auto *editeur = qobject_cast<LyTextEdit *>(fenetre);
        if (editeur && editeur->isVisible() && editeur->texte->document()->isModified() && !editeur->queryExit())
            return false;
    }
    return true;
}

void LyTextEdit::MetLesFichesEnSurete()
{
    const auto fenetres = QApplication::topLevelWidgets();
    for (const QWidget *fenetre : fenetres) {
        const auto *editeur = qobject_cast<const LyTextEdit *>(fenetre);
        if (editeur && editeur->isVisible())
            editeur->secours->EcritEtGarde();
    }
}

void LyTextEdit::closeEvent(QCloseEvent *evenement)
{
    if (texte->document()->isModified() && !FinDeSession::EstAcceptee() && !queryExit()) {
        evenement->ignore();
        return;
    }
    secours->Ferme();
    writeSettings();
    Q_EMIT FermetureTextEdit(this);
    Q_EMIT fermetureLyEditHtml();
    evenement->accept();
}

void LyTextEdit::slotFileQuit()
{
    close();
}

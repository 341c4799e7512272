#include "lytextedit.h"

#include "barres.h"
#include "copiedefiche.h"
#include "ecran.h"
#include "highlighterhtml.h"
#include "lytextbrowser.h"
#include "monqtextedit.h"

#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QSettings>
#include <QStatusBar>

namespace {

const QString organisation = QStringLiteral("ProgrammesLY");
const QString application = QStringLiteral("ramelieredithtml");

QIcon IconeEditeur()
{
    QIcon icone(QStringLiteral(":/images/lyedithtml.png"));
    icone.addFile(QStringLiteral(":/images/lyedithtml-16.png"));
    icone.addFile(QStringLiteral(":/images/lyedithtml-48.png"));
    return icone;
}

bool EstHtml(const QString &fichier)
{
    return fichier.contains(QStringLiteral(".htm"));
}

}  // namespace

LyTextEdit::LyTextEdit(const QString &debutTitre, const QString &fichier, bool seul, const QString &programme,
                       const QString &complementTitre)
    : repApplication(seul ? QFileInfo(programme).absolutePath() : programme)
    , repAide(repApplication + (seul ? QStringLiteral("/AideLyEditHtml") : QStringLiteral("/AideRamelier/editeur")))
    , dernierRep(repApplication)
    , titreBase(debutTitre + u' ' + complementTitre)
    , titre(titreBase)
    , autonome(seul)
    , texte(new monQTextEdit(this))
    , highlighter(new HighlighterHtml(texte->document()))
{
    setWindowTitle(titre);
    setWindowIcon(IconeEditeur());
    if (!autonome)
        modeHtml = EstHtml(fichier);
    initActions();
    initMenus();
    initBarresOutils();
    initStatusBar();
    NommeLesBarres(*this);
    initTexte();
    OuvreOuCommence(fichier);
    disableHtml(modeHtml);
    ConnecteLeTexte();
    secours = std::make_unique<CopieDeFiche>(*this);
    resize(TailleInitiale());
    // The saved size always wins, its default of 400 x 400 included: deliberate.
    readSettings();
    show();
}

LyTextEdit::~LyTextEdit() = default;

void LyTextEdit::initTexte()
{
    constexpr int tailleDeBase = 10;
    QFont courier(QStringLiteral("Courier"), tailleDeBase);
    courier.setFixedPitch(true);
    // Any font of one width stands for it better than a proportional one.
    courier.setStyleHint(QFont::TypeWriter);
    AppliquePolice(courier);
    setCentralWidget(texte);
}

void LyTextEdit::OuvreOuCommence(const QString &fichier)
{
    if (fichier.isEmpty()) {
        modeHtml = true;
        ComposeTitre(QStringLiteral("Nouveau"));
        return;
    }
    if (!loadFile(fichier))
        return;
    dernierRep = QFileInfo(fichier).absolutePath();
    setCurrentFile(fichier);
    setHtmlOuTxt(fichier);
}

void LyTextEdit::ConnecteLeTexte()
{
    connect(texte, &QTextEdit::copyAvailable, actEditCut, &QAction::setEnabled);
    connect(texte, &QTextEdit::copyAvailable, actEditCopy, &QAction::setEnabled);
    connect(texte, &QTextEdit::undoAvailable, actEditAnnuler, &QAction::setEnabled);
    connect(texte, &QTextEdit::redoAvailable, actEditRefaire, &QAction::setEnabled);
    // The toolkit does not tell everything: an undo may take the selection away, and a letter what there was to redo.
    const auto accorde = [this] {
        actEditCut->setEnabled(isTextSelected());
        actEditCopy->setEnabled(isTextSelected());
        actEditRefaire->setEnabled(texte->document()->isRedoAvailable());
    };
    connect(texte, &QTextEdit::selectionChanged, this, accorde);
    connect(texte->document(), &QTextDocument::contentsChanged, this, accorde, Qt::QueuedConnection);
    connect(texte->document(), &QTextDocument::modificationChanged, this, &LyTextEdit::slotMaJStatusBarreInfoModif);
    connect(texte, &monQTextEdit::insertKeyPressed, this, &LyTextEdit::slotInsertRewrite);
    texte->setFocus();
}

void LyTextEdit::CommenceLaFiche(const QString &chemin, const QString &nom)
{
    fichierCourant = chemin;
    nomCourt = QFileInfo(chemin).fileName();
    setHtmlOuTxt(chemin);
    titre += QStringLiteral(" - ") + nom;
}

void LyTextEdit::ComposeTitre(const QString &suite)
{
    titre = titreBase + QStringLiteral(" - ") + suite;
    setWindowTitle(titre);
}

void LyTextEdit::setCurrentFile(const QString &f)
{
    fichierCourant = f;
    nomCourt = QFileInfo(f).fileName();
    ComposeTitre(nomCourt);
}

void LyTextEdit::setHtmlOuTxt(const QString &f)
{
    modeHtml = EstHtml(f);
    if (modeHtml)
        MontreAlignement();
    else
        labelAlignement->clear();
}

void LyTextEdit::MontreAlignement()
{
    if (alignement.contains(QStringLiteral("=center")))
        labelAlignement->setText(QStringLiteral("Centré"));
    else if (alignement.contains(QStringLiteral("=right")))
        labelAlignement->setText(QStringLiteral("Droite"));
    else if (alignement.contains(QStringLiteral("=justify")))
        labelAlignement->setText(QStringLiteral("Justifié"));
    else
        labelAlignement->setText(QStringLiteral("Gauche"));
}

void LyTextEdit::slotMaJStatusBarreInfoModif(bool m)
{
    constexpr int largeurVide = 31;
    labelInfoModif->setText(m ? QStringLiteral(" document modifé ") : QString(largeurVide, u' '));
    if (secours)
        secours->Regarde();
}

void LyTextEdit::slotInsertRewrite()
{
    const bool ecrase = texte->overwriteMode();
    labelInsertion->setText(ecrase ? QStringLiteral(" INS ") : QStringLiteral(" RFP "));
    texte->setOverwriteMode(!ecrase);
}

void LyTextEdit::AppliquePolice(const QFont &police)
{
    policeEditeur = police;
    texte->setFont(police);
}

void LyTextEdit::readSettings()
{
    const QSettings reglages(organisation, application);
    const QString description = reglages.value(QStringLiteral("font")).toString();
    QFont police;
    if (!description.isEmpty() && police.fromString(description))
        AppliquePolice(police);
    resize(reglages.value(QStringLiteral("size"), QSize(400, 400)).toSize());
    move(PlaceVisible(reglages.value(QStringLiteral("pos"), QPoint(200, 200)).toPoint(), size()));
}

void LyTextEdit::writeSettings()
{
    QSettings reglages(organisation, application);
    reglages.setValue(QStringLiteral("pos"), pos());
    reglages.setValue(QStringLiteral("size"), size());
    reglages.setValue(QStringLiteral("font"), policeEditeur.toString());
}

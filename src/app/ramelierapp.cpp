#include "ramelierapp.h"

#include "arbview.h"
#include "barres.h"
#include "copiedesecours.h"
#include "copiesretrouvees.h"
#include "ecran.h"
#include "lytextedit.h"
#include "placedesecours.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>

namespace {

const QString organisation = QStringLiteral("ProgrammesLY");
const QString application = QStringLiteral("ramelier");

}  // namespace

RamelierApp::RamelierApp(int argc, char **argv)
    : repApplication(QFileInfo(QFile::decodeName(argv[0])).absolutePath())
{
    repAide = repApplication + QStringLiteral("/AideRamelier");
    setWindowTitle(QStringLiteral("Ramelier 5.1"));
    setWindowIcon(QIcon(QStringLiteral(":/images/ramelier.png")));
    initActions();
    initMenuBar();
    initToolBar();
    initStatusBar();
    NommeLesBarres(*this);
    doc = new RamelierDoc(repApplication);
    resize(TailleInitiale());
    // The saved size always wins, its default of 400 x 400 included: deliberate.
    readSettings();
    secours = std::make_unique<CopieDeSecours>(*doc, dernierRep);
    view = new RamelierView(this, doc);
    ConstruitMenusSurgissants();
    ConnecteLeDocument();
    setAcceptDrops(true);
    if (argc >= 2) {
        fichierArbre = QFile::decodeName(argv[1]);
        slotFileOpen();
    }
    enDemarrage = false;
    setCentralWidget(view);
    show();
    AnnonceLesCopiesDeSecours();
}

RamelierApp::~RamelierApp()
{
    // A window that was closed has told its satellites already; the quit command leaves it open.
    const bool ouverte = isVisible();
    // While an editor still keeps the program waiting, this window is no more to be used.
    hide();
    FermeLesEditeurs();
    if (ouverte)
        Q_EMIT fermetureRamelier();
    delete popupPersonne;
    delete popupGeneral;
    delete view;
    secours.reset();
    delete doc;
}

void RamelierApp::ConnecteLeDocument()
{
    connect(doc, &RamelierDoc::personneSelectionnee, this, &RamelierApp::slotPersonneSelectionnee);
    connect(view->vue(), &arbView::personneDoubleCliquee, this, &RamelierApp::slotPersonneDoubleCliquee);
    connect(view->vue(), &arbView::menuSurgissant, this, &RamelierApp::slotMenuSurgissant);
    connect(view->vue(), &arbView::menuAuClavier, this, &RamelierApp::MontreMenuSurgissant);
    connect(doc, &RamelierDoc::autoriseAnnulation, this, &RamelierApp::slotAutoriseAnnulation);
    connect(this, &RamelierApp::docChanged, view->vue(), &arbView::slotDocumentChanged);
}

void RamelierApp::AnnonceLesCopiesDeSecours()
{
    QStringList copies = CopiesRetrouvees();
    copies.removeAll(QFileInfo(doc->nomFichier).absoluteFilePath());
    AnnonceLesCopies(copies, *statusBar());
}

void RamelierApp::initStatusBar()
{
    Status(QStringLiteral("Prêt."), 2000);
    labelInfoModif = new QLabel(QString(21, u' '));
    labelMode = new QLabel(QStringLiteral(" Consultation "));
    statusBar()->addPermanentWidget(labelInfoModif);
    statusBar()->addPermanentWidget(labelMode);
}

void RamelierApp::Status(const QString &texte, int duree)
{
    statusBar()->showMessage(texte, duree);
}

QString RamelierApp::DansDernierRep(const QString &nom) const
{
    return (dernierRep.isEmpty() ? QDir::currentPath() : dernierRep) + u'/' + nom;
}

bool RamelierApp::TravailNonSauve() const
{
    return doc->isModified() || doc->areOptionsModified();
}

void RamelierApp::MaJStatusBarreInfoModif()
{
    labelInfoModif->setText(TravailNonSauve() ? QStringLiteral(" document modifé ") : QString(21, u' '));
    secours->Regarde();
}

void RamelierApp::readSettings()
{
    const QSettings reglages(organisation, application);
    resize(reglages.value(QStringLiteral("size"), QSize(400, 400)).toSize());
    move(PlaceVisible(reglages.value(QStringLiteral("pos"), QPoint(200, 200)).toPoint(), size()));
    dernierRep = reglages.value(QStringLiteral("lastdir")).toString();
}

void RamelierApp::writeSettings()
{
    QSettings reglages(organisation, application);
    reglages.setValue(QStringLiteral("pos"), pos());
    reglages.setValue(QStringLiteral("size"), size());
    reglages.setValue(QStringLiteral("lastdir"), dernierRep);
}

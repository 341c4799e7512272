#include "copiedesecours.h"

#include "arbre.h"
#include "ecriture.h"
#include "ficoptions.h"
#include "ficxrlg.h"
#include "masquedroits.h"
#include "personne.h"
#include "placedesecours.h"
#include "ramelierdoc.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int patienceMs = 100;     ///< between two looks at the child
constexpr unsigned dureeMaxS = 60;  ///< a child that hangs ends then

/// The person who is in the tree only while the first texts are typed: nobody yet.
void OteLaPersonneEnSaisie(Arbre &arbre)
{
    const Personne *personne = arbre.selection;
    if (personne && personne != arbre.premiere && !personne->affichable && personne->estVide())
        arbre.SupprimePersonne();
}

/// No signal is delivered during the life of one object.
class SignauxRetenus
{
public:
    SignauxRetenus()
    {
        sigset_t tous;
        sigfillset(&tous);
        sigprocmask(SIG_SETMASK, &tous, &avant);
    }
    ~SignauxRetenus() { sigprocmask(SIG_SETMASK, &avant, nullptr); }
    Q_DISABLE_COPY_MOVE(SignauxRetenus)

private:
    sigset_t avant{};
};

}  // namespace

CopieDeSecours::CopieDeSecours(RamelierDoc &unDoc, const QString &unDossier, int unIntervalle)
    : doc(unDoc)
    , dossierSansFichier(unDossier)
    , intervalle(unIntervalle)
{
    for (QTimer *unique : {&regard, &ecriture})
        unique->setSingleShot(true);
    moisson.setInterval(patienceMs);
    connect(&regard, &QTimer::timeout, this, &CopieDeSecours::Regarde);
    connect(&ecriture, &QTimer::timeout, this, &CopieDeSecours::Ecrit);
    connect(&moisson, &QTimer::timeout, this, &CopieDeSecours::Moissonne);
    // The document tells first and raises its flag afterwards: look later.
    connect(&doc, &RamelierDoc::documentChanged, this, [this](int code) {
        arbreParti = arbreParti || code == 0;
        regard.start(0);
    });
}

CopieDeSecours::~CopieDeSecours()
{
    if (!gardee)
        Retire();
}

bool CopieDeSecours::TravailNonSauve() const
{
    return doc.arbre && (doc.isModified() || doc.areOptionsModified());
}

QString CopieDeSecours::Chemin() const
{
    return ecrite && enfant == 0 ? place->Arbre() : QString();
}

void CopieDeSecours::Regarde()
{
    regard.stop();
    if (std::exchange(arbreParti, false) || !TravailNonSauve())
        Retire();
    if (!TravailNonSauve() || ecriture.isActive())
        return;
    const qint64 passe = depuisLaDerniere.isValid() ? depuisLaDerniere.elapsed() : intervalle;
    ecriture.start(static_cast<int>(std::max<qint64>(0, intervalle - passe)));
}

bool CopieDeSecours::PrendPlace()
{
    if (!place)
        place = PlaceDeSecours::Prend(doc.nomFichier);
    return place != nullptr;
}

void CopieDeSecours::Ecrit()
{
    if (!TravailNonSauve() || regard.isActive())
        return;
    if (enfant != 0) {
        ecriture.start(patienceMs);
        return;
    }
    depuisLaDerniere.start();
    if (!PrendPlace())
        SePlaint();
    else if (!LanceLEnfant()) {
        ecrite = EcritLesFichiers();
        if (!ecrite)
            SePlaint();
    }
}

bool CopieDeSecours::LanceLEnfant()
{
    const SignauxRetenus retenus;
    enfant = ::fork();
    if (enfant == 0)
        TravailleCommeEnfant();
    if (enfant < 0) {
        enfant = 0;
        return false;
    }
    moisson.start();
    return true;
}

void CopieDeSecours::TravailleCommeEnfant()
{
    // What ends the program from the terminal must not end its copy, and its handlers speak to the parent.
    for (const int ignore : {SIGINT, SIGHUP, SIGPIPE})
        std::signal(ignore, SIG_IGN);
    for (const int fatal : {SIGTERM, SIGALRM})
        std::signal(fatal, SIG_DFL);
    sigset_t aucun;
    sigemptyset(&aucun);
    sigprocmask(SIG_SETMASK, &aucun, nullptr);
    ::alarm(dureeMaxS);
    place->LaisseAuParent();
    OteLaPersonneEnSaisie(*doc.arbre);
    ::_exit(EcritLesFichiers() ? 0 : 1);
}

void CopieDeSecours::Moissonne()
{
    int etat = 0;
    if (enfant == 0 || ::waitpid(enfant, &etat, WNOHANG) == 0)
        return;
    enfant = 0;
    moisson.stop();
    if (WIFEXITED(etat) && WEXITSTATUS(etat) == 0)
        ecrite = true;
    else
        SePlaint();
}

void CopieDeSecours::ArreteLEnfant()
{
    if (enfant == 0)
        return;
    ::kill(enfant, SIGKILL);
    while (::waitpid(enfant, nullptr, 0) < 0 && errno == EINTR) { }
    enfant = 0;
    moisson.stop();
}

QString CopieDeSecours::DossierDesPhotos() const
{
    return doc.nomFichier.isEmpty() ? dossierSansFichier : DossierDeLArbre(doc.nomFichier);
}

void CopieDeSecours::EcritLesOptions() const
{
    FormatsDessins formats = doc.formats;
    LesPolices polices = doc.polices;
    // A tree that goes by the preferences goes on doing so.
    if (doc.areOptionsModified()
        || (!doc.nomFichier.isEmpty() && LitOptions(CheminDesOptions(doc.nomFichier), &formats, &polices)))
        EcritOptions(place->Options(), formats, polices, OptionsParArbre);
    else
        QFile::remove(place->Options());
}

bool CopieDeSecours::EcritLesFichiers() const
{
    const MasqueDroits pourNousSeuls(077);
    const QString dossier = DossierDesPhotos();
    if (QFileInfo(place->Dossier()).symLinkTarget() != dossier) {
        QFile::remove(place->Dossier());
        QFile::link(dossier, place->Dossier());
    }
    EcritLesOptions();
    EcritureFichier arbre(place->Arbre());
    // The last copy of somebody's work must open, also with a text in it that would spoil the tree's own file.
    return arbre.Ouvre() && EcritArbreXRLG(arbre.Appareil(), *doc.arbre, TextesXRLG::Echappes) && arbre.Termine();
}

void CopieDeSecours::EcritEtGarde()
{
    ArreteLEnfant();
    if (!TravailNonSauve())
        return;
    OteLaPersonneEnSaisie(*doc.arbre);
    if (PrendPlace() && EcritLesFichiers()) {
        ecrite = true;
        gardee = true;
    } else {
        gardee = ecrite;
        SePlaint();
    }
}

void CopieDeSecours::SePlaint()
{
    if (!plainte)
        std::fputs("La copie de secours de l'arbre n'a pas pu être écrite.\n", stderr);
    plainte = true;
}

void CopieDeSecours::Retire()
{
    ecriture.stop();
    ArreteLEnfant();
    if (place)
        place->Vide();
    place.reset();
    ecrite = false;
    gardee = false;
}

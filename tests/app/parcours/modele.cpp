#include "modele.h"

#include "arbre.h"
#include "fenetre.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>

bool Modele::EstUneCime(quint64 numero) const
{
    return numero != 1 && !Existe(2 * numero) && !Existe(2 * numero + 1);
}

void Modele::Selectionne(quint64 numero)
{
    if (numero == selection)
        return;
    selection = numero;
    if (numero != 0 && consultation)
        return;
    annulable = false;
    modifAnnulee = false;
}

void Modele::BasculeMode()
{
    consultation = !consultation;
    modeJamaisChange = false;
    // Without a selection the way to editing leaves it alone, but the way to consultation has disabled it before.
    annulable = false;
}

void Modele::Modifie(const Textes &nouveaux)
{
    avant = std::exchange(Selection(), nouveaux);
    apres = nouveaux;
    numeroAAnnuler = selection;
    suppressionAAnnuler = false;
    annulable = true;
    modifAnnulee = false;
    modifie = true;
}

void Modele::Ajoute(quint64 numero, const Textes &textes)
{
    contenu.personnes[numero] = textes;
    Selectionne(numero);
    modifie = true;
}

void Modele::Supprime()
{
    numeroAAnnuler = selection;
    suppressionAAnnuler = true;
    avant = contenu.personnes.take(selection);
    Selectionne(0);
    annulable = true;
    modifie = true;
}

void Modele::Annule()
{
    modifie = true;
    if (suppressionAAnnuler) {
        contenu.personnes[numeroAAnnuler] = avant;
        annulable = false;
        return;
    }
    modifAnnulee = !modifAnnulee;
    contenu.personnes[numeroAAnnuler] = modifAnnulee ? avant : apres;
}

void Modele::Enregistre()
{
    modifie = false;
    optionsModifiees = false;
    RafraichitLabel();
}

void Modele::EnregistreSous(const QString &chemin)
{
    nomFichier = chemin;
    fichierArbre = chemin;
    dernierRep = QFileInfo(chemin).absolutePath();
    ancien = false;
    titre = "Ramelier 5.1 - " + chemin;
    Enregistre();
}

void Modele::Ouvre(const QString &chemin, const Contenu &lu, quint64 compteEcrit)
{
    arbreOuvert = true;
    contenu = lu;
    compteEnTrop = compteEcrit;
    selection = 0;
    consultation = true;
    modeJamaisChange = false;
    exportPermis = true;
    annulable = false;
    nomFichier = chemin;
    fichierArbre = chemin;
    dernierRep = QFileInfo(chemin).absolutePath();
    ancien = chemin.endsWith(".rlg");
    titre = "Ramelier 5.1 - " + chemin;
    modifie = false;
    optionsModifiees = false;
    RafraichitLabel();
}

void Modele::PrendSansFichier(const Contenu &nouveau)
{
    arbreOuvert = true;
    contenu = nouveau;
    compteEnTrop = 0;
    selection = 0;
    consultation = false;
    modeJamaisChange = false;
    annulable = false;
    nomFichier.clear();
    fichierArbre.clear();
    ancien = false;
    titre = "Ramelier 5.1 - Nouveau";
    modifie = true;
    optionsModifiees = false;
    RafraichitLabel();
}

void Modele::Commence(const Page &page, const Textes &racine)
{
    PrendSansFichier({.personnes = {{1, racine}}, .page = page});
    selection = 1;
    exportPermis = true;
}

void Modele::PerdLArbre()
{
    arbreOuvert = false;
    contenu = {};
    selection = 0;
    consultation = true;
    modeJamaisChange = false;
    annulable = false;
    nomFichier.clear();
    ancien = false;
    modifie = false;
    optionsModifiees = false;
    RafraichitLabel();
}

void Modele::AbandonneLaCreation()
{
    PerdLArbre();
    fichierArbre.clear();
    exportPermis = false;
}

void Modele::Redemarre()
{
    const QString dossier = dernierRep;
    *this = Modele();
    dernierRep = dossier;
}

QStringList Modele::ActionsActives() const
{
    QStringList noms{"actFileNew",       "actFileOpen",      "actFileQuit",       "actPreferences", "actViewToolBar",
                     "actViewStatusBar", "actModeAffichage", "actAssembleArbres", "actImporteGED",  "actAide",
                     "actHelpAbout",     "actHelpAboutQt",   "actWhatsThis"};
    if (arbreOuvert)
        noms +=
            {"actFileSave", "actFileSaveAs", "actFilePrint", "actModeTravail", "actPoliceCaract", "actFormatsDessins"};
    if (exportPermis)
        noms += "actExporteGED";
    if (EnEdition())
        noms += "actEditPdG";
    if (EnEdition() && selection != 0) {
        noms += {"actModifier", "actSuppPers", "actEditFicheHTML"};
        if (!Existe(2 * selection))
            noms += "actAjouterPere";
        if (!Existe(2 * selection + 1))
            noms += "actAjouterMere";
    }
    if (annulable)
        noms += "actAnnuler";
    if (arbreOuvert && consultation && selection != 0 && !contenu.personnes.value(selection).at(FicHtml).isEmpty())
        noms += "actAffFicheHTML";
    noms.sort();
    return noms;
}

QString Modele::EcartDesTextes(const Fenetre &fenetre) const
{
    const struct
    {
        QString vu;
        QString attendu;
    } textes[] = {
        {fenetre.windowTitle(), titre},
        {fenetre.labelMode->text(), consultation ? " Consultation " : " Edition "},
        {fenetre.actModeTravail->text(),
         modeJamaisChange   ? "Mode Edition/modification"
             : consultation ? "Mode édition/modification"
                            : "Consultation"},
        {fenetre.labelInfoModif->text(), labelModifie ? " document modifé " : "                     "},
        {fenetre.fichierArbre, fichierArbre},
        {fenetre.dernierRep, dernierRep},
        {fenetre.actAnnuler->text(), modifAnnulee ? "&Annuler annuler" : "&Annuler"},
    };
    for (const auto &texte : textes) {
        if (texte.vu != texte.attendu)
            return QStringLiteral("texte « %1 » au lieu de « %2 »").arg(texte.vu, texte.attendu);
    }
    return {};
}

QString Modele::EcartAvec(const Fenetre &fenetre) const
{
    const RamelierDoc &doc = *fenetre.doc;
    if (fenetre.modeConsultation != consultation || fenetre.modifAnnulee != modifAnnulee)
        return QStringLiteral("mode ou annulation");
    if (const QString ecart = EcartDesTextes(fenetre); !ecart.isEmpty())
        return ecart;
    if (const QStringList actives = ::ActionsActives(fenetre); actives != ActionsActives())
        return QStringLiteral("actions actives %1\nau lieu de %2").arg(actives.join(u' '), ActionsActives().join(u' '));
    if (doc.isModified() != modifie || doc.areOptionsModified() != optionsModifiees)
        return QStringLiteral("document modifié : %1, options : %2")
            .arg(doc.isModified())
            .arg(doc.areOptionsModified());
    if (doc.nomFichier != nomFichier)
        return QStringLiteral("fichier « %1 »").arg(doc.nomFichier);
    if (!doc.arbre || !arbreOuvert)
        return (doc.arbre != nullptr) == arbreOuvert ? QString() : QStringLiteral("arbre ouvert ou fermé à tort");
    if (const QString defaut = DefautDe(*doc.arbre, compteEnTrop); !defaut.isEmpty())
        return defaut;
    if ((doc.arbre->selection ? doc.arbre->selection->numero : 0) != selection)
        return QStringLiteral("sélection : pas la personne %1").arg(selection);
    return Difference(contenu, ContenuDe(*doc.arbre));
}

#include "modele.h"

#include "arbre.h"
#include "fenetre.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAction>
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
    annulable = false;
    nomFichier = chemin;
    fichierArbre = chemin;
    titre = "Ramelier 5.1 - " + chemin;
    modifie = false;
    optionsModifiees = false;
    RafraichitLabel();
}

void Modele::Commence(const Page &page, const Textes &racine)
{
    arbreOuvert = true;
    contenu = {.personnes = {{1, racine}}, .page = page};
    compteEnTrop = 0;
    selection = 1;
    consultation = false;
    annulable = false;
    nomFichier.clear();
    fichierArbre.clear();
    titre = "Ramelier 5.1 - Nouveau";
    modifie = true;
    optionsModifiees = false;
    RafraichitLabel();
}

void Modele::AbandonneLaCreation()
{
    arbreOuvert = false;
    contenu = {};
    selection = 0;
    consultation = true;
    annulable = false;
    nomFichier.clear();
    fichierArbre.clear();
    modifie = false;
    optionsModifiees = false;
    RafraichitLabel();
}

QStringList Modele::ActionsActives() const
{
    QStringList noms{"actFileNew",       "actFileOpen",      "actFileQuit",       "actPreferences", "actViewToolBar",
                     "actViewStatusBar", "actModeAffichage", "actAssembleArbres", "actImporteGED",  "actAide",
                     "actHelpAbout",     "actHelpAboutQt",   "actWhatsThis"};
    if (arbreOuvert)
        noms += {"actFileSave",   "actFileSaveAs",   "actFilePrint",     "actModeTravail",
                 "actExporteGED", "actPoliceCaract", "actFormatsDessins"};
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
        {fenetre.actModeTravail->text(), consultation ? "Mode édition/modification" : "Consultation"},
        {fenetre.labelInfoModif->text(), labelModifie ? " document modifé " : "                     "},
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

#include "ramelierdoc.h"

#include "arbre.h"
#include "boites.h"
#include "infopersonne.h"
#include "personne.h"

bool RamelierDoc::newDoc(QWidget *parent, QString &repertoire)
{
    initPolicesEtTraits(QString());
    if (arbre) {
        typeFichier = 0;
        SupprimeArbre();
    }
    modifie = false;
    optionsModifiees = false;
    arbre = new Arbre;
    nomFichier.clear();
    arbreCharge = false;
    creationEnCours = true;

    EditPdG(parent);
    if (arbre->infoArbre->titrearbre.isEmpty())
        return AbandonneLaCreation(parent, QStringLiteral("Création du nouvel arbre"),
                                   QStringLiteral("Vous n'avez pas donné de titre au nouvel arbre."));
    CreeLaRacine();
    CreaModifPers(parent, repertoire, true);
    if (arbre->premiere->estVide())
        return AbandonneLaCreation(parent, QStringLiteral("Création de la racine du nouvel arbre"),
                                   QStringLiteral("Vous n'avez pas donné de nom ni de prénom à la personne racine du "
                                                  "nouvel arbre."));
    arbre->premiere->affichable = true;
    arbreCharge = true;
    creationEnCours = false;
    typeFichier = 4;
    modifie = true;
    optionsModifiees = false;
    Q_EMIT documentChanged(1);
    return true;
}

bool RamelierDoc::AbandonneLaCreation(QWidget *parent, const QString &titre, const QString &raison)
{
    SupprimeArbre();
    modifie = false;
    creationEnCours = false;
    Boites::Information(parent, titre, raison + QStringLiteral("\n\nCréation du nouvel arbre abandonnée !!!"));
    return false;
}

void RamelierDoc::CreeLaRacine()
{
    auto *racine = new Personne(0);
    racine->info = new InfoPersonne;
    racine->numero = 1;
    racine->selectionnee = true;
    racine->affichable = false;
    arbre->AjouteASaPlace(racine);
    arbre->selection = racine;
}

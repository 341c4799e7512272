#include "ramelierdoc.h"

#include "arbre.h"
#include "curseurattente.h"
#include "ficarbre.h"
#include "ficoptions.h"
#include "ficxrlg.h"
#include "interlocuteur.h"

#include <utility>

int RamelierDoc::OuvreFichierArbre(const QString &fileName, QString &repertoire)
{
    return LitFichierArbre(fileName, repertoire, arbre, enteteV1, enteteV3, typeFichier);
}

int RamelierDoc::load(const QString &fileName, QString &repertoire, QString &fichierOptions, int mode)
{
    const CurseurAttente attente;
    // May be our own nomFichier. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const QString nom = fileName;
    if (arbre) {
        SupprimeArbre();
        modifie = false;
        optionsModifiees = false;
    }
    nomFichier.clear();
    typeFichier = 0;
    arbre = new Arbre;
    if (OuvreFichierArbre(nom, repertoire) != 0) {
        typeFichier = 0;  // what was read of a damaged older file is not to be converted
        return 0;
    }
    if (mode == CiblePere) {
        delete std::exchange(arbrePere, std::exchange(arbre, nullptr));
    } else if (mode == CibleMere) {
        delete std::exchange(arbreMere, std::exchange(arbre, nullptr));
    } else if (mode == CibleArbre) {
        if (optionsParArbre)
            initPolicesEtTraits(fichierOptions);
        else
            initPolicesEtTraitsMini();
        nomFichier = nom;
        arbreCharge = true;
        Q_EMIT documentChanged(1);
        modifie = false;
        optionsModifiees = false;
    }
    return 1;
}

void RamelierDoc::SauveLesOptions(const QString &fichier)
{
    if (saveOptions(fichier, &formats, &polices, OptionsParArbre))
        return;
    Interlocuteur::Courant().Avertissement(
        QStringLiteral("Options de l'arbre"),
        QStringLiteral("L'arbre est enregistré, mais pas ses options de dessin ni ses caractères :\n"
                       "le fichier %1 ne peut pas être écrit.\n"
                       "Pour recommencer : « Options de dessin... », « OK », puis « Sauver ».")
            .arg(fichier));
}

bool RamelierDoc::save(QString &fichierOptions)
{
    const CurseurAttente attente;
    if (!arbre || !writeFicXRLG(nomFichier, arbre))
        return false;
    modifie = false;
    if (optionsModifiees)
        SauveLesOptions(fichierOptions);
    optionsModifiees = false;
    return true;
}

bool RamelierDoc::saveAs(const QString &fileName, QString &fichierOptions, bool avecOptions)
{
    if (!arbre)
        return false;
    const CurseurAttente attente;
    const bool ancien = typeFichier == 1 || typeFichier == 3;
    typeFichier = 4;
    if (!writeFicXRLG(fileName, arbre)) {
        // The next save must ask again: written under its old name, the tree could not be read back.
        if (ancien)
            nomFichier.clear();
        return false;
    }
    nomFichier = fileName;
    modifie = false;
    if (optionsModifiees || avecOptions)
        SauveLesOptions(fichierOptions);
    optionsModifiees = false;
    return true;
}

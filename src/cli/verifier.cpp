#include "verifier.h"

#include "verification.h"

Sortie ExecuteVerifier(const QStringList &mots)
{
    const QString json = QStringLiteral("json");
    Analyseur analyseur(commandeVerifier);
    analyseur.Option(json, QStringLiteral("Un tableau JSON, un objet par ligne, au lieu de phrases."));
    if (const auto fin = analyseur.Lit(mots))
        return *fin;
    ListeDeConstats liste(stdout, analyseur.A(json));
    for (const QString &fichier : analyseur.Fichiers())
        VerifieUnFichier(fichier, [&](const Constat &constat) { liste.Ajoute(fichier, constat); });
    liste.Termine();
    return liste.AUneErreur() ? Sortie::NonFait : Sortie::Fait;
}

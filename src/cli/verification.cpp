#include "verification.h"

#include "arbre.h"
#include "coherence.h"
#include "ficoldrlg.h"
#include "gedcomfiches.h"
#include "lecture.h"
#include "lecturesilencieuse.h"

#include <QFileInfo>

namespace {

constexpr auto remarque = Constat::Gravite::Remarque;
constexpr auto erreur = Constat::Gravite::Erreur;

void CompareLeCompte(const char *quoi, quint64 ecrit, quint64 vrai, const SurConstat &surConstat)
{
    if (ecrit == vrai)
        return;
    // The program's own files announce too many: it adds those that it reads to what was written.
    surConstat(
        {.gravite = ecrit < vrai ? erreur : remarque,
         .texte = QStringLiteral("nombre de %1 : %2 au lieu de %3").arg(QString::fromUtf8(quoi)).arg(ecrit).arg(vrai)});
}

void VerifieXRLG(const QString &nom, const SurConstat &surConstat)
{
    QFile fichier(nom);
    QString cause;
    if (!OuvreEnLecture(fichier, QIODevice::ReadOnly, cause)) {
        surConstat({.texte = QStringLiteral("impossible de lire le fichier : ") + cause});
        return;
    }
    Arbre arbre;
    if (const auto arret = LitEnSilence(fichier.readAll(), arbre)) {
        surConstat({.texte = arret->cause, .ligne = arret->ligne, .colonne = arret->colonne});
        return;
    }
    VerifieUnArbre(arbre, QFileInfo(nom).absolutePath(), surConstat);
    const Coherence coherence(arbre);
    CompareLeCompte("personnes", arbre.nombrePersonnes - coherence.NombrePersonnes(), coherence.NombrePersonnes(),
                    surConstat);
    CompareLeCompte("générations", arbre.nombreGenerations, coherence.NombreGenerations(), surConstat);
}

void VerifieRLG(const QString &nom, const SurConstat &surConstat)
{
    Arbre arbre;
    QString sansPhotos = DossierSansPhotos();
    QString enteteV1 = enteteRlgV1;
    QString enteteV3 = enteteRlgV3;
    int version = 0;
    const int resultat = readFicOldRLG(nom, sansPhotos, &arbre, enteteV1, enteteV3, version);
    if (resultat == 1)
        surConstat({.texte = QStringLiteral("impossible de lire le fichier")});
    else if (resultat != 0)
        surConstat({.texte = QStringLiteral("ce n'est pas un ancien arbre")});
    if (resultat != 0)
        return;
    VerifieUnArbre(arbre, QFileInfo(nom).absolutePath(), surConstat);
    CompareLeCompte("générations", arbre.nombreGenerations, Coherence(arbre).NombreGenerations(), surConstat);
}

void VerifieGEDCOM(const QString &nom, const SurConstat &surConstat)
{
    const auto fiches = LitFichesGED(nom);
    if (!fiches)
        surConstat({.texte = QStringLiteral("impossible de lire le fichier")});
    else if (fiches->individus.isEmpty())
        surConstat({.texte = QStringLiteral("aucun individu")});
    else
        VerifieDesFiches(*fiches, surConstat);
}

}  // namespace

void VerifieUnFichier(const QString &nom, const SurConstat &surConstat)
{
    if (!QFileInfo::exists(nom))
        surConstat({.texte = QStringLiteral("le fichier n'existe pas")});
    else if (nom.endsWith(u".ged", Qt::CaseInsensitive))
        VerifieGEDCOM(nom, surConstat);
    else if (nom.contains(u".xrlg", Qt::CaseInsensitive))
        VerifieXRLG(nom, surConstat);
    else if (nom.contains(u".rlg", Qt::CaseInsensitive))
        VerifieRLG(nom, surConstat);
    else
        surConstat(
            {.texte = QStringLiteral("ce n'est pas un arbre : le nom doit se terminer par .xrlg, .rlg ou .ged")});
}

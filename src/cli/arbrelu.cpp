#include "arbrelu.h"

#include "arbre.h"
#include "ecriture.h"
#include "etape.h"
#include "ficarbre.h"
#include "gedcomexport.h"
#include "gedcomimport.h"
#include "infopersonne.h"
#include "message.h"
#include "personne.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace {

bool FinitPar(const QString &nom, QLatin1StringView suffixe)
{
    return nom.endsWith(suffixe, Qt::CaseInsensitive);
}

bool EstUnArbre(const QString &nom)
{
    return FinitPar(nom, QLatin1StringView(".xrlg")) || FinitPar(nom, QLatin1StringView(".rlg"));
}

bool Importe(const QString &nom, Arbre &arbre)
{
    ImporterDeFichierGEDCOM(nullptr, nom, &arbre);
    arbre.infoArbre->titrearbre = TitreDImport(nom);
    return arbre.premiere != nullptr;
}

bool Charge(const QString &nom, Arbre &arbre)
{
    QString repertoire = QFileInfo(nom).absolutePath();
    if (LitFichierArbre(nom, repertoire, &arbre) == 0)
        return true;
    EcritLErreur(QStringLiteral("Impossible de charger le fichier ") + nom);
    return false;
}

/// As they are, "&", "<", "]]>" and two characters that Unicode keeps for itself would end a tree file for its reader, which
/// never sees a "\r".
bool GeneLaRelecture(const QString &texte)
{
    return std::any_of(texte.cbegin(), texte.cend(),
                       [](QChar c) { return c == u'&' || c == u'<' || c == u'\r' || c == u'\uFFFE' || c == u'\uFFFF'; })
        || texte.contains(u"]]>");
}

bool GeneLaRelecture(const InfoPersonne &info)
{
    const std::array textes{&info.nom,       &info.prenom, &info.datenaissance, &info.lieunaissance, &info.datedeces,
                            &info.lieudeces, &info.divers, &info.fichtml,       &info.ficphoto};
    return std::any_of(textes.begin(), textes.end(), [](const QString *texte) { return GeneLaRelecture(*texte); });
}

bool GeneLaRelecture(const InfoArbre &titres)
{
    const std::array textes{&titres.titrearbre, &titres.creepar, &titres.date, &titres.majpar, &titres.datemaj};
    return std::any_of(textes.begin(), textes.end(), [](const QString *texte) { return GeneLaRelecture(*texte); });
}

bool EcritXRLG(const Arbre &arbre, const QString &sortie)
{
    EcritureFichier ecriture(sortie, EcritureFichier::Ancien::Garde);
    if (ecriture.Ouvre() && EcritArbreXRLG(ecriture.Appareil(), arbre, TextesPour(arbre)) && ecriture.Termine())
        return true;
    EcritLErreur(QStringLiteral("Impossible d'écrire dans le fichier %1: %2.").arg(sortie, ecriture.Erreur()));
    return false;
}

}  // namespace

bool EstGEDCOM(const QString &nom)
{
    return FinitPar(nom, QLatin1StringView(".ged"));
}

std::unique_ptr<Arbre> LitUnArbre(const QString &nom)
{
    if (!QFileInfo(nom).isFile()) {
        EcritLErreur(QStringLiteral("Le fichier ") + nom + QStringLiteral(" n'existe pas"));
        return nullptr;
    }
    if (!EstGEDCOM(nom) && !EstUnArbre(nom)) {
        EcritLErreur(
            QStringLiteral("Le fichier %1 n'est pas un arbre : son nom doit se terminer par .xrlg, .rlg ou .ged")
                .arg(nom));
        return nullptr;
    }
    const Etape etape(QStringLiteral("lecture de ") + nom);
    auto arbre = std::make_unique<Arbre>();
    const bool lu = EstGEDCOM(nom) ? Importe(nom, *arbre) : Charge(nom, *arbre);
    return lu ? std::move(arbre) : nullptr;
}

TextesXRLG TextesPour(const Arbre &arbre)
{
    bool gene = GeneLaRelecture(*arbre.infoArbre);
    for (const Personne *personne = arbre.premiere; personne && !gene; personne = personne->suivante)
        gene = personne->info && GeneLaRelecture(*personne->info);
    return gene ? TextesXRLG::Echappes : TextesXRLG::TelsQuels;
}

bool PeutEtreEcrit(const QString &nom)
{
    return FinitPar(nom, QLatin1StringView(".xrlg")) || EstGEDCOM(nom);
}

bool EcritUnArbre(const Arbre &arbre, const QString &origine, const QString &sortie)
{
    const Etape etape(QStringLiteral("écriture de ") + sortie);
    if (!EstGEDCOM(sortie))
        return EcritXRLG(arbre, sortie);
    if (EcritGEDCOM(nullptr, sortie, arbre, origine))
        return true;
    EcritLErreur(QStringLiteral("Impossible d'écrire dans le fichier ") + sortie);
    return false;
}

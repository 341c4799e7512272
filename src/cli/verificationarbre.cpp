#include "arbre.h"
#include "coherence.h"
#include "identite.h"
#include "infopersonne.h"
#include "personne.h"
#include "verification.h"
#include "verificationdates.h"

#include <QFileInfo>
#include <QHash>

namespace {

class VerificateurDArbre
{
public:
    VerificateurDArbre(const Arbre &unArbre, const QString &unDossier, const SurConstat &unSurConstat)
        : arbre(unArbre)
        , dossier(unDossier)
        , surConstat(unSurConstat)
        , coherence(unArbre)
    {
    }

    void Verifie()
    {
        if (!arbre.premiere) {
            surConstat({.gravite = Constat::Gravite::Remarque, .texte = QStringLiteral("aucune personne")});
            return;
        }
        NoteLesNaissances();
        quint64 precedent = 0;
        for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
            VerifieLeNumero(*personne, precedent);
            VerifieLesLiens(*personne);
            precedent = personne->numero;
            if (!personne->info)
                continue;
            VerifieLesDates(*personne);
            VerifieLesFichiers(*personne);
            ChercheUnImplexe(*personne);
        }
    }

private:
    void Erreur(const Personne &personne, const QString &texte) const
    {
        surConstat({.texte = texte, .numero = personne.numero});
    }

    void NoteLesNaissances()
    {
        for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
            if (!personne->info)
                continue;
            const DateComprise naissance = ComprendLaDate(personne->info->datenaissance);
            if (naissance.etat == DateComprise::Etat::Comprise)
                naissances.insert(personne->numero, personne);
        }
    }

    void VerifieLeNumero(const Personne &personne, quint64 precedent)
    {
        if (personne.numero == 0) {
            Erreur(personne, QStringLiteral("une personne n'a pas de numéro : ") + Nom(personne));
            return;
        }
        const quint64 porteurs = coherence.Porteurs(personne.numero);
        if (porteurs > 1 && !doubles.contains(personne.numero)) {
            doubles.insert(personne.numero);
            Erreur(personne, QStringLiteral("numéro porté par %1 personnes").arg(porteurs));
        }
        if (personne.numero < precedent)
            Erreur(personne, QStringLiteral("après le n° %1 : les numéros ne se suivent pas").arg(precedent));
    }

    void VerifieLesLiens(const Personne &personne) const
    {
        for (const Coherence::Ecart &ecart : coherence.De(personne)) {
            Erreur(personne,
                   QStringLiteral("%1 %2 au lieu de %3")
                       .arg(QString::fromUtf8(ecart.nom))
                       .arg(ecart.ecrit)
                       .arg(ecart.voulu));
        }
        if (personne.numero > 1 && coherence.Porteurs(personne.numero / 2) == 0)
            Erreur(personne, QStringLiteral("son enfant, le n° %1, manque").arg(personne.numero / 2));
    }

    void VerifieLesDates(const Personne &personne) const
    {
        const DatesDeVie dates(personne.info->datenaissance, personne.info->datedeces);
        for (const QString &faute : dates.Fautes())
            Erreur(personne, faute);
        const Personne *enfant = personne.numero > 1 ? naissances.value(personne.numero / 2) : nullptr;
        if (enfant && DatesDeVie(enfant->info->datenaissance, {}).NaitAvant(dates)) {
            Erreur(personne,
                   QStringLiteral("naissance (%1) après celle de son enfant, le n° %2 (%3)")
                       .arg(dates.naissanceEcrite)
                       .arg(enfant->numero)
                       .arg(enfant->info->datenaissance));
        }
    }

    void VerifieLesFichiers(const Personne &personne) const
    {
        const InfoPersonne &info = *personne.info;
        if (!info.ficphoto.isEmpty() && !EstLa(info.ficphoto))
            Erreur(personne, QStringLiteral("photo absente : ") + info.ficphoto);
        if (!info.fichtml.isEmpty() && !EstLa(info.fichtml))
            Erreur(personne, QStringLiteral("fiche absente : ") + info.fichtml);
    }

    [[nodiscard]] bool EstLa(const QString &nom) const { return QFileInfo(dossier + u'/' + nom).isFile(); }

    void ChercheUnImplexe(const Personne &personne)
    {
        const QString cle = Identite(personne);
        if (cle.isEmpty())
            return;
        const auto connue = identites.constFind(cle);
        if (connue == identites.cend()) {
            identites.insert(cle, personne.numero);
        } else if (*connue != personne.numero) {
            surConstat({.gravite = Constat::Gravite::Remarque,
                        .texte = QStringLiteral("même personne que le n° %1 (implexe) : %2, %3")
                                     .arg(*connue)
                                     .arg(Nom(personne), personne.info->datenaissance),
                        .numero = personne.numero});
        }
    }

    static QString Nom(const Personne &personne)
    {
        return personne.info ? (personne.info->prenom + u' ' + personne.info->nom).simplified() : QString();
    }

    const Arbre &arbre;
    QString dossier;
    const SurConstat &surConstat;
    Coherence coherence;
    QSet<quint64> doubles;
    QHash<quint64, const Personne *> naissances;
    QHash<QString, quint64> identites;
};

}  // namespace

void VerifieUnArbre(const Arbre &arbre, const QString &dossier, const SurConstat &surConstat)
{
    VerificateurDArbre(arbre, dossier, surConstat).Verifie();
}

#include "gedcomexport.h"

#include "arbre.h"
#include "ecriture.h"
#include "infopersonne.h"
#include "interlocuteur.h"
#include "personne.h"

#include <QDate>
#include <QFileInfo>

namespace {

constexpr auto adresseDuProgramme = "contact@ramelier.example";

/// Lines of a GEDCOM file, two blanks a level in front of them: deliberate.
class LignesGED
{
public:
    void Ligne(int niveau, const QString &texte)
    {
        octets.append(qsizetype(2) * niveau, ' ');
        octets += QByteArray::number(niveau) + ' ' + texte.toLatin1() + "\r\n";
    }

    void LigneNonVide(int niveau, const QString &balise, const QString &texte)
    {
        if (!texte.isEmpty())
            Ligne(niveau, balise + texte);
    }

    [[nodiscard]] const QByteArray &Octets() const { return octets; }

private:
    QByteArray octets;
};

QString Individu(quint64 numero)
{
    return QStringLiteral("@I%1@").arg(numero);
}

/// The family of the father \a pere and the mother who bears the next number.
QString Famille(quint64 pere)
{
    return QStringLiteral("@F") + QString::number(pere) + QString::number(pere + 1) + u'@';
}

QString Auteur(const QString &quoi, const QString &nom, const QString &date)
{
    return QStringLiteral("CONT ") + quoi + nom + (date.isEmpty() ? QString() : QStringLiteral(" - Date : ") + date);
}

void EcritEnTete(LignesGED &lignes, const InfoArbre &info, const QString &nomGED, const QString &nomArbre)
{
    lignes.Ligne(0, QStringLiteral("HEAD"));
    lignes.Ligne(1, QStringLiteral("SOUR Ramelier"));
    lignes.Ligne(2, QStringLiteral("VERS 3.2"));
    lignes.Ligne(2, QStringLiteral("NAME Ramelier - Arbre généalogique"));
    lignes.Ligne(2, QStringLiteral("CORP R. Lidou"));
    lignes.Ligne(3, QStringLiteral("ADDR ") + QString::fromLatin1(adresseDuProgramme));
    lignes.Ligne(1, QStringLiteral("DATE ") + QDate::currentDate().toString(Qt::TextDate));
    lignes.Ligne(1, QStringLiteral("CHAR ANSI"));
    if (!info.creepar.isEmpty())
        lignes.Ligne(1, QStringLiteral("SUBM @S0@"));
    lignes.Ligne(1, QStringLiteral("FILE ") + QFileInfo(nomGED).fileName());
    lignes.Ligne(2, QStringLiteral("NOTE Exporté du fichier : ") + QFileInfo(nomArbre).fileName());
    lignes.LigneNonVide(3, QStringLiteral("CONT Titre de l'arbre : "), info.titrearbre);
    if (!info.creepar.isEmpty())
        lignes.Ligne(3, Auteur(QStringLiteral("Auteur : "), info.creepar, info.date));
    if (!info.majpar.isEmpty())
        lignes.Ligne(3, Auteur(QStringLiteral("Mise à jour - Auteur : "), info.majpar, info.datemaj));
    lignes.Ligne(1, QStringLiteral("GEDC"));
    lignes.Ligne(2, QStringLiteral("VERS 5.5"));
    lignes.Ligne(2, QStringLiteral("FORM LINEAGE_LINKED"));
    if (!info.creepar.isEmpty()) {
        lignes.Ligne(0, QStringLiteral("@S0@ SUBM"));
        lignes.Ligne(1, QStringLiteral("NAME ") + info.creepar);
    }
}

void EcritEvenement(LignesGED &lignes, const QString &balise, const QString &date, const QString &lieu)
{
    if (date.isEmpty() && lieu.isEmpty())
        return;
    lignes.Ligne(1, balise);
    lignes.LigneNonVide(2, QStringLiteral("DATE "), date);
    lignes.LigneNonVide(2, QStringLiteral("PLAC "), lieu);
}

bool AUnParent(const Personne &personne)
{
    return personne.pere != 0 || personne.mere != 0;
}

/// The root's own number tells no sex.
QString Sexe(QWidget *parent, quint64 numero)
{
    const bool masculin = numero == 1 ? Interlocuteur::Courant().RacineMasculine(parent) : numero % 2 == 0;
    return masculin ? QStringLiteral("M") : QStringLiteral("F");
}

void EcritIndividu(LignesGED &lignes, QWidget *parent, const Personne &personne)
{
    const InfoPersonne &info = *personne.info;
    const quint64 numero = personne.numero;
    lignes.Ligne(0, Individu(numero) + QStringLiteral(" INDI"));
    lignes.Ligne(1,
                 QStringLiteral("NAME ") + (info.prenom.isEmpty() ? QString() : info.prenom + u'/') + info.nom + u'/');
    lignes.Ligne(1, QStringLiteral("SEX ") + Sexe(parent, numero));
    EcritEvenement(lignes, QStringLiteral("BIRT"), info.datenaissance, info.lieunaissance);
    EcritEvenement(lignes, QStringLiteral("DEAT"), info.datedeces, info.lieudeces);
    if (numero != 1)
        lignes.Ligne(1, QStringLiteral("FAMS ") + Famille(numero - numero % 2));
    if (AUnParent(personne))
        lignes.Ligne(1, QStringLiteral("FAMC ") + Famille(2 * numero));
    lignes.LigneNonVide(1, QStringLiteral("OCCU "), info.divers);
    if (!info.fichtml.isEmpty()) {
        lignes.Ligne(1, QStringLiteral("NOTE  informations complémentaires : "));
        lignes.Ligne(2, QStringLiteral("CONT  voir fichier (html ou texte) : ") + info.fichtml);
        lignes.LigneNonVide(2, QStringLiteral("CONT  Photo voir fichier : "), info.ficphoto);
    }
    lignes.LigneNonVide(1, QStringLiteral("OBJE "), info.ficphoto);
}

void EcritFamille(LignesGED &lignes, const Personne &enfant)
{
    const quint64 pere = 2 * enfant.numero;
    lignes.Ligne(0, Famille(pere) + QStringLiteral(" FAM"));
    if (enfant.pere != 0)
        lignes.Ligne(1, QStringLiteral("HUSB ") + Individu(pere));
    if (enfant.mere != 0)
        lignes.Ligne(1, QStringLiteral("WIFE ") + Individu(pere + 1));
    lignes.Ligne(1, QStringLiteral("CHIL ") + Individu(enfant.numero));
    lignes.Ligne(1, QStringLiteral("NCHI 1"));
}

LignesGED ArbreEnGED(QWidget *parent, const QString &nomGED, const Arbre &arbre, const QString &nomArbre)
{
    LignesGED lignes;
    EcritEnTete(lignes, *arbre.infoArbre, nomGED, nomArbre);
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (!personne->estVide())
            EcritIndividu(lignes, parent, *personne);
    }
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        if (AUnParent(*personne))
            EcritFamille(lignes, *personne);
    }
    lignes.Ligne(0, QStringLiteral("TRLR"));
    return lignes;
}

bool Ecrit(EcritureFichier &ecriture, const QByteArray &octets)
{
    return ecriture.Appareil().write(octets) == octets.size() && ecriture.Termine();
}

}  // namespace

bool EcritGEDCOM(QWidget *parent, const QString &nomFichierGED, const Arbre &arbre, const QString &nomFichierArbre)
{
    EcritureFichier ecriture(nomFichierGED);
    return ecriture.Ouvre() && Ecrit(ecriture, ArbreEnGED(parent, nomFichierGED, arbre, nomFichierArbre).Octets());
}

void ExporterVersFichierGEDCOM(QWidget *parent, const QString &nomFichierGED, Arbre *arbre, QString &nomFichierArbre)
{
    const QString titre = QStringLiteral("Exportation vers GEDCOM");
    if (!EcritGEDCOM(parent, nomFichierGED, *arbre, nomFichierArbre)) {
        Interlocuteur::Courant().Information(titre, QStringLiteral("Echec à l'exportation du fichier"));
        return;
    }
    Interlocuteur::Courant().Information(
        titre,
        QStringLiteral("Exportation du fichier : ") + QFileInfo(nomFichierArbre).fileName()
            + QStringLiteral("\nvers fichier : ") + QFileInfo(nomFichierGED).fileName() + QStringLiteral("\nterminée"));
}

#include "ficxrlg.h"

#include "arbre.h"
#include "ecriture.h"
#include "infopersonne.h"
#include "interlocuteur.h"
#include "personne.h"

#include <QByteArray>
#include <QIODevice>
#include <QStringEncoder>

namespace {

/// What the reader takes for markup or never sees as a character, in a form that it gives back.
QString Echappe(const QString &texte)
{
    QString echappe = texte.toHtmlEscaped();
    for (const char16_t caractere : {u'\r', u'\uFFFE', u'\uFFFF'}) {
        if (echappe.contains(caractere))
            echappe.replace(QChar(caractere), QStringLiteral("&#%1;").arg(int(caractere)));
    }
    return echappe;
}

/// Collects lines in UTF-8 and hands them to the device block by block.
class LignesXRLG
{
public:
    LignesXRLG(QIODevice &appareil, TextesXRLG desTextes)
        : sortie(appareil)
        , echappe(desTextes == TextesXRLG::Echappes)
    {
        tampon.reserve(taille + 4096);
    }

    void Ligne(int niveau, const char *texte)
    {
        Retrait(niveau);
        tampon.append(texte).append('\n');
        if (tampon.size() >= taille)
            Vide();
    }

    void Element(int niveau, const char *balise, const QString &texte)
    {
        Ouvre(niveau, balise);
        Code(echappe ? Echappe(texte) : texte);
        Ferme(balise);
    }

    void ElementNonVide(int niveau, const char *balise, const QString &texte)
    {
        if (!texte.isEmpty())
            Element(niveau, balise, texte);
    }

    void Nombre(int niveau, const char *balise, quint64 nombre)
    {
        Ouvre(niveau, balise);
        tampon.append(QByteArray::number(nombre));
        Ferme(balise);
    }

    [[nodiscard]] bool Termine()
    {
        Vide();
        return reussi;
    }

private:
    static constexpr qsizetype taille = 1 << 16;

    void Retrait(int niveau) { tampon.append(qsizetype(2) * niveau, ' '); }

    void Ouvre(int niveau, const char *balise)
    {
        Retrait(niveau);
        tampon.append('<').append(balise).append('>');
    }

    void Ferme(const char *balise) { tampon.append("</").append(balise).append(">\n"); }

    void Code(const QString &texte)
    {
        const qsizetype debut = tampon.size();
        tampon.resize(debut + codeur.requiredSpace(texte.size()));
        const char *fin = codeur.appendToBuffer(tampon.data() + debut, texte);
        tampon.truncate(fin - tampon.constData());
    }

    void Vide()
    {
        reussi = reussi && sortie.write(tampon) == tampon.size();
        tampon.resize(0);
    }

    QIODevice &sortie;
    bool echappe;
    QByteArray tampon;
    QStringEncoder codeur{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    bool reussi = true;
};

void EcritPageDeGarde(LignesXRLG &lignes, const InfoArbre &info)
{
    lignes.Ligne(2, "<infoarbre>");
    lignes.Element(3, "titrearbre", info.titrearbre);
    lignes.ElementNonVide(3, "creepar", info.creepar);
    lignes.ElementNonVide(3, "date", info.date);
    lignes.ElementNonVide(3, "majpar", info.majpar);
    lignes.ElementNonVide(3, "datemaj", info.datemaj);
    lignes.Ligne(2, "</infoarbre>");
}

void EcritInfoPersonne(LignesXRLG &lignes, const InfoPersonne &info)
{
    lignes.ElementNonVide(4, "nom", info.nom);
    lignes.ElementNonVide(4, "prenom", info.prenom);
    lignes.ElementNonVide(4, "datenaissance", info.datenaissance);
    lignes.ElementNonVide(4, "lieunaissance", info.lieunaissance);
    lignes.ElementNonVide(4, "datedeces", info.datedeces);
    lignes.ElementNonVide(4, "lieudeces", info.lieudeces);
    lignes.ElementNonVide(4, "divers", info.divers);
    lignes.ElementNonVide(4, "fichtml", info.fichtml);
    lignes.ElementNonVide(4, "ficphoto", info.ficphoto);
}

void EcritPersonne(LignesXRLG &lignes, const Personne &personne)
{
    lignes.Ligne(2, "<personne>");
    lignes.Nombre(3, "numero", personne.numero);
    lignes.Nombre(3, "numerogeneration", personne.numerogeneration);
    lignes.Nombre(3, "pere", personne.pere);
    lignes.Nombre(3, "mere", personne.mere);
    lignes.Nombre(3, "enfant", personne.enfant);
    lignes.Ligne(3, "<infopersonne>");
    if (personne.info)
        EcritInfoPersonne(lignes, *personne.info);
    lignes.Ligne(3, "</infopersonne>");
    lignes.Ligne(2, "</personne>");
}

}  // namespace

bool EcritArbreXRLG(QIODevice &sortie, const Arbre &arbre, TextesXRLG textes)
{
    LignesXRLG lignes(sortie, textes);
    lignes.Ligne(0, R"(<?xml version="1.0" encoding="UTF-8"?>)");
    lignes.Ligne(0, "<!DOCTYPE xrlg>");
    lignes.Ligne(0, R"(<xrlg version="1.0">)");
    lignes.Ligne(1, "<arbre>");
    EcritPageDeGarde(lignes, *arbre.infoArbre);
    lignes.Nombre(2, "nombrepersonnes", arbre.nombrePersonnes);
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        EcritPersonne(lignes, *personne);
    // After the persons, deliberately not beside their count.
    lignes.Nombre(2, "nombregenerations", arbre.nombreGenerations);
    lignes.Ligne(1, "</arbre>");
    lignes.Ligne(0, "</xrlg>");
    return lignes.Termine();
}

bool writeFicXRLG(const QString &fileName, Arbre *arbre)
{
    EcritureFichier ecriture(fileName, EcritureFichier::Ancien::Garde);
    if (ecriture.Ouvre() && EcritArbreXRLG(ecriture.Appareil(), *arbre) && ecriture.Termine())
        return true;
    Interlocuteur::Courant().Avertissement(
        QStringLiteral("Fichier XRLG"),
        QStringLiteral("Impossible d'écrire dans le fichier %1:\n%2.").arg(fileName, ecriture.Erreur()));
    return false;
}

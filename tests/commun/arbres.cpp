#include "arbres.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"

#include <QMap>
#include <QStringList>

#include <algorithm>
#include <bit>
#include <random>

std::unique_ptr<Arbre> ArbreDeNumeros(const QList<quint64> &numeros)
{
    auto arbre = std::make_unique<Arbre>();
    QMap<quint64, Personne *> parNumero;
    for (const quint64 numero : numeros) {
        auto *personne = new Personne(static_cast<unsigned short>(std::bit_width(numero) - 1));
        personne->numero = numero;
        personne->enfant = numero / 2;
        personne->info = new InfoPersonne;
        personne->info->nom = u'N' + QString::number(numero);
        arbre->AjouteALaFin(personne);
        parNumero.insert(numero, personne);
        arbre->nombreGenerations = std::max<unsigned short>(
            arbre->nombreGenerations, static_cast<unsigned short>(personne->numerogeneration + 1));
        if (Personne *enfant = parNumero.value(numero / 2)) {
            (numero % 2 == 0 ? enfant->pere : enfant->mere) = numero;
            (numero % 2 == 0 ? enfant->ptrPere : enfant->ptrMere) = personne;
        }
    }
    return arbre;
}

std::unique_ptr<Arbre> ArbreComplet(int generations)
{
    QList<quint64> numeros;
    for (quint64 numero = 1; numero < quint64(1) << generations; ++numero)
        numeros += numero;
    return ArbreDeNumeros(numeros);
}

std::unique_ptr<Arbre> ArbreAuHasard(const Hasard &hasard)
{
    std::mt19937 tirage(hasard.graine);
    std::uniform_real_distribution<double> chance(0.0, 1.0);
    QList<quint64> numeros{1};
    for (qsizetype i = 0; i < numeros.size() && numeros.size() < hasard.personnes; ++i) {
        if (numeros.at(i) >= quint64(1) << 62)
            continue;
        for (const quint64 parent : {2 * numeros.at(i), 2 * numeros.at(i) + 1}) {
            if (chance(tirage) < hasard.chanceParent)
                numeros += parent;
        }
    }
    auto arbre = ArbreDeNumeros(numeros);
    arbre->nombreGenerations = static_cast<unsigned short>(arbre->nombreGenerations + hasard.generationsEnTrop);
    for (Personne *personne = arbre->premiere; personne; personne = personne->suivante) {
        if (chance(tirage) < hasard.chancePhoto)
            personne->info->etatPhoto = InfoPersonne::PhotoChargee;
    }
    return arbre;
}

Personne *Trouve(const Arbre &arbre, quint64 numero)
{
    Personne *personne = arbre.premiere;
    while (personne && personne->numero != numero)
        personne = personne->suivante;
    return personne;
}

QString ArbreEnTexte(const Arbre &arbre)
{
    QString texte;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        texte += QString(2 * personne->numerogeneration, u' ') + QString::number(personne->numero);
        if (personne->info && !personne->info->prenom.isEmpty())
            texte += u' ' + personne->info->prenom;
        if (personne->info && !personne->info->nom.isEmpty())
            texte += u' ' + personne->info->nom;
        texte += u'\n';
    }
    return texte;
}

QString NumerosEnTexte(const Arbre &arbre)
{
    QStringList enAvant;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        enAvant += QString::number(personne->numero);
    QStringList enArriere;
    for (const Personne *personne = arbre.derniere; personne; personne = personne->precedente)
        enArriere.prepend(QString::number(personne->numero));
    return enAvant == enArriere ? enAvant.join(u' ') : QStringLiteral("liste brisée");
}

QString PositionsEnTexte(const Arbre &arbre)
{
    QStringList positions;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante)
        positions += QStringLiteral("%1:%2,%3").arg(personne->numero).arg(personne->x).arg(personne->y);
    return positions.join(u' ');
}

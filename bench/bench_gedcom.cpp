#include "arbre.h"
#include "gedcomimport.h"
#include "grandarbre.h"
#include "interlocuteur.h"
#include "mesure.h"

#include <QFile>
#include <QTemporaryDir>

#include <fstream>

namespace {

/// Chooses the first individual as root, without a word.
class ChoisitLePremier : public Interlocuteur
{
public:
    void Information(const QString &, const QString &) override { }
    void Avertissement(const QString &, const QString &) override { }
    std::optional<QString> ChoisitRacine(QWidget *, const Lignes &) override { return QStringLiteral("@I1@"); }
    bool RacineMasculine(QWidget *) override { return true; }
};

class FichierGed
{
public:
    explicit FichierGed(int personnes)
        : nom(dossier.filePath(QStringLiteral("a.ged")))
    {
        QFile fichier(nom);
        if (!fichier.open(QIODevice::WriteOnly) || fichier.write(GrandGedcom(personnes)) < 0)
            qFatal("a.ged");
        Interlocuteur::Installe(std::make_unique<ChoisitLePremier>());
    }

    QTemporaryDir dossier;
    QString nom;
};

void Importe(benchmark::State &etat, int personnes)
{
    const FichierGed fichier(personnes);
    for (auto _ : etat) {
        auto *arbre = new Arbre;
        ImporterDeFichierGEDCOM(nullptr, fichier.nom, arbre);
        etat.PauseTiming();
        if (!arbre->premiere)
            etat.SkipWithError("import");
        delete arbre;
        etat.ResumeTiming();
    }
}

void LitLesLignes(benchmark::State &etat, int personnes)
{
    const FichierGed fichier(personnes);
    const std::string nom = fichier.nom.toStdString();
    for (auto _ : etat) {
        std::ifstream entree(nom);
        std::string ligne;
        std::size_t longueur = 0;
        while (std::getline(entree, ligne))
            longueur += ligne.size();
        benchmark::DoNotOptimize(longueur);
    }
}

}  // namespace

void EnregistreGedcom(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10)
        EnregistreMesure(
            {"import GEDCOM", 4, personnes}, [=](benchmark::State &etat) { Importe(etat, personnes); },
            [=](benchmark::State &etat) { LitLesLignes(etat, personnes); });
}

#include "arbre.h"
#include "ficxrlg.h"
#include "grandarbre.h"
#include "mesure.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <unistd.h>

namespace {

/// A tree file in a folder of its own.
class Fichier
{
public:
    explicit Fichier(int personnes)
        : arbre(GrandArbre(Forme::ParGeneration, personnes))
        , nom(dossier.filePath(QStringLiteral("a.xrlg")))
    {
        writeFicXRLG(nom, arbre.get());
    }

    QTemporaryDir dossier;
    std::unique_ptr<Arbre> arbre;
    QString nom;
};

void Lit(benchmark::State &etat, int personnes)
{
    const Fichier fichier(personnes);
    QString dossier = fichier.dossier.path();
    for (auto _ : etat) {
        auto *arbre = new Arbre;
        if (readFicXRLG(fichier.nom, dossier, arbre) != 0)
            etat.SkipWithError("lecture");
        etat.PauseTiming();
        delete arbre;
        etat.ResumeTiming();
    }
}

void ParcourtLeXml(benchmark::State &etat, int personnes)
{
    const Fichier fichier(personnes);
    for (auto _ : etat) {
        QFile octets(fichier.nom);
        if (!octets.open(QIODevice::ReadOnly))
            etat.SkipWithError("ouverture");
        QXmlInputSource source;
        source.setData(octets.readAll());
        QXmlDefaultHandler sansEffet;
        QXmlSimpleReader lecteur;
        lecteur.setContentHandler(&sansEffet);
        lecteur.parse(source);
    }
}

void Ecrit(benchmark::State &etat, int personnes)
{
    const Fichier fichier(personnes);
    for (auto _ : etat)
        writeFicXRLG(fichier.nom, fichier.arbre.get());
}

/// The same bytes, held in memory, as far as the disk too.
void EcritLesOctets(benchmark::State &etat, int personnes)
{
    const Fichier fichier(personnes);
    QFile lu(fichier.nom);
    if (!lu.open(QIODevice::ReadOnly))
        etat.SkipWithError("ouverture");
    const QByteArray octets = lu.readAll();
    for (auto _ : etat) {
        QFile ecrit(fichier.dossier.filePath(QStringLiteral("b.xrlg")));
        if (!ecrit.open(QIODevice::WriteOnly) || ecrit.write(octets) != octets.size() || !ecrit.flush()
            || ::fsync(ecrit.handle()) != 0)
            etat.SkipWithError("ecriture");
    }
}

}  // namespace

void EnregistreXrlg(int plusGrand)
{
    for (int personnes = 1000; personnes <= plusGrand; personnes *= 10) {
        EnregistreMesure(
            {"lecture .xrlg", 1.6, personnes}, [=](benchmark::State &etat) { Lit(etat, personnes); },
            [=](benchmark::State &etat) { ParcourtLeXml(etat, personnes); });
        EnregistreMesure(
            {.nom = "écriture .xrlg", .limite = 6, .personnes = personnes, .murale = true},
            [=](benchmark::State &etat) { Ecrit(etat, personnes); },
            [=](benchmark::State &etat) { EcritLesOctets(etat, personnes); });
    }
}

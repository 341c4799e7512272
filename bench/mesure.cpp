#include "mesure.h"

#include "ligne.h"

#include <map>
#include <ostream>
#include <regex>
#include <vector>

namespace {

const std::string travailDe = "/travail";
const std::string plancherDe = "/plancher";

std::string Nom(const Mesure &mesure)
{
    return mesure.nom + '/' + std::to_string(mesure.personnes);
}

/// The name of the measure that the benchmark \a nom belongs to.
std::string DebutDe(const std::string &nom)
{
    return nom.substr(0, nom.rfind('/'));
}

struct Enregistree
{
    Mesure mesure;
    bool aUnPlancher;
};

std::map<std::string, Enregistree> &Enregistrees()
{
    static std::map<std::string, Enregistree> enregistrees;
    return enregistrees;
}

/// The names of the measures as they were registered.
std::vector<std::string> &Noms()
{
    static std::vector<std::string> noms;
    return noms;
}

/// What the runs of one benchmark came to.
struct Resultat
{
    double millisecondes;
    benchmark::UserCounters compteurs;
};

class Lignes : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context & /*contexte*/) override { return true; }

    void ReportRuns(const std::vector<Run> &essais) override
    {
        if (essais.empty() || essais.front().run_type != Run::RT_Iteration)
            return;
        const std::string nom = essais.front().run_name.function_name;
        const bool murale = Enregistrees().at(DebutDe(nom)).mesure.murale;
        for (const Run &essai : essais) {
            if (essai.error_occurred) {
                GetErrorStream() << nom << " : " << essai.error_message << '\n';
                return;
            }
            const Resultat resultat{murale ? essai.GetAdjustedRealTime() : essai.GetAdjustedCPUTime(), essai.counters};
            const auto [place, nouveau] = resultats.emplace(nom, resultat);
            if (!nouveau && resultat.millisecondes < place->second.millisecondes)
                place->second = resultat;
        }
        EcritQuandTousSontLa(nom);
    }

private:
    void EcritQuandTousSontLa(const std::string &nom) const
    {
        const std::string debut = DebutDe(nom);
        const auto enregistree = Enregistrees().find(debut);
        const auto travail = resultats.find(debut + travailDe);
        const auto plancher = resultats.find(debut + plancherDe);
        if (enregistree == Enregistrees().end() || travail == resultats.end()
            || (enregistree->second.aUnPlancher && plancher == resultats.end()))
            return;
        const Mesure &mesure = enregistree->second.mesure;
        Ligne ligne{.nom = mesure.nom,
                    .personnes = mesure.personnes,
                    .valeur = travail->second.millisecondes,
                    .unite = "ms",
                    .limite = mesure.limite};
        if (enregistree->second.aUnPlancher)
            ligne.plancher = plancher->second.millisecondes;
        Ecrit(ligne);
        if (!enregistree->second.aUnPlancher)
            return;
        for (const auto &[nomDuCompteur, compteur] : travail->second.compteurs) {
            const auto autre = plancher->second.compteurs.find(nomDuCompteur);
            if (autre != plancher->second.compteurs.end())
                Ecrit({.nom = mesure.nom + ", taille",
                       .personnes = mesure.personnes,
                       .valeur = compteur.value,
                       .unite = nomDuCompteur,
                       .plancher = autre->second.value});
        }
    }

    std::map<std::string, Resultat> resultats;
};

benchmark::internal::Benchmark *Enregistre(const std::string &nom,
                                           const std::function<void(benchmark::State &)> &travail)
{
    return benchmark::RegisterBenchmark(nom.c_str(), travail)->Unit(benchmark::kMillisecond);
}

void EnregistreTravail(const Mesure &mesure, bool aUnPlancher, const std::function<void(benchmark::State &)> &travail)
{
    Enregistrees().insert({Nom(mesure), {mesure, aUnPlancher}});
    Noms().push_back(Nom(mesure));
    auto *enregistre = Enregistre(Nom(mesure) + travailDe, travail);
    if (mesure.fois > 0)
        enregistre->Iterations(mesure.fois);
}

}  // namespace

void EnregistreMesure(const Mesure &mesure, const std::function<void(benchmark::State &)> &travail,
                      const std::function<void(benchmark::State &)> &plancher)
{
    EnregistreTravail(mesure, true, travail);
    Enregistre(Nom(mesure) + plancherDe, plancher);
}

void EnregistreDuree(const Mesure &mesure, const std::function<void(benchmark::State &)> &travail)
{
    EnregistreTravail(mesure, false, travail);
}

void MesureTout()
{
    Lignes lignes;
    const std::regex filtre(benchmark::GetBenchmarkFilter());
    for (const std::string &nom : Noms()) {
        if (std::regex_search(nom, filtre))
            benchmark::RunSpecifiedBenchmarks(&lignes, nom + "/(travail|plancher)");
    }
}

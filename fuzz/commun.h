#pragma once

#include "environnement.h"
#include "interlocuteur.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>

class Arbre;

/// What the targets share.

/// The two functions of a target, called by the fuzzer or by rejoue.cpp.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille);

[[nodiscard]] inline QByteArrayView Vue(const std::uint8_t *octets, std::size_t taille)
{
    return {octets, static_cast<qsizetype>(taille)};
}

/// Stops the process, as a finding, when \a tenue is false. \a propriete tells what should have been true.
void Exige(bool tenue, const char *propriete);

/// Answers at once, without a word.
class InterlocuteurPresse : public Interlocuteur
{
public:
    void Information(const QString &titre, const QString &texte) override;
    void Avertissement(const QString &titre, const QString &texte) override;
    std::optional<QString> ChoisitRacine(QWidget *parent, const Lignes &individus) override;
    bool RacineMasculine(QWidget *parent) override;

    /// The answer to the question for the root, made from the lines offered.
    std::function<std::optional<QString>(const QStringList &)> racine;
    bool masculine = true;
};

/// Who is installed since Demarre().
[[nodiscard]] InterlocuteurPresse &Presse();

/// A folder of its own for this process, where the files of the targets are put.
[[nodiscard]] QString Dossier();
/// Puts \a octets into the file \a nom of Dossier() and gives its path.
QString Pose(const QString &nom, QByteArrayView octets);
[[nodiscard]] QByteArray Contenu(const QString &chemin);

void Tais();
/// Once per process: an application object that lives to its end, in a world of its own, without a word from Qt.
template <typename Application> void Demarre()
{
    static const Environnement environnement;
    static int argc = 1;
    static char nom[] = "ramelier";
    static char *argv[] = {nom, nullptr};
    static const Application application(argc, argv);
    Tais();
}

/// Exige() that the list of \a arbre is linked both ways. Its number of persons.
quint64 VerifieListe(const Arbre &arbre);
/// Exige() that \a arbre is as the readers leave it: a list with data everywhere, and every parent found later in the list
/// under the number that the child names, as the parent of no other child. Its number of persons.
quint64 VerifieArbre(const Arbre &arbre);
/// Exige() what trees made in memory keep besides: numbers that grow, the count, links that follow from the numbers.
void VerifieArbreNumerote(const Arbre &arbre);
/// Exige() that \a arbre is written as `.xrlg` and read back without a change, but for what this format does not keep.
void VerifieAllerRetour(Arbre &arbre);

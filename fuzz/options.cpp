#include "commun.h"
#include "ficoptions.h"
#include "formatsdessins.h"
#include "lespolices.h"

#include <QGuiApplication>

/// The first byte says which header is written, the others are an options file: it is read and written until nothing changes
/// any more.

namespace {

struct Options
{
    FormatsDessins formats;
    LesPolices polices;
};

Options Lit(const QString &chemin)
{
    Options options;
    Exige(LitOptions(chemin, &options.formats, &options.polices), "le fichier s'ouvre");
    return options;
}

/// Without a family on its line the values behind it shift when they are read, and the toolkit makes lists of families out of
/// commas and quotes: the format is so.
bool ADesFamilles(const LesPolices &polices)
{
    for (const QFont *police :
         {&polices.policeTextes, &polices.policeNumeros, &polices.policeTitre, &polices.policeLegende}) {
        const QString famille = police->family();
        if (famille.isEmpty() || famille.contains(u',') || famille.contains(u'\'') || famille.contains(u'"'))
            return false;
    }
    return true;
}

}  // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QGuiApplication>();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    const int type = taille > 0 ? octets[0] % 3 : 0;
    const QByteArrayView reste = Vue(octets, taille).sliced(taille > 0 ? 1 : 0);
    const Options lues = Lit(Pose(QStringLiteral("lu.opt"), reste));
    const QString chemin = Dossier() + QStringLiteral("/ecrit.opt");
    Exige(EcritOptions(chemin, lues.formats, lues.polices, type), "les options s'écrivent");
    if (type > OptionsParArbre || !ADesFamilles(lues.polices))
        return 0;
    const QByteArray ecrites = Contenu(chemin);
    const Options relues = Lit(chemin);
    Exige(EcritOptions(chemin, relues.formats, relues.polices, type), "les options s'écrivent encore");
    Exige(Contenu(chemin) == ecrites, "ce qui fut relu s'écrit de même");
    return 0;
}

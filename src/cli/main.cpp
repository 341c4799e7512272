#include "dessiner.h"
#include "francais.h"
#include "interlocuteurconsole.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QImageReader>

#include <cstdio>

#include <malloc.h>

namespace {

enum Sortie : int { Fait = 0, NonFait = 1, MalUtilise = 2 };

/// Keeps the memory that one page of a PDF frees for the next one (Qt takes 32 MiB for each), instead of giving it back to the
/// system and asking for it again thousands of times. Not for a program that stays open.
void GardeLaMemoireLiberee()
{
    constexpr int mebioctet = 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, 32 * mebioctet);
    mallopt(M_TRIM_THRESHOLD, 64 * mebioctet);
}

int RefuseLUsage(const QString &cause)
{
    std::fprintf(stderr, "ramelier-cli : %s\nEssayez « ramelier-cli --help ».\n", qUtf8Printable(cause));
    return MalUtilise;
}

int ExecuteCommande(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return RefuseLUsage(QStringLiteral("aucune commande"));
    if (arguments.first() != u"dessiner")
        return RefuseLUsage(QStringLiteral("commande inconnue : ") + arguments.first());
    if (arguments.size() != 3)
        return RefuseLUsage(QStringLiteral("dessiner demande deux fichiers : ARBRE SORTIE"));
    if (!FormatDeDessinConnu(arguments.at(2)))
        return RefuseLUsage(QStringLiteral("le fichier à dessiner doit se terminer par .pdf, .png ou .svg : ")
                            + arguments.at(2));
    return Dessiner(arguments.at(1), arguments.at(2)) ? Fait : NonFait;
}

}  // namespace

int main(int argc, char **argv)
{
    GardeLaMemoireLiberee();
    // No window opens here: no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("ramelier-cli"));
    QGuiApplication::setApplicationVersion(QStringLiteral("5.1"));
    ParleFrancais(application);
    QImageReader::setAllocationLimit(1024);
    Interlocuteur::Installe(std::make_unique<InterlocuteurConsole>());

    QCommandLineParser analyseur;
    analyseur.setApplicationDescription(
        QStringLiteral("Dessine un arbre généalogique sans ouvrir de fenêtre.\n\n"
                       "Commandes :\n"
                       "  dessiner ARBRE SORTIE   dessine l'arbre ; SORTIE se termine par .pdf, .png ou .svg"));
    // The toolkit's own help option brings along one that is not meant here, for options of the toolkit.
    const QCommandLineOption aide({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Afficher cette aide."));
    analyseur.addOption(aide);
    const QCommandLineOption version = analyseur.addVersionOption();
    analyseur.addPositionalArgument(QStringLiteral("commande"), QStringLiteral("la commande à exécuter"));
    analyseur.addPositionalArgument(QStringLiteral("fichiers"), QStringLiteral("les fichiers de la commande"),
                                    QStringLiteral("[fichiers...]"));
    if (!analyseur.parse(QCoreApplication::arguments()))
        return RefuseLUsage(analyseur.errorText());
    if (analyseur.isSet(aide))
        analyseur.showHelp(Fait);
    if (analyseur.isSet(version))
        analyseur.showVersion();
    return ExecuteCommande(analyseur.positionalArguments());
}

#include "commandes.h"

#include "analyseur.h"
#include "assembler.h"
#include "comparer.h"
#include "convertir.h"
#include "dessiner.h"
#include "lister.h"
#include "message.h"
#include "reparer.h"
#include "verifier.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

struct Entree
{
    const Commande *commande;
    Sortie (*execute)(const QStringList &mots);
};

constexpr std::array entrees{
    Entree{&commandeDessiner, ExecuteDessiner},   Entree{&commandeConvertir, ExecuteConvertir},
    Entree{&commandeAssembler, ExecuteAssembler}, Entree{&commandeComparer, ExecuteComparer},
    Entree{&commandeLister, ExecuteLister},       Entree{&commandeVerifier, ExecuteVerifier},
    Entree{&commandeReparer, ExecuteReparer},
};

QString Aide()
{
    QString texte = QStringLiteral("Usage : ramelier-cli COMMANDE ...\n\n"
                                   "Travaille sur des arbres généalogiques sans ouvrir de fenêtre.\n\nCommandes :\n");
    for (const Entree &entree : entrees) {
        texte += QStringLiteral("  %1 %2\n      %3\n")
                     .arg(QString::fromUtf8(entree.commande->nom), QString::fromUtf8(entree.commande->arguments),
                          QString::fromUtf8(entree.commande->resume));
    }
    return texte
        + QStringLiteral("\nOptions :\n  -h, --help     cette aide ; après une commande, la sienne\n"
                         "  -v, --version  la version\n");
}

Sortie Dit(const QString &texte)
{
    std::fputs(qUtf8Printable(texte), stdout);
    return Sortie::Fait;
}

}  // namespace

Sortie ExecuteLaLigne(const QStringList &mots)
{
    if (mots.isEmpty())
        return RefuseLUsage(QStringLiteral("aucune commande"));
    const QString &premier = mots.first();
    if (premier == u"-h" || premier == u"--help")
        return Dit(Aide());
    if (premier == u"-v" || premier == u"--version")
        return Dit(QStringLiteral("ramelier-cli %1\n").arg(QCoreApplication::applicationVersion()));
    const auto *entree = std::find_if(entrees.begin(), entrees.end(), [&premier](const Entree &candidate) {
        return premier == QLatin1StringView(candidate.commande->nom);
    });
    if (entree == entrees.end())
        return RefuseLUsage(QStringLiteral("commande inconnue : ") + premier);
    return entree->execute(mots.mid(1));
}

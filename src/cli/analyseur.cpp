#include "analyseur.h"

#include "message.h"

#include <cstdio>

Analyseur::Analyseur(const Commande &uneCommande)
    : commande(uneCommande)
{
    options.setApplicationDescription(QString::fromUtf8(commande.resume));
    options.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Cette aide.")});
}

void Analyseur::Option(const QString &nom, const QString &description, const QString &valeur)
{
    options.addOption({nom, description, valeur});
}

QString Analyseur::Aide() const
{
    // Qt's own first line has the path of the program and no place for the command.
    const QString texte = options.helpText();
    return QStringLiteral("Usage : ramelier-cli %1 [options] %2\n")
               .arg(QString::fromUtf8(commande.nom), QString::fromUtf8(commande.arguments))
        + texte.mid(texte.indexOf(u'\n') + 1);
}

std::optional<Sortie> Analyseur::Lit(const QStringList &mots)
{
    const bool compris = options.parse(QStringList(QString()) + mots);
    if (compris && options.isSet(QStringLiteral("help"))) {
        std::fputs(qUtf8Printable(Aide()), stdout);
        return Sortie::Fait;
    }
    if (!compris)
        return Refuse(options.errorText());
    const QString arguments = QString::fromUtf8(commande.arguments);
    const bool autantQuOnVeut = arguments.endsWith(u"...");
    const qsizetype voulus = arguments.count(u' ') + 1;
    const qsizetype donnes = Fichiers().size();
    if (donnes < voulus || (donnes > voulus && !autantQuOnVeut))
        return Refuse(QStringLiteral("%1 demande : %2").arg(QString::fromUtf8(commande.nom), arguments));
    return {};
}

Sortie Analyseur::Refuse(const QString &cause) const
{
    return RefuseLUsage(cause, QString::fromUtf8(commande.nom));
}

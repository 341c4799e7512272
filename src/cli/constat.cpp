#include "constat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace {

QString EnMots(const QString &fichier, const Constat &constat)
{
    QString ligne = fichier + QStringLiteral(" : ");
    if (constat.ligne > 0)
        ligne += QStringLiteral("ligne %1, colonne %2 : ").arg(constat.ligne).arg(constat.colonne);
    if (constat.numero > 0)
        ligne += QStringLiteral("n° %1 : ").arg(constat.numero);
    if (!constat.fiche.isEmpty())
        ligne += constat.fiche + QStringLiteral(" : ");
    if (constat.gravite == Constat::Gravite::Remarque)
        ligne += QStringLiteral("remarque : ");
    ligne += constat.texte;
    return ligne.replace(u'\n', u' ');
}

QString Cite(const QString &texte)
{
    const QByteArray seul = QJsonDocument(QJsonArray{texte}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(seul.sliced(1, seul.size() - 2));
}

/// Written by hand: a number of 64 bits keeps all its digits.
QString EnJson(const QString &fichier, const Constat &constat)
{
    QStringList membres;
    const auto ajoute = [&membres](const char *nom, const QString &valeur) {
        membres += u'"' + QString::fromLatin1(nom) + QStringLiteral("\":") + valeur;
    };
    ajoute("fichier", Cite(fichier));
    ajoute("gravite",
           constat.gravite == Constat::Gravite::Erreur ? QStringLiteral("\"erreur\"") : QStringLiteral("\"remarque\""));
    if (constat.ligne > 0) {
        ajoute("ligne", QString::number(constat.ligne));
        ajoute("colonne", QString::number(constat.colonne));
    }
    if (constat.numero > 0)
        ajoute("numero", QString::number(constat.numero));
    if (!constat.fiche.isEmpty())
        ajoute("fiche", Cite(constat.fiche));
    ajoute("texte", Cite(constat.texte));
    return u'{' + membres.join(u',') + u'}';
}

}  // namespace

ListeDeConstats::ListeDeConstats(std::FILE *flux, bool enJson)
    : sortie(flux)
    , json(enJson)
{
    if (json)
        Ecrit(QStringLiteral("["));
}

void ListeDeConstats::Ajoute(const QString &fichier, const Constat &constat)
{
    uneErreur = uneErreur || constat.gravite == Constat::Gravite::Erreur;
    if (json)
        Ecrit(QString::fromLatin1(premier ? "\n" : ",\n") + EnJson(fichier, constat));
    else
        Ecrit(EnMots(fichier, constat) + u'\n');
    premier = false;
}

void ListeDeConstats::Termine()
{
    if (json)
        Ecrit(premier ? QStringLiteral("]\n") : QStringLiteral("\n]\n"));
}

void ListeDeConstats::Ecrit(const QString &ligne)
{
    std::fputs(qUtf8Printable(ligne), sortie);
}

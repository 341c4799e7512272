#include "formatsdeliste.h"

#include "infoarbre.h"
#include "infopersonne.h"
#include "listejson.h"
#include "listesosa.h"
#include "personne.h"

#include <QJsonObject>
#include <QStringList>

#include <array>
#include <cstdio>

namespace {

struct Colonne
{
    const char *nom;    ///< for programs
    const char *titre;  ///< for readers
    QString (*texte)(const Personne &personne);
};

const InfoPersonne &TextesDe(const Personne &personne)
{
    static const InfoPersonne aucun;
    return personne.info ? *personne.info : aucun;
}

template <QString InfoPersonne::*champ> QString Texte(const Personne &personne)
{
    return TextesDe(personne).*champ;
}

QString Numero(const Personne &personne)
{
    return QString::number(personne.numero);
}

QString RangDe(const Personne &personne)
{
    return QString::number(GenerationDuNumero(personne.numero));
}

constexpr std::array colonnes{
    Colonne{"numero", "Numéro", Numero},
    Colonne{"generation", "Génération", RangDe},
    Colonne{"nom", "Nom", Texte<&InfoPersonne::nom>},
    Colonne{"prenom", "Prénom", Texte<&InfoPersonne::prenom>},
    Colonne{"naissance", "Naissance", Texte<&InfoPersonne::datenaissance>},
    Colonne{"lieu_naissance", "Lieu de naissance", Texte<&InfoPersonne::lieunaissance>},
    Colonne{"deces", "Décès", Texte<&InfoPersonne::datedeces>},
    Colonne{"lieu_deces", "Lieu de décès", Texte<&InfoPersonne::lieudeces>},
    Colonne{"remarque", "Remarque", Texte<&InfoPersonne::divers>},
    Colonne{"parents_inconnus", "Parents inconnus", ParentsInconnus},
};

void Ecrit(const QString &texte)
{
    const QByteArray octets = texte.toUtf8();
    std::fwrite(octets.constData(), 1, static_cast<std::size_t>(octets.size()), stdout);
}

/// "Génération 3 : 4 connus sur 4 (100 %), implexe 0 %".
QString Bilan(const ListeSosa::Generation &generation)
{
    // From the 64th generation on, 2^g has no type of its own: a power says it.
    const QString possibles = generation.rang <= 63
        ? QString::number(quint64(1) << (generation.rang > 0 ? generation.rang - 1 : 0))
        : QStringLiteral("2^%1").arg(generation.rang - 1);
    const QString connus =
        generation.connus == 1 ? QStringLiteral("1 connu") : QStringLiteral("%1 connus").arg(generation.connus);
    return QStringLiteral("Génération %1 : %2 sur %3 (%4), implexe %5")
        .arg(QString::number(generation.rang), connus, possibles, Pourcentage(PartConnue(generation)),
             Pourcentage(TauxDImplexe(generation)));
}

/// "° 1638 à Saint-Germain": nothing when nothing is known.
QString Evenement(const QString &signe, const QString &date, const QString &lieu)
{
    QStringList mots;
    if (!date.isEmpty())
        mots += date;
    if (!lieu.isEmpty())
        mots += QStringLiteral("à ") + lieu;
    return mots.isEmpty() ? QString() : signe + u' ' + mots.join(u' ');
}

QString LigneDe(const Personne &personne)
{
    const InfoPersonne &info = TextesDe(personne);
    QStringList morceaux{(info.prenom + u' ' + info.nom).simplified(),
                         Evenement(QStringLiteral("°"), info.datenaissance, info.lieunaissance),
                         Evenement(QStringLiteral("+"), info.datedeces, info.lieudeces), info.divers};
    if (const QString manque = ParentsInconnus(personne); !manque.isEmpty())
        morceaux += u'[' + manque + QStringLiteral(" ?]");
    morceaux.removeAll(QString());
    return QStringLiteral("%1  %2").arg(personne.numero).arg(morceaux.join(QStringLiteral(", ")).simplified());
}

QString EntreGuillemets(QString champ)
{
    const bool ilEnFaut =
        champ.contains(u';') || champ.contains(u'"') || champ.contains(u'\n') || champ.contains(u'\r');
    return ilEnFaut ? u'"' + champ.replace(u'"', QStringLiteral("\"\"")) + u'"' : champ;
}

/// The persons of \a liste, \a avant called with each generation before its first one.
void ParGeneration(const ListeSosa &liste, auto avant, auto personne)
{
    auto generation = liste.Generations().begin();
    int rang = -1;
    for (const Personne *suivante : liste.Personnes()) {
        if (GenerationDuNumero(suivante->numero) != rang) {
            rang = generation->rang;
            avant(*generation++);
        }
        personne(*suivante);
    }
}

QString TitreDe(const InfoArbre &titres)
{
    return titres.titrearbre.isEmpty() ? QStringLiteral("Liste Sosa") : titres.titrearbre.simplified();
}

}  // namespace

void EcritEnTexte(const ListeSosa &liste, const InfoArbre &titres)
{
    Ecrit(TitreDe(titres) + u'\n');
    ParGeneration(
        liste, [](const ListeSosa::Generation &generation) { Ecrit(u'\n' + Bilan(generation) + u'\n'); },
        [](const Personne &personne) { Ecrit(QStringLiteral("  ") + LigneDe(personne) + u'\n'); });
}

void EcritEnCsv(const ListeSosa &liste)
{
    QStringList champs;
    for (const Colonne &colonne : colonnes)
        champs += QString::fromUtf8(colonne.nom);
    Ecrit(champs.join(u';') + QStringLiteral("\r\n"));
    for (const Personne *personne : liste.Personnes()) {
        champs.clear();
        for (const Colonne &colonne : colonnes)
            champs += EntreGuillemets(colonne.texte(*personne));
        Ecrit(champs.join(u';') + QStringLiteral("\r\n"));
    }
}

void EcritEnHtml(const ListeSosa &liste, const InfoArbre &titres)
{
    const QString titre = TitreDe(titres).toHtmlEscaped();
    Ecrit(QStringLiteral("<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n"
                         "</head>\n<body>\n<h1>%1</h1>\n<table border=\"1\">\n<tr>")
              .arg(titre));
    for (const Colonne &colonne : colonnes)
        Ecrit(QStringLiteral("<th>%1</th>").arg(QString::fromUtf8(colonne.titre)));
    Ecrit(QStringLiteral("</tr>\n"));
    ParGeneration(
        liste,
        [](const ListeSosa::Generation &generation) {
            Ecrit(QStringLiteral("<tr><th colspan=\"%1\">%2</th></tr>\n").arg(colonnes.size()).arg(Bilan(generation)));
        },
        [](const Personne &personne) {
            Ecrit(QStringLiteral("<tr>"));
            for (const Colonne &colonne : colonnes)
                Ecrit(QStringLiteral("<td>") + colonne.texte(personne).toHtmlEscaped() + QStringLiteral("</td>"));
            Ecrit(QStringLiteral("</tr>\n"));
        });
    Ecrit(QStringLiteral("</table>\n</body>\n</html>\n"));
}

void EcritEnJson(const ListeSosa &liste)
{
    ListeJson json;
    for (const Personne *personne : liste.Personnes()) {
        QJsonObject objet;
        for (const Colonne &colonne : colonnes)
            objet[QString::fromUtf8(colonne.nom)] = colonne.texte(*personne);
        json.Ajoute(objet);
    }
}

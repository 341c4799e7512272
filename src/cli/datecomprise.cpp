#include "datecomprise.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

using Etat = DateComprise::Etat;

constexpr int sansFin = 99999999;
constexpr int unAn = 10000;

const QHash<QString, int> &Mois()
{
    static const QHash<QString, int> mois{
        {"janvier", 1},   {"janv", 1},     {"jan", 1},       {"january", 1},   {"février", 2},   {"fevrier", 2},
        {"févr", 2},      {"fevr", 2},     {"fév", 2},       {"fev", 2},       {"feb", 2},       {"february", 2},
        {"mars", 3},      {"mar", 3},      {"march", 3},     {"avril", 4},     {"avr", 4},       {"apr", 4},
        {"april", 4},     {"mai", 5},      {"may", 5},       {"juin", 6},      {"jun", 6},       {"june", 6},
        {"juillet", 7},   {"juil", 7},     {"jul", 7},       {"july", 7},      {"août", 8},      {"aout", 8},
        {"aug", 8},       {"august", 8},   {"septembre", 9}, {"september", 9}, {"sept", 9},      {"sep", 9},
        {"7bre", 9},      {"octobre", 10}, {"october", 10},  {"oct", 10},      {"8bre", 10},     {"novembre", 11},
        {"november", 11}, {"nov", 11},     {"9bre", 11},     {"décembre", 12}, {"decembre", 12}, {"december", 12},
        {"déc", 12},      {"dec", 12},     {"10bre", 12},    {"xbre", 12}};
    return mois;
}

/// The days of a month in whatever calendar: every fourth year may have its 29th of February.
int DernierJour(int annee, int mois)
{
    constexpr std::array jours{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return mois == 2 && annee % 4 == 0 ? 29 : jours.at(static_cast<std::size_t>(mois - 1));
}

DateComprise Periode(int debut, int fin)
{
    return {Etat::Comprise, debut, fin};
}

DateComprise Annee(int annee)
{
    return Periode(annee * unAn + 101, annee * unAn + 1231);
}

/// \a mois and \a jour 0: not known.
DateComprise Jour(int annee, int mois, int jour)
{
    if (annee == 0)
        return {};
    if (mois > 12)
        return jour >= 1 && jour <= 12 && mois <= 31 ? Annee(annee) : DateComprise{Etat::Impossible, 0, 0};
    if (mois == 0)
        return Annee(annee);
    const int dernier = DernierJour(annee, mois);
    if (jour > dernier)
        return {Etat::Impossible, 0, 0};
    const int debut = annee * unAn + mois * 100;
    return Periode(debut + std::max(jour, 1), debut + (jour == 0 ? dernier : jour));
}

DateComprise EnChiffres(const QString &texte)
{
    static const QRegularExpression annee("^\\d{4}$");
    static const QRegularExpression jourMoisAnnee(R"(^(?:(\d{1,2}|\.\.|\?\?)[./-])?(\d{1,2}|\.\.|\?\?)[./-](\d{4})$)");
    static const QRegularExpression anneeMoisJour(R"(^(\d{4})-(\d{1,2})-(\d{1,2})$)");
    if (annee.match(texte).hasMatch())
        return Jour(texte.toInt(), 0, 0);
    // Dots and question marks are no numbers: 0.
    if (const auto trouve = jourMoisAnnee.match(texte); trouve.hasMatch())
        return Jour(trouve.capturedView(3).toInt(), trouve.capturedView(2).toInt(), trouve.capturedView(1).toInt());
    if (const auto trouve = anneeMoisJour.match(texte); trouve.hasMatch())
        return Jour(trouve.capturedView(1).toInt(), trouve.capturedView(2).toInt(), trouve.capturedView(3).toInt());
    return {};
}

DateComprise EnLettres(const QString &texte)
{
    static const QRegularExpression forme(R"(^(?:(\d{1,2})(?:er)? +)?((?:7|8|9|10)?\pL+)\.? +(\d{4})$)");
    const auto trouve = forme.match(texte);
    const int mois = trouve.hasMatch() ? Mois().value(trouve.captured(2)) : 0;
    return mois == 0 ? DateComprise() : Jour(trouve.capturedView(3).toInt(), mois, trouve.capturedView(1).toInt());
}

DateComprise Simple(QString texte)
{
    if (texte.startsWith(u"le "))
        texte.remove(0, 3);
    const DateComprise chiffres = EnChiffres(texte);
    return chiffres.etat == Etat::Incomprise ? EnLettres(texte) : chiffres;
}

DateComprise Entre(const DateComprise &une, const DateComprise &autre)
{
    if (une.etat == Etat::Comprise && autre.etat == Etat::Comprise)
        return Periode(std::min(une.debut, autre.debut), std::max(une.fin, autre.fin));
    return une.etat == Etat::Impossible || autre.etat == Etat::Impossible ? DateComprise{Etat::Impossible, 0, 0}
                                                                          : DateComprise();
}

/// \a date with another beginning and end, when it is understood.
DateComprise Avec(const DateComprise &date, int debut, int fin)
{
    return date.etat == Etat::Comprise ? Periode(debut, fin) : date;
}

DateComprise AvecDesMots(const QString &texte)
{
    static const QRegularExpression deux(
        R"(^(?:(?:entre|bet\.?|between) (.+) (?:et|and) (.+)|(?:de|from) (.+) (?:à|a|to) (.+)|(\d{4}) ?[/-] ?(\d{4}))$)");
    static const QRegularExpression avant(R"(^(?:(?:avant|av\.?|bef\.?|before|jusqu'à|to) |/ ?)(.+)$)");
    static const QRegularExpression apres(R"(^(?:(?:après|apres|ap\.?|aft\.?|after|depuis|from) (.+)|(.+?) ?/)$)");
    static const QRegularExpression vers(
        R"(^(?:(?:vers|environ|env\.?|circa|ca\.?|c\.|v\.|abt\.?|about|est\.?|cal\.?) ?|~ ?)(.+)$)");
    constexpr int large = 50 * unAn;
    if (const auto trouve = deux.match(texte); trouve.hasMatch()) {
        const int premier = trouve.lastCapturedIndex() - 1;
        return Entre(Simple(trouve.captured(premier)), Simple(trouve.captured(premier + 1)));
    }
    if (const auto trouve = avant.match(texte); trouve.hasMatch()) {
        const DateComprise date = Simple(trouve.captured(1));
        return Avec(date, 0, date.fin);
    }
    if (const auto trouve = apres.match(texte); trouve.hasMatch()) {
        const DateComprise date = Simple(trouve.captured(trouve.lastCapturedIndex()));
        return Avec(date, date.debut, sansFin);
    }
    if (const auto trouve = vers.match(texte); trouve.hasMatch()) {
        const DateComprise date = Simple(trouve.captured(1));
        return Avec(date, std::max(0, date.debut - large), date.fin + large);
    }
    return {};
}

}  // namespace

DateComprise ComprendLaDate(const QString &texte)
{
    constexpr qsizetype plusLongue = 80;
    if (texte.isEmpty() || texte.size() > plusLongue)
        return {};
    QString propre = texte.simplified().toLower();
    for (const auto calendrier : {QLatin1StringView("@#dgregorian@ "), QLatin1StringView("@#djulian@ ")})
        propre.remove(calendrier);
    const DateComprise simple = Simple(propre);
    return simple.etat == Etat::Incomprise ? AvecDesMots(propre) : simple;
}

bool SurementAvant(const DateComprise &une, const DateComprise &autre)
{
    return une.etat == Etat::Comprise && autre.etat == Etat::Comprise && une.fin < autre.debut;
}

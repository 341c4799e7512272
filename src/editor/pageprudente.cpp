#include "pageprudente.h"

#include <QRegularExpression>

#include <cmath>

namespace {

/// \a texte with what \a motif finds replaced by what \a remplace makes of it, where that is something.
template <typename Remplace> QString Remplacee(const QString &texte, const QRegularExpression &motif, Remplace remplace)
{
    QString resultat;
    qsizetype copie = 0;
    QRegularExpressionMatchIterator trouvees = motif.globalMatch(texte);
    while (trouvees.hasNext()) {
        const QRegularExpressionMatch trouvee = trouvees.next();
        const QString remplacement = remplace(trouvee);
        if (remplacement.isNull())
            continue;
        resultat += QStringView(texte).sliced(copie, trouvee.capturedStart() - copie);
        resultat += remplacement;
        copie = trouvee.capturedEnd();
    }
    resultat += QStringView(texte).sliced(copie);
    return resultat;
}

QString SansTablesProfondes(const QString &html)
{
    constexpr int profondeurPermise = 5;
    static const QRegularExpression balise(QStringLiteral("<(/?)table\\b"), QRegularExpression::CaseInsensitiveOption);
    int profondeur = 0;
    return Remplacee(html, balise, [&profondeur](const QRegularExpressionMatch &trouvee) {
        if (trouvee.capturedLength(1) == 0)
            return ++profondeur > profondeurPermise ? QStringLiteral("<div") : QString();
        const bool tropProfonde = profondeur > profondeurPermise;
        profondeur = qMax(0, profondeur - 1);
        return tropProfonde ? QStringLiteral("</div") : QString();
    });
}

QString SansImagesImmenses(const QString &html)
{
    static const QRegularExpression balise(QStringLiteral("<img\\b[^>]*"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression longueur(
        QStringLiteral("\\b((?:width|height)\\s*=\\s*)(?:\"([^\"]*)\"?|'([^']*)'?|([^\\s\"'>]+))"),
        QRegularExpression::CaseInsensitiveOption);
    static constexpr double plusGrande = 99'999;
    double reste = 4'000'000;
    const auto bornee = [&reste](const QRegularExpressionMatch &trouvee) {
        const double valeur =
            std::abs((trouvee.captured(2) + trouvee.captured(3) + trouvee.captured(4)).trimmed().toDouble());
        if (valeur <= qMin(plusGrande, reste)) {
            reste -= valeur;
            return QString();
        }
        return QString(trouvee.captured(1) + u'1');
    };
    return Remplacee(html, balise, [&bornee](const QRegularExpressionMatch &trouvee) {
        return Remplacee(trouvee.captured(), longueur, bornee);
    });
}

}  // namespace

QString PagePrudente(const QString &html)
{
    return SansImagesImmenses(SansTablesProfondes(html));
}

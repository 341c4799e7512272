#include "tablesprofondes.h"

#include <QRegularExpression>

QString SansTablesProfondes(const QString &html)
{
    constexpr int profondeurPermise = 5;
    static const QRegularExpression balise(QStringLiteral("<\\s*(/?)table\\b"),
                                           QRegularExpression::CaseInsensitiveOption);
    QString resultat;
    qsizetype copie = 0;
    int profondeur = 0;
    QRegularExpressionMatchIterator balises = balise.globalMatch(html);
    while (balises.hasNext()) {
        const QRegularExpressionMatch trouvee = balises.next();
        const bool ouvre = trouvee.capturedLength(1) == 0;
        const bool tropProfonde = ouvre ? profondeur >= profondeurPermise : profondeur > profondeurPermise;
        profondeur = ouvre ? profondeur + 1 : qMax(0, profondeur - 1);
        if (!tropProfonde)
            continue;
        resultat += QStringView(html).sliced(copie, trouvee.capturedStart() - copie);
        resultat += ouvre ? QStringLiteral("<div") : QStringLiteral("</div");
        copie = trouvee.capturedEnd();
    }
    resultat += QStringView(html).sliced(copie);
    return resultat;
}

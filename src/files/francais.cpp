#include "francais.h"

#include "cataloguefrancais.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

void ParleFrancais(QCoreApplication &application)
{
    const QLocale francais(QLocale::French, QLocale::France);
    QLocale::setDefault(francais);
    // What is installed last is asked first.
    QCoreApplication::installTranslator(new CatalogueFrancais(&application));
    auto *deQt = new QTranslator(&application);
    if (deQt->load(francais, QStringLiteral("qtbase"), QStringLiteral("_"),
                   QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(deQt);
}

QString ErreurEnFrancais(const QString &erreur)
{
    return QCoreApplication::translate("QIODevice", erreur.toUtf8().constData());
}

QString ErreurXmlEnFrancais(const QString &erreur)
{
    return QCoreApplication::translate("QXml", erreur.toUtf8().constData());
}

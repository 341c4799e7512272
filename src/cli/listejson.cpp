#include "listejson.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

ListeJson::~ListeJson()
{
    std::fputs(commencee ? "\n]\n" : "[]\n", stdout);
}

void ListeJson::Ajoute(const QJsonObject &objet)
{
    const QByteArray ligne = QJsonDocument(objet).toJson(QJsonDocument::Compact);
    std::fputs(commencee ? ",\n" : "[\n", stdout);
    std::fwrite(ligne.constData(), 1, static_cast<std::size_t>(ligne.size()), stdout);
    commencee = true;
}

#pragma once

#include <QtGlobal>

class QJsonObject;

/// A JSON array on the standard output, one object a line, written as they come: it never stands whole in memory.
class ListeJson
{
public:
    ListeJson() = default;
    /// Ends the array; an empty one is written too.
    ~ListeJson();
    Q_DISABLE_COPY_MOVE(ListeJson)

    void Ajoute(const QJsonObject &objet);

private:
    bool commencee = false;
};

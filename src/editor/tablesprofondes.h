#pragma once

#include <QString>

/// \a html with the tables that stand in five others or more turned into divisions: the toolkit lays every table out several
/// times for each time that the one around it is, and would not come to an end within hours. Linear.
[[nodiscard]] QString SansTablesProfondes(const QString &html);

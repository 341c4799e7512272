#pragma once

#include <QString>

/// \a html as the toolkit can lay it out within a moment. Linear.
///
/// Tables that stand in five others or more become divisions: every table is laid out several times for each time that the one
/// around it is. Widths and heights that pictures are given become 1 when they are beyond 99999 pixels, or 4 million
/// pixels together: beside a table the toolkit would never come to an end.
[[nodiscard]] QString PagePrudente(const QString &html);

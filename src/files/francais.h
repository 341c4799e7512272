#pragma once

#include <QString>

class QCoreApplication;

/// The program speaks French, whatever the system's language is: the toolkit's own texts, and the numbers and dates that
/// are shown. What is written into files does not depend on it. Call once, after the application object exists.
void ParleFrancais(QCoreApplication &application);

/// \a erreur, as a file's errorString() or qt_error_string() gives it, in French; unknown ones as they are.
[[nodiscard]] QString ErreurEnFrancais(const QString &erreur);

/// What the XML parser says, in French; unknown texts as they are.
[[nodiscard]] QString ErreurXmlEnFrancais(const QString &erreur);

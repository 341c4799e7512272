#pragma once

class QApplication;
class QString;

/// What every window of the program \a programme ("ramelier", "lyedithtml") needs before it opens: icons, its name for the
/// desktop, French texts of the toolkit, photos of any usual size, message boxes for readers and writers. Call once, after
/// the application object exists.
void PrepareLApplication(QApplication &application, const QString &programme);

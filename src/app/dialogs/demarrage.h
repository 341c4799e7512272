#pragma once

#include <future>

class QApplication;
class QString;

/// Begins to find out which fonts this machine has, in a thread of its own where there can be one: the first word shown
/// waits for it, and it takes as long as the application object. Call first of all; wait for it before any text is shown.
[[nodiscard]] std::future<void> ChercheLesPolices();

/// What every window of the program \a programme ("ramelier", "lyedithtml") needs before it opens: icons, its name for the
/// desktop, French texts of the toolkit, photos of any usual size, message boxes for readers and writers. Call once, after
/// the application object exists.
void PrepareLApplication(QApplication &application, const QString &programme);

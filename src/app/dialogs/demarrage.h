#pragma once

class QApplication;

/// What every window of the program needs before it opens: icons, French texts of the toolkit, photos of any usual size,
/// message boxes for readers and writers. Call once, after the application object exists.
void PrepareLApplication(QApplication &application);

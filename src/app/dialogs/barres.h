#pragma once

class QMainWindow;

/// Names for screen readers: those of the bars of \a fenetre, and of the buttons behind which the toolkit keeps what a bar
/// has no room for. Call once all bars exist.
void NommeLesBarres(QMainWindow &fenetre);

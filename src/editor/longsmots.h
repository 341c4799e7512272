#pragma once

class QTextEdit;

/// From the moment when \a texte gets a word of several thousand characters, its lines may break anywhere: the toolkit
/// needs the square of a word's length to find that it does not fit.
void CoupeLesTresLongsMots(QTextEdit *texte);

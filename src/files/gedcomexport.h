#pragma once

#include <QString>

class Arbre;
class QWidget;

/// Writes \a arbre as the GEDCOM 5.5 file \a nomFichierGED, in ISO 8859-1 with "\r\n" line ends; asks for the sex of the
/// root (\a parent owns the dialog). \a nomFichierArbre is named in a note. Tells the user how it ended; a file that cannot
/// be written leaves the old one of that name as it was.
void ExporterVersFichierGEDCOM(QWidget *parent, const QString &nomFichierGED, Arbre *arbre, QString &nomFichierArbre);
/// The same for a caller that tells its user itself: false when the file could not be written.
[[nodiscard]] bool EcritGEDCOM(QWidget *parent, const QString &nomFichierGED, const Arbre &arbre,
                               const QString &nomFichierArbre);

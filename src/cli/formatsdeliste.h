#pragma once

class ListeSosa;
struct InfoArbre;

/// A Sosa list on the standard output, person by person.

/// Lines for the eye, a generation under its own title.
void EcritEnTexte(const ListeSosa &liste, const InfoArbre &titres);
/// Semicolons between the fields, as French spreadsheets want them; a first line with their names. UTF-8.
void EcritEnCsv(const ListeSosa &liste);
/// A page of its own, that stands alone.
void EcritEnHtml(const ListeSosa &liste, const InfoArbre &titres);
/// An array of persons.
void EcritEnJson(const ListeSosa &liste);

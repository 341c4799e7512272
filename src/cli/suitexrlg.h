#pragma once

#include "formexrlg.h"

#include <string_view>

/// The markup of the `.xrlg` writer between two texts.

/// The elements that hold a text, in the order of the file: five of the title page, then nine of a person.
constexpr std::array<std::string_view, 14> champsXRLG{
    "titrearbre",    "creepar",       "date",      "majpar",    "datemaj", "nom",     "prenom",
    "datenaissance", "lieunaissance", "datedeces", "lieudeces", "divers",  "fichtml", "ficphoto"};
constexpr int champsDeTitre = 5;

/// Everything before the first text.
constexpr std::string_view debutXRLG =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xrlg>\n<xrlg version=\"1.0\">\n"
    "  <arbre>\n    <infoarbre>\n      <titrearbre>";

/// What stands behind the end tag of a text, up to the next text.
struct SuiteXRLG
{
    enum class Fin {
        Rien,     ///< this is no markup of the writer: it belongs to the text
        Texte,    ///< the next text follows
        Fichier,  ///< the end of the file follows
        Coupee,   ///< a person ends here, and nothing that belongs behind a person follows
    };

    Fin fin = Fin::Rien;
    int champ = 0;                  ///< of the next text
    qsizetype texte = 0;            ///< where it starts
    qsizetype personnesFinies = 0;  ///< persons that end in it
    qsizetype finDesPersonnes = 0;  ///< behind the last of them, or behind the count of persons
    quint64 nombrePersonnes = 0;    ///< the counts, where they stand in it
    unsigned short nombreGenerations = 0;
};

/// Called for each person that starts in the markup.
using SurDebutXRLG = std::function<void(const NombresXRLG &)>;

/// Reads the markup that starts at \a place, behind the end tag of a text of the element \a champ and its line end.
[[nodiscard]] SuiteXRLG LitLaSuite(QByteArrayView octets, qsizetype place, int champ,
                                   const SurDebutXRLG &surDebut = {});

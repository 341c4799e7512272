#include "cataloguefrancais.h"

#include <cstring>

namespace {

// One row a text, whatever its length.
// clang-format off
constexpr CatalogueFrancais::Texte textes[] = {
    {"QMessageBox",
     "<p>Qt is a C++ toolkit for cross-platform application development.</p>"
     "<p>Qt provides single-source portability across all major desktop operating systems. "
     "It is also available for embedded Linux and other embedded and mobile operating systems.</p>"
     "<p>Qt is available under multiple licensing options designed to accommodate the needs of our various users.</p>"
     "<p>Qt licensed under our commercial license agreement is appropriate for development of proprietary/commercial "
     "software where you do not want to share any source code with third parties or otherwise cannot comply with the "
     "terms of GNU (L)GPL.</p>"
     "<p>Qt licensed under GNU (L)GPL is appropriate for the development of Qt&nbsp;applications provided you can "
     "comply with the terms and conditions of the respective licenses.</p>"
     "<p>Please see <a href=\"http://%2/\">%2</a> for an overview of Qt licensing.</p>"
     "<p>Copyright (C) %1 The Qt Company Ltd and other contributors.</p>"
     "<p>Qt and the Qt logo are trademarks of The Qt Company Ltd.</p>"
     "<p>Qt is The Qt Company Ltd product developed as an open source project. "
     "See <a href=\"http://%3/\">%3</a> for more information.</p>",
     "<p>Qt est un ensemble d'outils C++ pour le développement d'applications multiplateformes.</p>"
     "<p>Qt permet d'écrire un seul code source pour tous les principaux systèmes d'exploitation de bureau. "
     "Il existe aussi pour Linux embarqué et pour d'autres systèmes embarqués et mobiles.</p>"
     "<p>Qt est proposé sous plusieurs licences, afin de répondre aux besoins de ses divers utilisateurs.</p>"
     "<p>La licence commerciale de Qt convient au développement de logiciels propriétaires ou commerciaux dont vous ne "
     "souhaitez pas partager le code source avec des tiers, ou qui ne peuvent pas respecter les termes de la "
     "GNU (L)GPL.</p>"
     "<p>La licence GNU (L)GPL de Qt convient au développement d'applications&nbsp;Qt si vous pouvez respecter les "
     "termes et conditions de ces licences.</p>"
     "<p>Voyez <a href=\"http://%2/\">%2</a> pour un aperçu des licences de Qt.</p>"
     "<p>Copyright (C) %1 The Qt Company Ltd et autres contributeurs.</p>"
     "<p>Qt et le logo Qt sont des marques de The Qt Company Ltd.</p>"
     "<p>Qt est un produit de The Qt Company Ltd, développé comme un projet à code source ouvert. "
     "Voyez <a href=\"http://%3/\">%3</a> pour plus d'informations.</p>"},

    {"QPrintDialog", "Duplex Settings Conflicts", "Réglages recto-verso incompatibles"},
    {"QPrintDialog", "There are conflicts in duplex settings. Do you want to fix them?",
     "Des réglages du recto-verso sont incompatibles. Voulez-vous les corriger ?"},
    {"QPrintDialog", "Invalid Pages Definition", "Choix de pages incorrect"},
    {"QPrintDialog",
     "%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define ranges and make "
     "sure ranges do not intersect with each other.",
     "« %1 » n'est pas écrit comme il faut. Séparez les pages et les suites de pages par « , », écrivez les suites avec "
     "« - » et veillez à ce qu'elles ne se recoupent pas."},
    {"QPrintSettingsOutput", "Double Sided Printing", "Impression recto-verso"},
    {"QPrintSettingsOutput", "Off", "Non"},
    {"QPrintSettingsOutput", "Long side binding", "Reliure sur le côté long"},
    {"QPrintSettingsOutput", "Short side binding", "Reliure sur le côté court"},
    {"QPrintSettingsOutput", "Pages", "Pages"},
    {"QPrintSettingsOutput",
     "Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. "
     "E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
     "Donnez des pages ou des suites de pages séparées par des virgules. Une suite s'écrit avec deux numéros séparés par "
     "un trait d'union. Ainsi 3,5-7,9 imprime les pages 3, 5, 6, 7 et 9."},
    {"QPrintPropertiesDialog", "Printer Properties", "Propriétés de l'imprimante"},
    {"QPrintPropertiesDialog", "Page Setup Conflicts", "Mise en page incompatible"},
    {"QPrintPropertiesDialog", "There are conflicts in page setup options. Do you want to fix them?",
     "Des options de mise en page sont incompatibles. Voulez-vous les corriger ?"},
    {"QPrintPropertiesDialog", "Advanced Option Conflicts", "Options avancées incompatibles"},
    {"QPrintPropertiesDialog", "There are conflicts in some advanced options. Do you want to fix them?",
     "Des options avancées sont incompatibles. Voulez-vous les corriger ?"},
    {"QPrintPropertiesWidget", "Advanced", "Avancé"},
    {"QPrintPropertiesWidget", "There are conflicts in some options. Please fix them.",
     "Des options sont incompatibles. Veuillez les corriger."},
    {"Print Device Input Slot", "Automatic", "Automatique"},
    {"Print Device Output Bin", "Automatic", "Automatique"},
    {"QCupsPrinterSupport", "Authentication Needed", "Authentification nécessaire"},
    {"QCupsPrinterSupport", "Authentication needed to use %1 on %2.",
     "Il faut s'authentifier pour utiliser %1 sur %2."},
    {"QCupsPrinterSupport", "Authentication needed to use %1.", "Il faut s'authentifier pour utiliser %1."},
    {"QCupsPrinterSupport", "Username:", "Nom d'utilisateur :"},
    {"QCupsPrinterSupport", "Password:", "Mot de passe :"},
    {"QErrorMessage", "Critical Error:", "Erreur critique :"},
    {"QErrorMessage", "Information:", "Information :"},

    {"QAbstractFileIconProvider", "Drive", "Disque"},
    {"QAbstractFileIconProvider", "File", "Fichier"},
    {"QAbstractFileIconProvider", "Folder", "Dossier"},
    {"QAbstractFileIconProvider", "Shortcut", "Raccourci"},
    {"QAbstractFileIconProvider", "Unknown", "Inconnu"},

    {"QShortcut", "Adjust contrast", "Régler le contraste"},
    {"QShortcut", "Calendar", "Calendrier"},
    {"QShortcut", "Control", "Ctrl"},
    {"QShortcut", "Launch (G)", "Lancer (G)"},
    {"QShortcut", "Launch (H)", "Lancer (H)"},
    {"QShortcut", "Memo", "Mémo"},
    {"QShortcut", "To-do list", "Liste de tâches"},

    // What a screen reader says.
    {"QSpiAccessibleBridge", "desktop", "bureau"},
    {"QSpiAccessibleBridge", "notification", "notification"},
    {"QSpiAccessibleBridge", "terminal", "terminal"},

    {"QFile", "Cannot create %1 for output: %2", "Impossible de créer %1 en écriture : %2"},
    {"QFile", "Cannot open destination file: %1", "Impossible d'ouvrir le fichier de destination : %1"},
    {"QFile", "Cannot open for output: %1", "Impossible d'ouvrir en écriture : %1"},
    {"QFile", "Error while renaming: %1", "Erreur lors du renommage : %1"},
    {"QFile", "Failure to write block: %1", "Impossible d'écrire un bloc : %1"},
    {"QFileDevice", "No file engine available", "Aucun moteur de fichier disponible"},
    {"QIODevice", "No file name specified", "Aucun nom de fichier n'est donné"},
    {"QIODevice", "Operation not permitted", "Opération non permise"},
    {"QIODevice", "Interrupted system call", "Appel système interrompu"},
    {"QIODevice", "Input/output error", "Erreur d'entrée/sortie"},
    {"QIODevice", "No such device or address", "Aucun périphérique ou adresse de ce type"},
    {"QIODevice", "Bad file descriptor", "Mauvais descripteur de fichier"},
    {"QIODevice", "Resource temporarily unavailable", "Ressource temporairement non disponible"},
    {"QIODevice", "Cannot allocate memory", "Impossible d'allouer de la mémoire"},
    {"QIODevice", "Device or resource busy", "Périphérique ou ressource occupé"},
    {"QIODevice", "File exists", "Le fichier existe"},
    {"QIODevice", "Invalid cross-device link", "Lien entre deux périphériques impossible"},
    {"QIODevice", "No such device", "Aucun périphérique de ce type"},
    {"QIODevice", "Not a directory", "Ce n'est pas un dossier"},
    {"QIODevice", "Is a directory", "C'est un dossier"},
    {"QIODevice", "Invalid argument", "Argument incorrect"},
    {"QIODevice", "Too many open files in system", "Trop de fichiers ouverts dans le système"},
    {"QIODevice", "Text file busy", "Fichier occupé"},
    {"QIODevice", "File too large", "Fichier trop grand"},
    {"QIODevice", "Illegal seek", "Déplacement impossible dans le fichier"},
    {"QIODevice", "Read-only file system", "Système de fichiers en lecture seule"},
    {"QIODevice", "Too many links", "Trop de liens"},
    {"QIODevice", "Broken pipe", "Tube rompu"},
    {"QIODevice", "File name too long", "Nom de fichier trop long"},
    {"QIODevice", "No locks available", "Aucun verrou disponible"},
    {"QIODevice", "Function not implemented", "Fonction non disponible"},
    {"QIODevice", "Directory not empty", "Le dossier n'est pas vide"},
    {"QIODevice", "Too many levels of symbolic links", "Trop de niveaux de liens symboliques"},
    {"QIODevice", "Link has been severed", "Le lien a été rompu"},
    {"QIODevice", "Value too large for defined data type", "Valeur trop grande"},
    {"QIODevice", "Invalid or incomplete multibyte or wide character", "Caractère incorrect ou incomplet"},
    {"QIODevice", "Operation not supported", "Opération non prise en charge"},
    {"QIODevice", "Network is down", "Le réseau ne fonctionne pas"},
    {"QIODevice", "Network is unreachable", "Le réseau n'est pas accessible"},
    {"QIODevice", "Transport endpoint is not connected", "Le dossier distant n'est plus connecté"},
    {"QIODevice", "Connection timed out", "Délai de connexion dépassé"},
    {"QIODevice", "Connection refused", "Connexion refusée"},
    {"QIODevice", "Host is down", "L'ordinateur distant est arrêté"},
    {"QIODevice", "No route to host", "L'ordinateur distant n'est pas accessible"},
    {"QIODevice", "Stale file handle", "Le fichier n'est plus accessible"},
    {"QIODevice", "Structure needs cleaning", "Le système de fichiers a besoin d'être réparé"},
    {"QIODevice", "Remote I/O error", "Erreur d'entrée/sortie de l'ordinateur distant"},
    {"QIODevice", "Disk quota exceeded", "Quota d'espace disque dépassé"},
    {"QIODevice", "No medium found", "Aucun support trouvé"},
    {"QIODevice", "Wrong medium type", "Mauvais type de support"},
    {"QIODevice", "Operation canceled", "Opération annulée"},
    {"QIODevice", "Required key not available", "La clé de chiffrement n'est pas disponible"},
    {"QIODevice", "Key has expired", "La clé de chiffrement a expiré"},
    {"QIODevice", "Key has been revoked", "La clé de chiffrement a été révoquée"},
};
// clang-format on

}  // namespace

std::span<const CatalogueFrancais::Texte> CatalogueFrancais::Textes()
{
    return textes;
}

QString CatalogueFrancais::translate(const char *contexte, const char *source, const char * /*precision*/,
                                     int /*nombre*/) const
{
    for (const Texte &texte : textes) {
        if (std::strcmp(texte.source, source) == 0 && std::strcmp(texte.contexte, contexte) == 0)
            return QString::fromUtf8(texte.francais);
    }
    return {};
}

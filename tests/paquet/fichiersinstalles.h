#pragma once

#include <QStringList>

#include <filesystem>

/// The files below \a dossier, by their names from there; a link as "NAME -> TARGET".
inline QStringList FichiersDe(const QString &dossier)
{
    namespace fs = std::filesystem;
    const fs::path racine = dossier.toStdString();
    QStringList fichiers;
    for (const fs::directory_entry &entree : fs::recursive_directory_iterator(racine)) {
        const QString nom = QString::fromStdString(entree.path().lexically_relative(racine).string());
        if (entree.is_symlink())
            fichiers += nom + QStringLiteral(" -> ") + QString::fromStdString(fs::read_symlink(entree).string());
        else if (!entree.is_directory())
            fichiers += nom;
    }
    return fichiers;
}

/// What is in \a trouves but not in \a attendus ("+NAME"), and the other way round ("-NAME").
inline QString Ecarts(const QStringList &trouves, const QStringList &attendus)
{
    QStringList ecarts;
    for (const QString &nom : trouves) {
        if (!attendus.contains(nom))
            ecarts += u'+' + nom;
    }
    for (const QString &nom : attendus) {
        if (!trouves.contains(nom))
            ecarts += u'-' + nom;
    }
    return ecarts.join(u' ');
}

/// What an installation holds beside the manuals' pages, from its prefix.
inline QStringList FichiersAttendus()
{
    QStringList fichiers{
        "bin/lyedithtml",
        "bin/ramelier",
        "bin/ramelier-cli",
        "lib/ramelier/AideLyEditHtml -> ../../share/ramelier/AideRamelier/editeur",
        "lib/ramelier/AideRamelier -> ../../share/ramelier/AideRamelier",
        "lib/ramelier/lyedithtml",
        "lib/ramelier/ramelier",
        "lib/ramelier/ramelier-cli",
        "share/applications/lyedithtml.desktop",
        "share/applications/ramelier.desktop",
        "share/bash-completion/completions/ramelier-cli",
        "share/doc/ramelier/changelog",
        "share/doc/ramelier/copyright",
        "share/doc/ramelier/examples/armes/castille-leon.png",
        "share/doc/ramelier/examples/armes/france-autriche.png",
        "share/doc/ramelier/examples/armes/france-navarre.png",
        "share/doc/ramelier/examples/armes/france.png",
        "share/doc/ramelier/examples/armes/medicis.png",
        "share/doc/ramelier/examples/henri-iv.html",
        "share/doc/ramelier/examples/louis-xiv.html",
        "share/doc/ramelier/examples/louis-xiv.xrlg",
        "share/man/fr/man1/lyedithtml.1",
        "share/man/fr/man1/ramelier-cli.1",
        "share/man/fr/man1/ramelier.1",
        "share/man/man1/lyedithtml.1",
        "share/man/man1/ramelier-cli.1",
        "share/man/man1/ramelier.1",
        "share/metainfo/fr.ramelier.ramelier.metainfo.xml",
        "share/mime/packages/ramelier.xml",
    };
    for (const char *icone : {"apps/lyedithtml", "apps/ramelier", "mimetypes/application-x-ramelier+xml",
                              "mimetypes/application-x-ramelier-rlg"}) {
        for (const char *taille : {"16x16", "22x22", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256"})
            fichiers +=
                QStringLiteral("share/icons/hicolor/%1/%2.png").arg(QLatin1String(taille), QLatin1String(icone));
        fichiers += QStringLiteral("share/icons/hicolor/scalable/%1.svg").arg(QLatin1String(icone));
    }
    return fichiers;
}

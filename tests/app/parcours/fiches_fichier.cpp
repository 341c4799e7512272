#include "fiches.h"

#include "dossier.h"
#include "editeur.h"
#include "partie.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileInfo>

// The files of the sheets: opened, saved, closed, and who asks what before a text goes.

namespace {

bool EstUneFicheHtml(const QString &chemin)
{
    return chemin.contains(".htm");
}

QString ContenuLatin1(const QString &chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? QString::fromLatin1(fichier.readAll()) : QString();
}

/// What the system says of a file that cannot be read or written there.
QString CauseDe(const QString &chemin)
{
    constexpr int octetsDUnNom = 255;
    const QStringList noms = chemin.split(u'/');
    const bool tropLong =
        std::any_of(noms.begin(), noms.end(), [](const QString &nom) { return nom.toUtf8().size() > octetsDUnNom; });
    return tropLong ? "Nom de fichier trop long" : "Aucun fichier ou dossier";
}

const QString questionDeFermeture = "La fiche éditée a été modifiée \n enregistrer les modifications avant de fermer ?";

}  // namespace

void Fiches::PrendLeTexte(Edite &edite, const QString &chemin)
{
    edite.chemin = chemin;
    edite.titre = edite.titreBase + " - " + QFileInfo(chemin).fileName();
    edite.texte = ContenuLatin1(chemin);
    edite.passes = {edite.texte};
    edite.html = EstUneFicheHtml(chemin);
    edite.modifie = false;
}

void Fiches::PrevoitOuverture(const QString &chemin)
{
    const QFileInfo info(chemin);
    if (info.isFile())
        return;
    partie.pilote.AttendBoite(
        "LyEditHtml",
        "Cannot read file " + chemin
            + (info.isDir() ? ":\nle fichier à ouvrir est un répertoire." : ":\n" + CauseDe(chemin) + '.'),
        "OK");
    if (info.isDir())
        partie.NoteLeFait("fiche illisible");
}

QString Fiches::ConstateLEditeur(const QString &titreBase, const QString &chemin, const QString &nom)
{
    const QList<LyTextEdit *> nouveaux = Inconnues<LyTextEdit>();
    if (nouveaux.size() != 1)
        return QStringLiteral("%1 éditeurs nouveaux").arg(nouveaux.size());
    Edite edite{.vue = nouveaux.constFirst(), .titreBase = titreBase};
    if (QFileInfo(chemin).isDir()) {
        // It stays on a text without a name.
        edite.titre = titreBase;
        edite.html = EstUneFicheHtml(chemin);
    } else {
        PrendLeTexte(edite, chemin);
        edite.titre = titreBase + " - " + (QFileInfo::exists(chemin) ? QFileInfo(chemin).fileName() : nom);
    }
    edite.passes = {edite.texte};
    edites += edite;
    partie.NoteLeFait(QFileInfo(chemin).isFile() ? "fiche éditée" : "fiche nouvelle");
    return {};
}

void Fiches::OuvreSeul()
{
    const bool fichier = partie.tirage.Chance(50);
    const QString chemin = fichier ? partie.dossier.Chemin("fiche.html") : QString();
    auto *vue = new LyTextEdit("LyEditHtml", chemin, true, partie.dossier.Chemin("lyedithtml"), "essai");
    Edite edite{.vue = vue, .seul = true, .titreBase = "LyEditHtml essai", .titre = "LyEditHtml essai - Nouveau"};
    if (fichier)
        PrendLeTexte(edite, chemin);
    edite.passes = {edite.texte};
    edites += edite;
    partie.NoteLeFait("éditeur seul");
}

bool Fiches::PrevoitSauvegarde(Edite &edite, bool sous)
{
    QString chemin = edite.chemin;
    if (sous || chemin.isEmpty()) {
        const QString propose = QFileInfo(chemin).fileName();
        if (partie.tirage.Chance(25)) {
            partie.pilote.AttendFichier("Enregistrer sous", propose, {});
            partie.NoteLeFait("fiche : nom abandonné");
            return false;
        }
        chemin = partie.dossier.Chemin("feuille-" + QString::number(partie.tirage.Parmi(3)));
        partie.pilote.AttendFichier("Enregistrer sous", propose, chemin);
        chemin += edite.html ? ".html" : ".txt";
        if (QFileInfo::exists(chemin)) {
            const bool oui = partie.tirage.Chance(70);
            partie.pilote.AttendBoite("Enregistrer sous",
                                      "Le fichier " + chemin + " existe déjà.\nVoulez-vous le remplacer ?",
                                      oui ? "Oui" : "Non");
            if (!oui)
                return false;
        }
    }
    const QString cause = CauseDe(chemin);
    if (!QFileInfo(QFileInfo(chemin).absolutePath()).isDir() || cause == "Nom de fichier trop long") {
        partie.pilote.AttendBoite("LyTextEdit", "Cannot write file " + chemin + ":\n" + cause + '.', "OK");
        partie.NoteLeFait("fiche : écriture impossible");
        return false;
    }
    edite.chemin = chemin;
    edite.titre = edite.titreBase + " - " + QFileInfo(chemin).fileName();
    edite.html = EstUneFicheHtml(chemin);
    edite.modifie = false;
    partie.NoteLeFait("fiche : enregistrée");
    return true;
}

void Fiches::Sauve(Edite &edite)
{
    const bool sauvee = PrevoitSauvegarde(edite, false);
    edite.vue->actFileSave->trigger();
    if (sauvee && ContenuLatin1(edite.chemin) != QString::fromLatin1(edite.texte.toLatin1()))
        ecart = QStringLiteral("fiche écrite : ") + ContenuLatin1(edite.chemin);
}

void Fiches::SauveSous(Edite &edite)
{
    const bool sauvee = PrevoitSauvegarde(edite, true);
    edite.vue->actFileSaveAs->trigger();
    if (sauvee && ContenuLatin1(edite.chemin) != QString::fromLatin1(edite.texte.toLatin1()))
        ecart = QStringLiteral("fiche écrite sous un nom : ") + ContenuLatin1(edite.chemin);
}

bool Fiches::PrevoitAbandon(Edite &edite)
{
    if (!edite.modifie)
        return true;
    const QString reponse = partie.tirage.Un(QStringList{"Oui", "Non", "Annuler"});
    partie.pilote.AttendBoite("Sauvegarde", "Le texte a été modifié \n enregistrer les modifications ?", reponse);
    partie.NoteLeFait("fiche : garde " + reponse);
    return reponse == "Oui" ? PrevoitSauvegarde(edite, false) : reponse == "Non";
}

void Fiches::Commence(Edite &edite)
{
    if (PrevoitAbandon(edite)) {
        edite.chemin.clear();
        edite.titre = edite.titreBase + " - Nouveau";
        edite.texte.clear();
        edite.passes = {QString()};
        edite.html = true;
        edite.modifie = false;
        partie.NoteLeFait("fiche : recommencée");
    }
    edite.vue->actFileNew->trigger();
}

void Fiches::Ouvre(Edite &edite)
{
    if (!PrevoitAbandon(edite))
        return edite.vue->actFileOpen->trigger();
    if (partie.tirage.Chance(25)) {
        partie.pilote.AttendFichier("Ouvrir", {}, {});
        partie.Note("renoncé");
        return edite.vue->actFileOpen->trigger();
    }
    const QString chemin = partie.dossier.Chemin(partie.tirage.Un(QStringList{"fiche.html", "notes.txt", "FICHE.HTM"}));
    partie.pilote.AttendFichier("Ouvrir", {}, chemin);
    edite.vue->actFileOpen->trigger();
    // After the guard has saved: it may have been this very file.
    PrendLeTexte(edite, chemin);
    partie.NoteLeFait("fiche : ouverte");
}

void Fiches::PrevoitQuestion(Edite &edite, const QString &reponse)
{
    partie.pilote.AttendBoite("Fermer...", questionDeFermeture, reponse);
    partie.NoteLeFait("fiche : fermeture " + reponse);
    if (reponse == "Oui")
        PrevoitSauvegarde(edite, false);
}

void Fiches::Ferme(Edite &edite)
{
    bool reste = false;
    if (edite.modifie) {
        const QString reponse = partie.tirage.Un(QStringList{"Oui", "Non", "Annuler"});
        reste = reponse == "Annuler";
        PrevoitQuestion(edite, reponse);
    }
    LyTextEdit *vue = edite.vue;
    if (partie.tirage.Chance(50))
        vue->actFileQuit->trigger();
    else
        vue->close();
    if (reste)
        return;
    partie.NoteLeFait("fiche fermée");
    if (edite.seul)
        vue->deleteLater();
    Oublie(vue);
}

void Fiches::PrevoitFermetureDeTout()
{
    restes.clear();
    for (Edite &edite : edites) {
        if (edite.seul || !edite.modifie)
            continue;
        const QString reponse = partie.tirage.Un(QStringList{"Oui", "Non", "Annuler"});
        PrevoitQuestion(edite, reponse);
        if (reponse == "Annuler")
            restes += edite.vue;
    }
    // The others are gone by the time the window is destroyed.
    const QList<Edite> avant = edites;
    for (const Edite &edite : avant) {
        if (!edite.seul && !restes.contains(edite.vue))
            Oublie(edite.vue);
    }
}

void Fiches::PrevoitDestruction()
{
    for (auto edite = edites.rbegin(); edite != edites.rend(); ++edite) {
        if (edite->seul || !edite->modifie)
            continue;
        if (partie.tirage.Chance(40)) {
            // The program waits for it: its user closes it later.
            const QPointer<LyTextEdit> vue = edite->vue;
            partie.pilote.Attend<QMessageBox>([vue](QMessageBox &boite) {
                QMetaObject::invokeMethod(vue, &LyTextEdit::slotFileQuit, Qt::QueuedConnection);
                boite.buttons().at(2)->click();
                return boite.text() == questionDeFermeture ? QString() : boite.text();
            });
            partie.NoteLeFait("le programme attend une fiche");
        }
        PrevoitQuestion(*edite, partie.tirage.Un(QStringList{"Oui", "Non"}));
    }
}

QString Fiches::ConstateLaFin()
{
    edites.removeIf([](const Edite &edite) { return !edite.seul; });
    affiches.removeIf([](const Affiche &affiche) { return !affiche.proprietaire || !affiche.proprietaire->autonome; });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const int restees = NombreALEcran() - Nombre();
    return restees == 0 ? QString() : QStringLiteral("%1 fenêtres de fiches restées").arg(restees);
}

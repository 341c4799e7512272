#include "commun.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "navigateurfiche.h"
#include "textefiche.h"

#include <QApplication>
#include <QPixmap>
#include <QStringConverter>

/// The bytes are a person's sheet: it is shown as a page, opened in the editor with its colours, and saved.

namespace {

/// One for the process: to build a window takes longer than all the rest.
LyTextEdit &Editeur()
{
    static const auto editeur = std::make_unique<LyTextEdit>(
        QStringLiteral("Fiche"), Pose(QStringLiteral("vide.html"), ""), false, Dossier(), QString());
    return *editeur;
}

void VerifieLesTextes(const QByteArray &octets)
{
    const QString texte = TexteFicheSimple(octets);
    if (!QStringConverter::encodingForData(octets))
        Exige(texte.toUtf8() == octets || texte.toLatin1() == octets, "un texte sans marque garde ses octets");
    [[maybe_unused]] const QString html = TexteFicheHtml(octets);
}

void VerifieLEditeur(const QString &chemin, QByteArray octets)
{
    Exige(Editeur().loadFile(chemin), "la fiche s'ouvre");
    Exige(!Editeur().texte->document()->isModified(), "une fiche ouverte n'est pas modifiée");
    const QString copie = Dossier() + QStringLiteral("/ecrit.html");
    Exige(Editeur().saveFile(copie), "la fiche s'enregistre");
    octets.replace("\r\n", "\n").replace('\r', '\n');
    Exige(Contenu(copie) == octets, "une fiche enregistrée garde ses octets, fins de lignes à part");
}

void Montre(const QString &chemin)
{
    NavigateurFiche navigateur(nullptr);
    navigateur.resize(300, 200);
    navigateur.setSource(QUrl::fromLocalFile(chemin));
    Exige(!navigateur.grab().isNull(), "la page se montre");
}

}  // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    Demarre<QApplication>();
    Editeur();
    Exige(QImage(3, 2, QImage::Format_RGB32).save(Dossier() + QStringLiteral("/p.png")), "une photo s'écrit");
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *octets, std::size_t taille)
{
    const QByteArray contenu = Vue(octets, taille).toByteArray();
    const QString chemin = Pose(QStringLiteral("lue.html"), contenu);
    Exige(OctetsFiche(chemin) == contenu, "une fiche se lit octet par octet");
    VerifieLesTextes(contenu);
    VerifieLEditeur(chemin, contenu);
    Montre(chemin);
    QCoreApplication::processEvents();
    return 0;
}

#include "fenetre.h"
#include "utilisateur.h"

#include <QDir>
#include <QImage>
#include <QSettings>

/// A user who does everything in any order. The same seed plays the same journey again; one that fails tells its last
/// events. From the environment: RAMELIER_HASARD_GRAINE, the seed, and RAMELIER_HASARD_EVENEMENTS, how many events.
class TestAuHasard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void toutResteJusteApresChaqueEvenement();
};

namespace {

constexpr int evenementsParDefaut = 3000;

/// What a journey of this length must have done, each thing at least once.
const QStringList gestesAttendus{
    "sélectionner", "cliquer à côté", "double clic", "flèche", "numéro", "modifier", "père", "mère", "supprimer",
    "annuler", "page de garde", "mode", "affichage", "formats", "polices", "préférences", "barres", "défilement",
    "taille", "à propos", "qu'est-ce", "sauver", "sauver sous", "ouvrir", "nouveau", "imprimer", "importer",
    "réimporter", "exporter", "assembler", "ouvrir un fichier abîmé", "assembler un arbre abîmé", "improviser",
    "afficher une fiche", "éditer une fiche", "aide", "éditeur seul", "dans une fiche", "quitter",
    // In a sheet.
    "taper", "effacer", "déplacer", "annuler la frappe", "presse-papier", "écraser", "chercher", "remplacer",
    "chercher encore", "sauver la fiche", "fermer la fiche", "montrer la fiche", "police de la fiche",
    "à propos de l'éditeur", "aide de l'éditeur", "barres de l'éditeur", "balise", "aligner", "corps ou image",
    "tableau", "fiche sous un nom", "fiche nouvelle", "ouvrir une fiche"};

/// What it must have brought about.
const QStringList faitsAttendus{"ajoutée",
                                "refusée",
                                "modifiée",
                                "sans nom",
                                "supprimée",
                                "modification annulée",
                                "rétablie",
                                "remise",
                                "page changée",
                                "à côté",
                                "flèche suivie",
                                "bout de l'arbre",
                                "numéro tapé",
                                "par le menu",
                                "consultation",
                                "édition",
                                "affichage complet",
                                "affichage réduit",
                                "formats changés",
                                "polices changées",
                                "préférences changées",
                                "défilé",
                                "autre taille",
                                "fichier écrit",
                                "fichier ouvert",
                                "garde Oui",
                                "garde Non",
                                "garde Annuler",
                                "impression abandonnée",
                                "importé",
                                "exporté",
                                "assemblé",
                                "fichier abîmé refusé",
                                "improvisé",
                                "revenu au modèle",
                                "aide affichée",
                                "éditeur seul",
                                "fiche : tapé",
                                "fiche : effacé",
                                "fiche : balise vide",
                                "fiche : annulé",
                                "fiche : enregistrée",
                                "fiche fermée",
                                "afficheur : page",
                                "afficheur : lien",
                                "afficheur fermé",
                                "quitté",
                                "fermé"};

/// What is too rare for it: asked of all journeys of outils/hasard together.
const QStringList faitsALaLongue{
    // Persons, the window, its files.
    "gardée", "double clic sans fiche", "formats abandonnés", "polices abandonnées", "préférences abandonnées",
    "barre d'outils", "barre de statut", "à propos", "à propos de Qt", "qu'est-ce que c'est", "fichier absent",
    "fichier étrange ouvert", "ancien fichier ouvert", "ancien format", "ancien format converti", "arbre commencé",
    "page abandonnée", "racine abandonnée", "imprimé en pdf", "quitter Oui", "quitter Non", "quitter Annuler", "resté",
    "le programme attend une fiche", "lancé sur ce qui n'est pas un fichier", "lancé sur un fichier abîmé",
    // Exchanges.
    "importé sans choisir", "importation abandonnée", "racine introuvable", "GEDCOM sans personne", "réimporté",
    "exportation interdite", "exportation abandonnée", "exportation refusée", "assemblage abandonné", "père abîmé",
    "mère abîmée",
    // Sheets.
    "fiche HTML affichée", "fiche TXT affichée", "fiche absente", "fiche par un double clic", "fiche éditée",
    "fiche nouvelle", "fiche déjà éditée", "fiche illisible", "fiche sans nom", "fiche : tapé en écrasant",
    "fiche : balise autour", "fiche : alignée", "fiche : corps", "fiche : image", "fiche : tableau",
    "fiche : tableau abandonné", "fiche : refait", "fiche : coupé", "fiche : copié", "fiche : collé",
    "fiche : insertion ou remplacement", "fiche : trouvé", "fiche : non trouvé", "fiche : remplacé",
    "fiche : nom abandonné", "fiche : écriture impossible", "fiche : recommencée", "fiche : ouverte",
    "fiche : garde Oui", "fiche : garde Non", "fiche : garde Annuler", "fiche : fermeture Oui", "fiche : fermeture Non",
    "fiche : fermeture Annuler", "fiche : montrée", "fiche : montrée encore", "fiche : police", "fiche : aide",
    "fiche : à propos", "fiche : barres", "fiche : impression Imprimante", "fiche : impression Fichier pdf",
    "fiche : impression Annuler", "afficheur : barre", "afficheur : à propos"};

QtMessageHandler messagesAvant = nullptr;

void SansBruit(QtMsgType type, const QMessageLogContext &contexte, const QString &message)
{
    // The offscreen platform complains of every dialog, and there is no printer: thousands of lines before the one that
    // counts.
    if (!message.startsWith("This plugin does not support") && !message.startsWith("QPrinter")
        && !message.startsWith("QPainter::begin"))
        messagesAvant(type, contexte, message);
}

int Entier(const char *variable, int sinon)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : sinon;
}

Profil ProfilDe(quint32 graine)
{
    switch (graine % 5) {
    case 1:
        return {};
    case 2:
        return {.selectionner = 10, .ajouter = 35, .personnes = 60, .selectionApresAjout = 5};
    case 3:
        return {.modifier = 25, .annuler = 20, .mode = 8};
    case 4:
        return {.sauver = 8, .fichiers = 5, .echanges = 6, .personnes = 8};
    default:
        return {.fiches = 20, .desordre = 5};
    }
}

QStringList Jamais(QStringList noms, const QMap<QString, int> &comptes)
{
    noms.removeIf([&comptes](const QString &nom) { return comptes.contains(nom); });
    return noms;
}

QString EnTexte(const QMap<QString, int> &comptes)
{
    QStringList lignes;
    for (auto i = comptes.begin(); i != comptes.end(); ++i)
        lignes += QStringLiteral("%1 %2").arg(i.key()).arg(i.value());
    return lignes.join(QStringLiteral(" ; "));
}

}  // namespace

void TestAuHasard::initTestCase()
{
    messagesAvant = qInstallMessageHandler(SansBruit);
    // The journey goes on when its program has ended.
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void TestAuHasard::cleanupTestCase()
{
    qInstallMessageHandler(messagesAvant);
}

void TestAuHasard::toutResteJusteApresChaqueEvenement()
{
    const auto graine = static_cast<quint32>(Entier("RAMELIER_HASARD_GRAINE", 1));
    const int evenements = Entier("RAMELIER_HASARD_EVENEMENTS", evenementsParDefaut);
    EffaceReglages();
    QSettings("ProgrammesLY", "ramelieredithtml").clear();
    const Dossier dossier;
    QVERIFY(QDir(dossier.Chemin()).mkdir("ailleurs"));
    QImage portrait(30, 40, QImage::Format_RGB32);
    portrait.fill(Qt::darkGreen);
    QVERIFY(portrait.save(dossier.Chemin("portrait.png")));
    const QString chemin = dossier.Ecrit(
        "depart.xrlg", ArbreEcrit("Départ", {{1, "MARTIN", "Paul"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE", "Élise"}}));
    Utilisateur utilisateur(dossier, graine, ProfilDe(graine), chemin);
    const Partie &partie = utilisateur.SaPartie();
    for (int i = 1; i <= evenements; ++i) {
        const QString ecart = utilisateur.Joue();
        if (!ecart.isEmpty())
            QFAIL(qPrintable(QStringLiteral("graine %1, événement %2 : %3\n%4")
                                 .arg(graine)
                                 .arg(i)
                                 .arg(ecart, partie.Derniers().join(u'\n'))));
    }
    QCOMPARE(utilisateur.Quitte(), QString());
    qInfo("Événements : %d\nGestes : %s\nFaits : %s", evenements, qPrintable(EnTexte(partie.Gestes())),
          qPrintable(EnTexte(partie.Faits())));
    const QStringList manquants = Jamais(gestesAttendus, partie.Gestes()) + Jamais(faitsAttendus, partie.Faits());
    qInfo("Jamais : %s", qPrintable((manquants + Jamais(faitsALaLongue, partie.Faits())).join(QStringLiteral(" ; "))));
    // A journey that stays away from a command says nothing about it. Of several long ones, what all of them stay away
    // from counts: who plays them looks at that.
    if (!qEnvironmentVariableIsSet("RAMELIER_HASARD_EVENEMENTS"))
        QCOMPARE(manquants, QStringList());
}

RAMELIER_TEST_BUREAU_MAIN(TestAuHasard)
#include "tst_au_hasard.moc"

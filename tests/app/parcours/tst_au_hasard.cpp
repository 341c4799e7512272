#include "fenetre.h"
#include "utilisateur.h"

#include <QImage>

/// A user who does everything in any order. The same row plays the same journey again; one that fails tells its last
/// events.
class TestAuHasard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void toutResteJusteApresChaqueEvenement_data();
    void toutResteJusteApresChaqueEvenement();
};

Q_DECLARE_METATYPE(Profil)

namespace {

constexpr int evenements = 5500;

QtMessageHandler messagesAvant = nullptr;

void SansBruit(QtMsgType type, const QMessageLogContext &contexte, const QString &message)
{
    // The offscreen platform complains of every dialog: thousands of lines before the one that counts.
    if (!message.startsWith("This plugin does not support"))
        messagesAvant(type, contexte, message);
}

}  // namespace

void TestAuHasard::initTestCase()
{
    messagesAvant = qInstallMessageHandler(SansBruit);
}

void TestAuHasard::cleanupTestCase()
{
    qInstallMessageHandler(messagesAvant);
}

void TestAuHasard::toutResteJusteApresChaqueEvenement_data()
{
    QTest::addColumn<quint32>("graine");
    QTest::addColumn<Profil>("profil");
    QTest::newRow("de tout, graine 1") << 1U << Profil{};
    QTest::newRow("lignées profondes, graine 2")
        << 2U << Profil{.selectionner = 10, .ajouter = 35, .personnes = 60, .selectionApresAjout = 5};
    QTest::newRow("beaucoup de retours, graine 3") << 3U << Profil{.modifier = 25, .annuler = 20, .mode = 8};
    QTest::newRow("beaucoup de fichiers, graine 4") << 4U << Profil{.sauver = 8, .fichiers = 5, .personnes = 8};
}

void TestAuHasard::toutResteJusteApresChaqueEvenement()
{
    QFETCH(const quint32, graine);
    QFETCH(const Profil, profil);
    EffaceReglages();
    const Dossier dossier;
    QImage portrait(30, 40, QImage::Format_RGB32);
    portrait.fill(Qt::darkGreen);
    QVERIFY(portrait.save(dossier.Chemin("portrait.png")));
    const QString chemin = dossier.Ecrit(
        "depart.xrlg", ArbreEcrit("Départ", {{1, "MARTIN", "Paul"}, {2, "MARTIN", "Jean"}, {3, "LEFÈVRE", "Élise"}}));
    Fenetre fenetre({chemin});
    Utilisateur utilisateur(fenetre, dossier, graine, profil, chemin);
    for (int i = 1; i <= evenements; ++i) {
        const QString ecart = utilisateur.Joue();
        if (!ecart.isEmpty())
            QFAIL(qPrintable(QStringLiteral("graine %1, événement %2 : %3\n%4")
                                 .arg(graine)
                                 .arg(i)
                                 .arg(ecart, utilisateur.Derniers().join(u'\n'))));
    }
    // A journey that stays away from a command says nothing about it.
    for (const char *fait :
         {"ajoutée", "refusée", "modifiée", "sans nom", "supprimée", "gardée", "modification annulée", "rétablie",
          "remise", "page changée", "fichier écrit", "fichier ouvert", "à côté", "par le menu"})
        QVERIFY2(utilisateur.Faits().value(fait) >= 10, fait);
}

RAMELIER_TEST_BUREAU_MAIN(TestAuHasard)
#include "tst_au_hasard.moc"

#include "arbre.h"
#include "arbres.h"
#include "disposition.h"
#include "environnement.h"
#include "formatsdessins.h"
#include "personne.h"

#include <QGuiApplication>
#include <QPainter>
#include <QSet>

namespace {

constexpr float echelle = 4.0F;

QColor CouleurDe(const Personne &personne)
{
    return QColor::fromHsv(static_cast<int>(personne.numero * 37 % 360), 200, 200);
}

}  // namespace

/// The fills behind the boxes. At 4 pixels per millimetre with the default formats, boxes are 120 x 168, 160 apart, in rows
/// that stand 228 apart, within margins of 60.
class TestDessinFonds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { arbre.reset(); }
    void remplitLesCasesVoulues();
    void leCoinResteRond();
    void quiNEstPasAffichableNARien();
    void nAppelleQueCeuxQuiSeVoient();
    void leDessinDUnePartieEstLeMeme_data();
    void leDessinDUnePartieEstLeMeme();

private:
    void Dispose(int generations);
    [[nodiscard]] QImage Peint(QSize taille, const Arbre::FondDeCase &fond, const QRect &zone = {}) const;

    std::unique_ptr<Arbre> arbre;
    FormatsDessins formats = FormatsDessins::ParDefaut();
};

void TestDessinFonds::init()
{
    Dispose(2);
}

void TestDessinFonds::Dispose(int generations)
{
    arbre = ArbreComplet(generations);
    DisposeArbre(*arbre, formats, echelle, echelle);
}

QImage TestDessinFonds::Peint(QSize taille, const Arbre::FondDeCase &fond, const QRect &zone) const
{
    QImage feuille(taille, QImage::Format_RGB32);
    feuille.fill(Qt::white);
    QPainter peintre(&feuille);
    if (!zone.isNull())
        peintre.setClipRect(zone);
    arbre->PeintLesFonds(&peintre, echelle, echelle, formats, fond);
    return feuille;
}

void TestDessinFonds::remplitLesCasesVoulues()
{
    const QImage feuille = Peint(
        QSize(400, 520), [](const Personne &personne) { return personne.numero == 3 ? QColor(Qt::cyan) : QColor(); });
    // Father, mother and root at (60, 60), (220, 60) and (140, 288).
    QCOMPARE(feuille.pixelColor(120, 144), QColor(Qt::white));
    QCOMPARE(feuille.pixelColor(200, 372), QColor(Qt::white));
    QCOMPARE(feuille.pixelColor(280, 144), QColor(Qt::cyan));
    QCOMPARE(feuille.pixelColor(280, 60), QColor(Qt::cyan));
    QCOMPARE(feuille.pixelColor(280, 227), QColor(Qt::cyan));
    QCOMPARE(feuille.pixelColor(339, 144), QColor(Qt::cyan));
    QCOMPARE(feuille.pixelColor(280, 58), QColor(Qt::white));
    QCOMPARE(feuille.pixelColor(341, 144), QColor(Qt::white));
}

void TestDessinFonds::leCoinResteRond()
{
    const QImage feuille = Peint(QSize(400, 520), CouleurDe);
    QCOMPARE(feuille.pixelColor(61, 61), QColor(Qt::white));
    QVERIFY(feuille.pixelColor(61 + 12, 61 + 16) != QColor(Qt::white));
}

void TestDessinFonds::quiNEstPasAffichableNARien()
{
    Trouve(*arbre, 2)->affichable = false;
    const QImage feuille = Peint(QSize(400, 520), CouleurDe);
    QCOMPARE(feuille.pixelColor(120, 144), QColor(Qt::white));
    QVERIFY(feuille.pixelColor(280, 144) != QColor(Qt::white));
}

void TestDessinFonds::nAppelleQueCeuxQuiSeVoient()
{
    Dispose(12);
    // Whom the notes of the places have elsewhere is not even looked at.
    Personne *ailleurs = Trouve(*arbre, 4000);
    ailleurs->x = 60;
    ailleurs->y = 60;
    QSet<quint64> appelees;
    const auto note = [&appelees](const Personne &personne) {
        appelees += personne.numero;
        return QColor();
    };
    static_cast<void>(Peint(QSize(1000, 300), note, QRect(0, 0, 400, 230)));
    // Boxes at 60, 220 and 380 of the top row; that of their row below, at 140, begins at 288.
    QCOMPARE(appelees, (QSet<quint64>{2048, 2049, 2050}));
    appelees.clear();
    static_cast<void>(Peint(QSize(1000, 300), note));
    QCOMPARE(appelees.size(), 4095);
}

void TestDessinFonds::leDessinDUnePartieEstLeMeme_data()
{
    QTest::addColumn<QRect>("zone");
    QTest::newRow("coin") << QRect(0, 0, 100, 100);
    QTest::newRow("bord droit d'une case") << QRect(179, 60, 5, 60);
    QTest::newRow("bas d'une case") << QRect(60, 227, 400, 3);
    QTest::newRow("deux rangées") << QRect(130, 200, 900, 200);
    QTest::newRow("entre les rangées") << QRect(0, 232, 1400, 50);
}

void TestDessinFonds::leDessinDUnePartieEstLeMeme()
{
    QFETCH(const QRect, zone);
    Dispose(4);
    const QSize taille(1400, 1000);
    const QImage avecIndex = Peint(taille, CouleurDe, zone);
    arbre->OublieLesPlaces();
    QImage attendu(taille, QImage::Format_RGB32);
    attendu.fill(Qt::white);
    QPainter(&attendu).drawImage(zone.topLeft(), Peint(taille, CouleurDe), zone);
    QCOMPARE(avecIndex, attendu);
    QCOMPARE(Peint(taille, CouleurDe, zone), attendu);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinFonds)
#include "tst_dessin_fonds.moc"

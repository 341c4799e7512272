#include "arbre.h"
#include "arbres.h"
#include "arbview.h"
#include "demarrage.h"
#include "environnement.h"
#include "ficxrlg.h"
#include "personne.h"
#include "ramelierapp.h"
#include "ramelierdoc.h"
#include "ramelierview.h"

#include <QApplication>
#include <QImage>

/// A tree of a million persons, twenty complete generations, from the file to the screen and back.
class TestMillionOuvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ouvreDessineEtEnregistre();
};

void TestMillionOuvert::ouvreDessineEtEnregistre()
{
    const QTemporaryDir dossier;
    QByteArray chemin = dossier.filePath(QStringLiteral("million.xrlg")).toLocal8Bit();
    {
        const auto arbre = ArbreComplet(20);
        arbre->nombrePersonnes = 0;
        QVERIFY(writeFicXRLG(QString::fromLocal8Bit(chemin), arbre.get()));
    }
    const qint64 taille = QFileInfo(QString::fromLocal8Bit(chemin)).size();

    QByteArray nom("/usr/bin/ramelier");
    char *argv[] = {nom.data(), chemin.data(), nullptr};
    const auto fenetre = std::make_unique<RamelierApp>(2, argv);
    const Arbre *arbre = fenetre->doc->arbre;
    QVERIFY(arbre);
    QCOMPARE(arbre->nombrePersonnes, 1'048'575U);
    QCOMPARE(arbre->derniere->numero, 1'048'575U);
    QCOMPARE(arbre->derniere->y, 56);
    QCOMPARE(arbre->premiere->y, 56 + 19 * 215);
    // The last of the 524,288 boxes of the top row, each 151 pixels after the one before.
    QCOMPARE(arbre->derniere->x, 56 + 524'287L * 151);

    QVERIFY(QTest::qWaitForWindowExposed(fenetre.get()));
    const QImage image = fenetre->view->grab().toImage();
    QCOMPARE(image.pixelColor(56 + 56, 56), QColor(Qt::black));
    QCOMPARE(fenetre->view->vue()->size(), QSize(16'777'215, 56 + 19 * 215 + 158 + 56));

    // The keys reach everybody: the last one by its number, its child below, and the root; in every size.
    arbView *dessin = fenetre->view->vue();
    const auto choisie = [arbre, dessin, &fenetre](quint64 numero) {
        const QRect vue = fenetre->view->viewport()->rect();
        return arbre->selection && arbre->selection->numero == numero
            && vue.contains(dessin->PlaceDe(*arbre->selection).translated(dessin->pos()));
    };
    QTest::keyClicks(dessin, QStringLiteral("1048575"));
    QVERIFY(choisie(1'048'575));
    QTest::keyClick(dessin, Qt::Key_Down);
    QVERIFY(choisie(524'287));
    QTest::keyClick(dessin, Qt::Key_Left);
    QVERIFY(choisie(524'286));
    QTest::keyClick(dessin, Qt::Key_Home);
    QVERIFY(choisie(1));
    QTest::keyClicks(dessin, QStringLiteral("n700001"));
    QVERIFY(choisie(700'001));
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(dessin, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(choisie(700'001));
    QTest::keyClick(dessin, Qt::Key_Home);
    QVERIFY(choisie(1));
    QCOMPARE(arbre->premiere->y, 56 + 19 * 215);

    fenetre->slotFileSave();
    // Only the count of persons is longer: six digits more.
    QCOMPARE(QFileInfo(QString::fromLocal8Bit(chemin)).size(), taille + 6);
}

int main(int argc, char **argv)
{
    const Environnement environnement;
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("ramelier"));
    TestMillionOuvert test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_million_ouvert.moc"

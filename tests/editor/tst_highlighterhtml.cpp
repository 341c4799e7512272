#include "environnement.h"
#include "highlighterhtml.h"

#include <QGuiApplication>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

/// The colours of the source of an HTML sheet.
class TestHighlighterHtml : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lesCouleursDUneLigne_data();
    void lesCouleursDUneLigne();
    void rienNePasseDUneLigneALAutre();
    void seuleLaCouleurChange_data();
    void seuleLaCouleurChange();
    void unMegaoctetSurUneLigne();
};

namespace {

/// One letter a character: g green, b blue, r red, "." none.
QString Couleurs(const QTextBlock &ligne)
{
    QString lettres(ligne.length() - 1, u'.');
    const auto formats = ligne.layout()->formats();
    for (const QTextLayout::FormatRange &format : formats) {
        const QColor couleur = format.format.foreground().color();
        const QChar lettre = couleur == QColor(Qt::darkGreen) ? u'g'
            : couleur == QColor(Qt::blue)                     ? u'b'
            : couleur == QColor(Qt::red)                      ? u'r'
                                                              : u'?';
        lettres.replace(format.start, format.length, QString(format.length, lettre));
    }
    return lettres;
}

QString CouleursDe(const QString &texte)
{
    QTextDocument document;
    HighlighterHtml colore(&document);
    document.setPlainText(texte);
    colore.rehighlight();
    return Couleurs(document.firstBlock());
}

}  // namespace

void TestHighlighterHtml::lesCouleursDUneLigne_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("couleurs");
    QTest::newRow("lien") << R"(<a href="p.html">Jean</a>)"
                          << "b..bbbbbggggggggb....b..b";
    QTest::newRow("deux valeurs") << R"(<img src="a" alt="b">)"
                                  << "b....bbbbggggbbbbgggb";
    QTest::newRow("trois guillemets") << R"("a" b " c)"
                                      << "ggggggg..";
    QTest::newRow("valeur vide") << R"(<a href="">)"
                                 << "b..bbbbbggb";
    QTest::newRow("ligne vide") << ""
                                << "";
    QTest::newRow("un guillemet seul") << R"(a "b)"
                                       << "....";
    QTest::newRow("type de document") << "<!DOCTYPE html>"
                                      << "rrrrrrrrrrrrrrr";
    QTest::newRow("commentaire ouvert") << R"(a <!-- "x" >)"
                                        << "..rrrrrrrrrr";
    QTest::newRow("fin d'un nom plus long") << "width=1 grid=2"
                                            << "..........bbb.";
    QTest::newRow("majuscules") << R"(HREF=)"
                                << ".....";
    QTest::newRow("alignements") << "align= valign="
                                 << "bbbbbb.bbbbbbb";
    for (const char *mot : {"href=", "name=", "src=", "class=", "lang=", "dir=", "http-equiv=", "content=", "charset=",
                            "rel=", "type=", "id=", "alt=", "align=", "valign=", "face=", "border=", "<", ">"}) {
        const QString texte = QString::fromLatin1(mot);
        QTest::newRow(mot) << texte << QString(texte.size(), u'b');
    }
}

void TestHighlighterHtml::lesCouleursDUneLigne()
{
    QFETCH(const QString, texte);
    QTEST(CouleursDe(texte), "couleurs");
}

void TestHighlighterHtml::rienNePasseDUneLigneALAutre()
{
    QTextDocument document;
    HighlighterHtml colore(&document);
    document.setPlainText("<!-- un\n<b> \"deux\" -->\n\"trois\nquatre\"");
    colore.rehighlight();
    QCOMPARE(Couleurs(document.findBlockByNumber(0)), "rrrrrrr");
    QCOMPARE(Couleurs(document.findBlockByNumber(1)), "b.b.gggggg...b");
    QCOMPARE(Couleurs(document.findBlockByNumber(2)), "......");
    QCOMPARE(Couleurs(document.findBlockByNumber(3)), ".......");
}

void TestHighlighterHtml::seuleLaCouleurChange_data()
{
    QTest::addColumn<QString>("texte");
    QTest::newRow("bleu") << "<";
    QTest::newRow("vert") << R"("a")";
    QTest::newRow("rouge") << "<!";
}

void TestHighlighterHtml::seuleLaCouleurChange()
{
    QFETCH(const QString, texte);
    QTextDocument document;
    HighlighterHtml colore(&document);
    document.setPlainText(texte);
    colore.rehighlight();
    const QTextCharFormat format = document.firstBlock().layout()->formats().constFirst().format;
    QCOMPARE(format.properties().size(), 1);
    QVERIFY(format.hasProperty(QTextFormat::ForegroundBrush));
    QCOMPARE(format.foreground().style(), Qt::SolidPattern);
}

void TestHighlighterHtml::unMegaoctetSurUneLigne()
{
    const QString couleurs = CouleursDe(QString("\"<b>\" ").repeated(200'000));
    QCOMPARE(couleurs.size(), 1'200'000);
    QCOMPARE(couleurs.first(6), "gbgbgg");
    QCOMPARE(couleurs.last(6), "gbgbg.");
}

RAMELIER_TEST_MAIN(QGuiApplication, TestHighlighterHtml)
#include "tst_highlighterhtml.moc"

#include "environnement.h"
#include "ficoldrlg.h"

#include <QCoreApplication>

#include <memory>

/// LitChaine and EcriChaine: how a text is stored.
class TestRlgChaines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ecritLaLongueurPuisLesOctets_data();
    void ecritLaLongueurPuisLesOctets();
    void chaqueOctetEstSonCaractere();
    void completeSansVider();
    void nePrendQueCeQuIlFaut();
    void unNombreNegatifOuNulNeLitRien_data();
    void unNombreNegatifOuNulNeLitRien();
    void laFinDuFichierCoupeLeTexte();
    void ceQuiEstEcritSeRelit_data();
    void ceQuiEstEcritSeRelit();
    void plusieursTextesSeSuivent();
};

namespace {

struct Ferme
{
    void operator()(std::FILE *fichier) const { std::fclose(fichier); }
};
using Fichier = std::unique_ptr<std::FILE, Ferme>;

/// A file without a name, read from its start.
Fichier FichierDe(const QByteArray &contenu)
{
    Fichier fichier(std::tmpfile());
    std::fwrite(contenu.constData(), 1, std::size_t(contenu.size()), fichier.get());
    std::rewind(fichier.get());
    return fichier;
}

QByteArray Contenu(std::FILE *fichier)
{
    std::rewind(fichier);
    QByteArray contenu;
    for (int octet = std::getc(fichier); octet != EOF; octet = std::getc(fichier))
        contenu += char(octet);
    return contenu;
}

/// A stored text: its length, low byte first, then its body.
QString LitTexte(std::FILE *fichier)
{
    const int bas = std::getc(fichier);
    const int haut = std::getc(fichier);
    QString texte;
    LitChaine(fichier, texte, short(bas | haut << 8));
    return texte;
}

}  // namespace

void TestRlgChaines::ecritLaLongueurPuisLesOctets_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QByteArray>("hexa");
    QTest::newRow("vide") << QString() << QByteArray("0000");
    QTest::newRow("AB") << "AB" << QByteArray("02004142");
    QTest::newRow("accents") << QStringLiteral("Éàçÿ") << QByteArray("0400c9e0e7ff");
    QTest::newRow("euro") << QStringLiteral("5 €") << QByteArray("030035203f");
    QTest::newRow("ligature") << QStringLiteral("Œuvre") << QByteArray("05003f75767265");
    QTest::newRow("hors du plan de base") << QStringLiteral("😀") << QByteArray("02003f3f");
    QTest::newRow("saut de ligne") << "a\r\nb" << QByteArray("0400610d0a62");
    QTest::newRow("caractère nul") << QString(QChar(u'\0')) << QByteArray("010000");
    QTest::newRow("258 caractères") << QString(258, u'a') << QByteArray("0201") + QByteArray("61").repeated(258);
}

void TestRlgChaines::ecritLaLongueurPuisLesOctets()
{
    QFETCH(QString, texte);
    QFETCH(QByteArray, hexa);
    const Fichier fichier = FichierDe({});
    const QString avant = texte;
    EcriChaine(fichier.get(), texte);
    QCOMPARE(Contenu(fichier.get()).toHex(), hexa);
    QCOMPARE(texte, avant);
}

void TestRlgChaines::chaqueOctetEstSonCaractere()
{
    QByteArray octets;
    for (int octet = 0; octet < 256; ++octet)
        octets += char(octet);
    const Fichier fichier = FichierDe(octets);
    QString texte;
    LitChaine(fichier.get(), texte, 256);
    QCOMPARE(texte.size(), 256);
    for (int i = 0; i < 256; ++i)
        QCOMPARE(int(texte.at(i).unicode()), i);
}

void TestRlgChaines::completeSansVider()
{
    const Fichier fichier = FichierDe("tin\xE9"
                                      "e");
    QString texte = QStringLiteral("Mâ");
    LitChaine(fichier.get(), texte, 3);
    QCOMPARE(texte, QStringLiteral("Mâtin"));
    LitChaine(fichier.get(), texte, 2);
    QCOMPARE(texte, QStringLiteral("Mâtinée"));
    LitChaine(fichier.get(), texte, 5);
    QCOMPARE(texte, QStringLiteral("Mâtinée"));
}

void TestRlgChaines::nePrendQueCeQuIlFaut()
{
    const Fichier fichier = FichierDe("abcdef");
    QString texte;
    LitChaine(fichier.get(), texte, 4);
    QCOMPARE(texte, QStringLiteral("abcd"));
    QCOMPARE(std::ftell(fichier.get()), 4L);
    QCOMPARE(std::getc(fichier.get()), int('e'));
}

void TestRlgChaines::unNombreNegatifOuNulNeLitRien_data()
{
    QTest::addColumn<int>("nombre");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
    QTest::newRow("-2") << -2;
    QTest::newRow("-32768") << -32768;
}

void TestRlgChaines::unNombreNegatifOuNulNeLitRien()
{
    QFETCH(int, nombre);
    const Fichier fichier = FichierDe("abcdef");
    QString texte = QStringLiteral("x");
    LitChaine(fichier.get(), texte, short(nombre));
    QCOMPARE(texte, QStringLiteral("x"));
    QCOMPARE(std::ftell(fichier.get()), 0L);
}

void TestRlgChaines::laFinDuFichierCoupeLeTexte()
{
    const Fichier fichier = FichierDe("abc");
    QString texte;
    LitChaine(fichier.get(), texte, 32767);
    QCOMPARE(texte, QStringLiteral("abc"));
    LitChaine(fichier.get(), texte, 1);
    QCOMPARE(texte, QStringLiteral("abc"));
}

void TestRlgChaines::ceQuiEstEcritSeRelit_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("relu");
    const QString accents = QStringLiteral("Élise à Noël, 12 août\n«ÿ»\t");
    QTest::newRow("vide") << QString() << QString();
    QTest::newRow("accents") << accents << accents;
    QTest::newRow("hors de l'alphabet") << QStringLiteral("a—b…😀") << "a?b???";
    QTest::newRow("le plus long") << QString(32767, u'é') << QString(32767, u'é');
    QTest::newRow("trop long pour être relu") << QString(32768, u'é') << QString();
}

void TestRlgChaines::ceQuiEstEcritSeRelit()
{
    QFETCH(QString, texte);
    QFETCH(QString, relu);
    const Fichier fichier = FichierDe({});
    EcriChaine(fichier.get(), texte);
    std::rewind(fichier.get());
    QCOMPARE(LitTexte(fichier.get()), relu);
}

void TestRlgChaines::plusieursTextesSeSuivent()
{
    QStringList textes{"un", "", QStringLiteral("trôis"), QString(300, u'x')};
    const Fichier fichier = FichierDe({});
    for (QString &texte : textes)
        EcriChaine(fichier.get(), texte);
    std::rewind(fichier.get());
    QStringList relus;
    for (int i = 0; i < 4; ++i)
        relus += LitTexte(fichier.get());
    QCOMPARE(relus, textes);
    QCOMPARE(std::getc(fichier.get()), EOF);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestRlgChaines)
#include "tst_rlg_chaines.moc"

#include "environnement.h"
#include "personnedessai.h"

#include <QFontMetrics>
#include <QGuiApplication>

/// Frame, number and texts of one person.
class TestDessinPersonne : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { essai = std::make_unique<PersonneDEssai>(); }
    void cleanup() { essai.reset(); }

    void leCadreEstUnRectangleArrondi_data();
    void leCadreEstUnRectangleArrondi();
    void leCadreEstTraceAvecLaPlumeDesTraits();
    void leNumeroEstCentreEnHautDuCadre();
    void leNumeroEstSansSigne_data();
    void leNumeroEstSansSigne();
    void toutSeDessineDansLOrdre();
    void lesChampsVidesNOntPasDeLigne_data();
    void lesChampsVidesNOntPasDeLigne();
    void leModeReduitNeGardeQueNumeroNomEtDates();
    void uneImpressionSeDessineDeMeme();
    void unePersonneNonAffichableNeDessineRien();
    void unePersonneSansDonneesMontreSonNumero();
    void lesPolicesDesLignesNePrennentQueFamilleEtTaille();
    void tousLesTextesOntLaCouleurDesCaracteres();
    void lesLignesSEmpilentSelonLeurHauteur();
    void lesTextesRestentEntreLesMarges_data();
    void lesTextesRestentEntreLesMarges();
    void lesLignesDeTropDebordentDuCadre();

private:
    [[nodiscard]] QFontMetrics Mesures(const QFont &police) const;

    std::unique_ptr<PersonneDEssai> essai;
};

QFontMetrics TestDessinPersonne::Mesures(const QFont &police) const
{
    return QFontMetrics(police, essai->dessin.get());
}

void TestDessinPersonne::leCadreEstUnRectangleArrondi_data()
{
    QTest::addColumn<int>("largeur");
    QTest::addColumn<int>("hauteur");
    QTest::addColumn<float>("rayon");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("par défaut") << 30 << 42 << 2.5F << QStringLiteral("cadre 100,200 120x84 rondeurs 20,10");
    QTest::newRow("rondeurs tronquées") << 30 << 42 << 2.49F << QStringLiteral("cadre 100,200 120x84 rondeurs 19,9");
    QTest::newRow("petit") << 25 << 15 << 1.0F << QStringLiteral("cadre 100,200 100x30 rondeurs 8,4");
    QTest::newRow("rondeurs bornées") << 30 << 42 << 500.0F << QStringLiteral("cadre 100,200 120x84 rondeurs 99,99");
    QTest::newRow("une seule bornée") << 30 << 42 << 20.0F << QStringLiteral("cadre 100,200 120x84 rondeurs 99,80");
    QTest::newRow("sans rondeur") << 30 << 42 << 0.0F << QStringLiteral("rectangle 100,200 120x84");
    QTest::newRow("rayon négatif") << 30 << 42 << -3.0F << QStringLiteral("rectangle 100,200 120x84");
    QTest::newRow("sans taille") << 0 << -5 << 0.0F << QStringLiteral("rectangle 100,200 1x1");
}

void TestDessinPersonne::leCadreEstUnRectangleArrondi()
{
    QFETCH(int, largeur);
    QFETCH(int, hauteur);
    QFETCH(float, rayon);
    QFETCH(QString, attendu);
    essai->formats.largeurCadre = largeur;
    essai->formats.hauteurCadre = hauteur;
    essai->formats.rayonArc = rayon;
    essai->Affiche();
    QCOMPARE(essai->dessin->EnTexte(Trace::Genre::Chemin), QStringList(attendu));
}

void TestDessinPersonne::leCadreEstTraceAvecLaPlumeDesTraits()
{
    essai->formats.epaisseurTraits = 1.9F;
    essai->Affiche();
    const QList<Trace> chemins = essai->dessin->Traces(Trace::Genre::Chemin);
    QCOMPARE(chemins.size(), 1);
    QCOMPARE(chemins.first().plume.width(), 7);
    QCOMPARE(chemins.first().plume.style(), Qt::SolidLine);
    QCOMPARE(chemins.first().plume.color(), QColor(Qt::red));
    QCOMPARE(chemins.first().brosse.style(), Qt::NoBrush);
}

void TestDessinPersonne::leNumeroEstCentreEnHautDuCadre()
{
    essai->personne.numero = 1234;
    essai->Affiche();
    const Trace numero = essai->dessin->Texte(QStringLiteral("1234"));
    QCOMPARE(numero.police.family(), QStringLiteral("Helvetica"));
    QCOMPARE(numero.police.pointSize(), 14);
    QCOMPARE(numero.police.weight(), int(QFont::Bold));
    QVERIFY(!numero.police.italic());
    const QFontMetrics mesures = Mesures(essai->polices.policeNumeros);
    QCOMPARE(qRound(numero.position.y()), 200 + mesures.ascent());
    QVERIFY(qAbs(numero.position.x() + mesures.horizontalAdvance(QStringLiteral("1234")) / 2.0 - 160.0) <= 1.0);
}

void TestDessinPersonne::leNumeroEstSansSigne_data()
{
    QTest::addColumn<quint64>("numero");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("racine") << quint64(1) << QStringLiteral("1");
    QTest::newRow("sans séparateur") << quint64(1234567) << QStringLiteral("1234567");
    QTest::newRow("2^63") << quint64(9223372036854775808U) << QStringLiteral("9223372036854775808");
    QTest::newRow("le plus grand") << quint64(18446744073709551615U) << QStringLiteral("18446744073709551615");
}

void TestDessinPersonne::leNumeroEstSansSigne()
{
    QFETCH(quint64, numero);
    QFETCH(QString, attendu);
    essai->personne.numero = numero;
    essai->Affiche();
    QCOMPARE(essai->dessin->Textes().first(), attendu);
}

void TestDessinPersonne::toutSeDessineDansLOrdre()
{
    essai->personne.selectionnee = true;
    essai->personne.info->photo = QImage(60, 60, QImage::Format_RGB32);
    essai->personne.info->etatPhoto = InfoPersonne::PhotoChargee;
    essai->Affiche();
    const QStringList attendu{QStringLiteral("cadre 100,200 120x84 rondeurs 20,10"),
                              QStringLiteral("ligne 97,197 138,197"),
                              QStringLiteral("ligne 181,197 222,197"),
                              QStringLiteral("ligne 222,197 222,286"),
                              QStringLiteral("ligne 97,197 97,286"),
                              QStringLiteral("ligne 97,286 159,286"),
                              QStringLiteral("ligne 159,286 222,286"),
                              QStringLiteral("texte 4"),
                              QStringLiteral("image 228,200 84x84"),
                              QStringLiteral("texte Jean DUPONT"),
                              QStringLiteral("texte ° 1er mai 1900"),
                              QStringLiteral("texte à Lyon"),
                              QStringLiteral("texte + vers 1970"),
                              QStringLiteral("texte à Paris"),
                              QStringLiteral("texte Notaire")};
    QCOMPARE(essai->dessin->EnTexte(), attendu);
}

void TestDessinPersonne::lesChampsVidesNOntPasDeLigne_data()
{
    QTest::addColumn<QStringList>("champs");  // surname, given names, birth, place, death, place, remark
    QTest::addColumn<QStringList>("attendu");
    const auto ligne = [](const char *nom, const QStringList &champs, const QStringList &attendu) {
        QTest::newRow(nom) << champs << QStringList(QStringLiteral("4")) + attendu;
    };
    const QString vide;
    ligne("tout vide", {vide, vide, vide, vide, vide, vide, vide}, {});
    ligne("nom seul", {QStringLiteral("DUPONT"), vide, vide, vide, vide, vide, vide}, {QStringLiteral("DUPONT")});
    ligne("prénom et nom", {QStringLiteral("DUPONT"), QStringLiteral("Jean"), vide, vide, vide, vide, vide},
          {QStringLiteral("Jean DUPONT")});
    ligne("naissance", {vide, vide, QStringLiteral("1900"), vide, vide, vide, vide}, {QStringLiteral("° 1900")});
    ligne("lieu de naissance", {vide, vide, vide, QStringLiteral("Lyon"), vide, vide, vide},
          {QStringLiteral("à Lyon")});
    ligne("décès", {vide, vide, vide, vide, QStringLiteral("1970"), vide, vide}, {QStringLiteral("+ 1970")});
    ligne("lieu de décès", {vide, vide, vide, vide, vide, QStringLiteral("Paris"), vide}, {QStringLiteral("à Paris")});
    ligne("remarque", {vide, vide, vide, vide, vide, vide, QStringLiteral("Notaire")}, {QStringLiteral("Notaire")});
    ligne("un sur deux",
          {QStringLiteral("DUPONT"), vide, vide, QStringLiteral("Lyon"), vide, vide, QStringLiteral("Notaire")},
          {QStringLiteral("DUPONT"), QStringLiteral("à Lyon"), QStringLiteral("Notaire")});
}

void TestDessinPersonne::lesChampsVidesNOntPasDeLigne()
{
    QFETCH(QStringList, champs);
    QFETCH(QStringList, attendu);
    InfoPersonne &info = *essai->personne.info;
    info.nom = champs.at(0);
    info.prenom = champs.at(1);
    info.datenaissance = champs.at(2);
    info.lieunaissance = champs.at(3);
    info.datedeces = champs.at(4);
    info.lieudeces = champs.at(5);
    info.divers = champs.at(6);
    essai->Affiche();
    QCOMPARE(essai->dessin->Textes(), attendu);
}

void TestDessinPersonne::leModeReduitNeGardeQueNumeroNomEtDates()
{
    essai->personne.info->photo = QImage(60, 60, QImage::Format_RGB32);
    essai->personne.info->etatPhoto = InfoPersonne::PhotoChargee;
    essai->Affiche(false, false);
    const QStringList attendu{QStringLiteral("texte 4"), QStringLiteral("texte Jean DUPONT"),
                              QStringLiteral("texte ° 1er mai 1900"), QStringLiteral("texte + vers 1970")};
    QCOMPARE(essai->dessin->EnTexte(), attendu);
    QCOMPARE(essai->personne.info->etatPhoto, int(InfoPersonne::PhotoChargee));
}

void TestDessinPersonne::uneImpressionSeDessineDeMeme()
{
    essai->Affiche(true);
    const QStringList attendu{QStringLiteral("cadre 100,200 120x84 rondeurs 20,10"),
                              QStringLiteral("texte 4"),
                              QStringLiteral("texte Jean DUPONT"),
                              QStringLiteral("texte ° 1er mai 1900"),
                              QStringLiteral("texte à Lyon"),
                              QStringLiteral("texte + vers 1970"),
                              QStringLiteral("texte à Paris"),
                              QStringLiteral("texte Notaire")};
    QCOMPARE(essai->dessin->EnTexte(), attendu);
}

void TestDessinPersonne::unePersonneNonAffichableNeDessineRien()
{
    essai->personne.affichable = false;
    essai->personne.selectionnee = true;
    essai->Affiche();
    QCOMPARE(essai->dessin->EnTexte(), QStringList());
}

void TestDessinPersonne::unePersonneSansDonneesMontreSonNumero()
{
    delete std::exchange(essai->personne.info, nullptr);
    essai->Affiche();
    QCOMPARE(essai->dessin->EnTexte(),
             QStringList({QStringLiteral("cadre 100,200 120x84 rondeurs 20,10"), QStringLiteral("texte 4")}));
}

void TestDessinPersonne::lesPolicesDesLignesNePrennentQueFamilleEtTaille()
{
    QFont autre(QStringLiteral("Liberation Serif"), 6, QFont::Black, true);
    autre.setUnderline(true);
    essai->polices.policeTextes = autre;
    essai->Affiche();
    struct Attendue
    {
        QString texte;
        int poids;
        bool italique;
    };
    const QList<Attendue> attendues{
        {QStringLiteral("Jean DUPONT"), QFont::Bold, false}, {QStringLiteral("° 1er mai 1900"), QFont::Normal, false},
        {QStringLiteral("à Lyon"), QFont::Normal, false},    {QStringLiteral("+ vers 1970"), QFont::Normal, false},
        {QStringLiteral("à Paris"), QFont::Normal, false},   {QStringLiteral("Notaire"), QFont::Normal, true}};
    for (const Attendue &attendue : attendues) {
        const QFont police = essai->dessin->Texte(attendue.texte).police;
        QCOMPARE(police.family(), QStringLiteral("Liberation Serif"));
        QCOMPARE(police.pointSize(), 6);
        QCOMPARE(police.weight(), attendue.poids);
        QCOMPARE(police.italic(), attendue.italique);
        QVERIFY(!police.underline());
    }
}

void TestDessinPersonne::tousLesTextesOntLaCouleurDesCaracteres()
{
    essai->personne.selectionnee = true;
    essai->Affiche();
    const QList<Trace> textes = essai->dessin->Traces(Trace::Genre::Texte);
    QCOMPARE(textes.size(), 7);
    for (const Trace &texte : textes)
        QCOMPARE(texte.plume.color(), QColor(Qt::darkGreen));
}

void TestDessinPersonne::lesLignesSEmpilentSelonLeurHauteur()
{
    // Three lines in the middle: what follows starts below the last of them.
    essai->personne.info->lieunaissance = QStringLiteral("un\ndeux\ntrois");
    essai->Affiche();
    const QRect cadre(0, 0, 112, 84);
    const auto hauteur = [&](const QFontMetrics &mesures, const QString &texte) {
        return mesures.boundingRect(cadre, Qt::AlignHCenter | Qt::TextWordWrap, texte).height();
    };
    const QFontMetrics gras = Mesures(QFont(QStringLiteral("Helvetica"), 8, QFont::Bold));
    const QFontMetrics maigre = Mesures(QFont(QStringLiteral("Helvetica"), 8));
    const int hautDuNom = 200 + hauteur(Mesures(essai->polices.policeNumeros), QStringLiteral("4"));
    const int hautDesDates = hautDuNom + hauteur(gras, QStringLiteral("Jean DUPONT"));
    const int pas = hauteur(maigre, QStringLiteral("° 1er mai 1900"));
    QVERIFY(pas > 8);
    const auto verifie = [this](const QString &texte, int ligneDeBase) {
        QCOMPARE(qRound(essai->dessin->Texte(texte).position.y()), ligneDeBase);
    };
    verifie(QStringLiteral("Jean DUPONT"), hautDuNom + gras.ascent());
    verifie(QStringLiteral("° 1er mai 1900"), hautDesDates + maigre.ascent());
    verifie(QStringLiteral("à un"), hautDesDates + pas + maigre.ascent());
    verifie(QStringLiteral("deux"), hautDesDates + 2 * pas + maigre.ascent());
    verifie(QStringLiteral("trois"), hautDesDates + 3 * pas + maigre.ascent());
    verifie(QStringLiteral("+ vers 1970"), hautDesDates + 4 * pas + maigre.ascent());
    verifie(QStringLiteral("Notaire"), hautDesDates + 6 * pas + maigre.ascent());
}

void TestDessinPersonne::lesTextesRestentEntreLesMarges_data()
{
    QTest::addColumn<int>("marge");
    QTest::addColumn<double>("gauche");
    QTest::addColumn<double>("droite");
    QTest::newRow("sans marge") << 0 << 100.0 << 220.0;
    QTest::newRow("1 mm") << 1 << 104.0 << 216.0;
    QTest::newRow("8 mm") << 8 << 132.0 << 188.0;
}

void TestDessinPersonne::lesTextesRestentEntreLesMarges()
{
    QFETCH(int, marge);
    QFETCH(double, gauche);
    QFETCH(double, droite);
    essai->formats.margeDansCadre = marge;
    essai->personne.info->divers =
        QStringLiteral("un mot puis un autre et encore un autre mot jusqu'au bout de la ligne");
    essai->Affiche();
    double plusLarge = 0;
    for (const Trace &texte : essai->dessin->Traces(Trace::Genre::Texte)) {
        const double largeur = Mesures(texte.police).horizontalAdvance(texte.texte.trimmed());
        plusLarge = qMax(plusLarge, largeur);
        QVERIFY2(texte.position.x() >= gauche - 1, qPrintable(texte.texte));
        QVERIFY2(texte.position.x() + largeur <= droite + 1, qPrintable(texte.texte));
        QVERIFY2(qAbs(texte.position.x() + largeur / 2 - 160.0) <= 3.0, qPrintable(texte.texte));
    }
    // Words go on while they fit: the longest line leaves less room than a word would take.
    QVERIFY(plusLarge > (droite - gauche) * 0.6);
}

void TestDessinPersonne::lesLignesDeTropDebordentDuCadre()
{
    essai->formats.hauteurCadre = 10;
    essai->Affiche();
    const Trace derniere = essai->dessin->Texte(QStringLiteral("Notaire"));
    QVERIFY(derniere.position.y() > 200 + 20 + 50);
    QCOMPARE(essai->dessin->Textes().size(), 7);
}

RAMELIER_TEST_MAIN(QGuiApplication, TestDessinPersonne)
#include "tst_dessin_personne.moc"

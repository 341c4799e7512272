#include "environnement.h"
#include "lecturegedcom.h"

#include <QCoreApplication>

/// DecodeFichierGED: what the two lists hold after whole files.
class TestGedcomLecture : public QObject, private LectureGedcom
{
    Q_OBJECT

private Q_SLOTS:
    void uneFamilleEntiere();
    void unFichierVideDonneDeuxListesVides_data();
    void unFichierVideDonneDeuxListesVides();
    void lesListesSontALEnvers();
    void uneDeuxiemeLectureSAjouteEnTete();
    void unEnregistrementJamaisFermeEstPerdu_data();
    void unEnregistrementJamaisFermeEstPerdu();
    void toutNiveau0FermeLEnregistrement_data();
    void toutNiveau0FermeLEnregistrement();
    void unMotDansLaLigneOuvreUnEnregistrement_data();
    void unMotDansLaLigneOuvreUnEnregistrement();
    void lesLignesDUnIndividu_data();
    void lesLignesDUnIndividu();
    void lesNomsFrancais_data();
    void lesNomsFrancais();
    void lesDatesRestentTellesQuelles_data();
    void lesDatesRestentTellesQuelles();
    void lesLignesDUneFamille_data();
    void lesLignesDUneFamille();
    void lesEvenements_data();
    void lesEvenements();
    void lEvenementPasseALIndividuSuivant();
    void lEvenementPasseParLesAutresBlocs();
    void lEvenementNePassePasAuFichierSuivant();
};

void TestGedcomLecture::uneFamilleEntiere()
{
    QVERIFY(Lit("0 HEAD\n1 SOUR ESSAI\n2 VERS 1\n1 CHAR UTF-8\n"
                "0 @I1@ INDI\n1 NAME Jean /DUPONT/\n1 SEX M\n1 BIRT\n2 DATE 12 MAR 1760\n2 PLAC Amboise\n"
                "1 DEAT\n2 DATE 1 JAN 1800\n2 PLAC Tours\n1 FAMS @F1@\n1 FAMC @F9@\n1 OCCU laboureur\n"
                "0 @I2@ INDI\n1 NAME Marie /LEFÈVRE/\n1 SEX F\n1 FAMS @F1@\n"
                "0 @I3@ INDI\n1 NAME Paul /DUPONT/\n1 SEX M\n1 FAMC @F1@\n"
                "0 @I4@ INDI\n1 NAME Anne /DUPONT/\n1 SEX F\n1 FAMC @F1@\n"
                "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n1 MARR\n2 DATE 1785\n1 CHIL @I3@\n1 CHIL @I4@\n"
                "0 TRLR\n"));
    QCOMPARE(Individus(),
             (QStringList{"@I4@ prenom[Anne ] nom[DUPONT] sexe[F] famc[@F1@]",
                          "@I3@ prenom[Paul ] nom[DUPONT] sexe[M] famc[@F1@]",
                          "@I2@ prenom[Marie ] nom[LEFÈVRE] sexe[F] fams[@F1@]",
                          "@I1@ prenom[Jean ] nom[DUPONT] sexe[M] naissance[12 MAR 1760] lieunaissance[Amboise]"
                          " deces[1 JAN 1800] lieudeces[Tours] fams[@F1@] famc[@F9@] occu[laboureur]"}));
    QCOMPARE(Familles(), QStringList{"@F1@ mari[@I1@] femme[@I2@] enfants[@I4@,@I3@]"});
}

void TestGedcomLecture::unFichierVideDonneDeuxListesVides_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::newRow("vide") << QByteArray();
    QTest::newRow("une ligne vide") << QByteArray("\n");
    QTest::newRow("des lignes vides") << QByteArray("\n\r\n\n\r\n");
    QTest::newRow("des fins de ligne Macintosh") << QByteArray("\r\r\r");
    QTest::newRow("des blancs") << QByteArray("   \n \t \n  ");
    QTest::newRow("un blanc") << QByteArray(" ");
    QTest::newRow("la marque d'UTF-8 seule") << QByteArray("\xEF\xBB\xBF");
    QTest::newRow("la marque d'UTF-16LE seule") << QByteArray("\xFF\xFE");
    QTest::newRow("la marque d'UTF-16BE seule") << QByteArray("\xFE\xFF");
    QTest::newRow("un en-tête et une fin") << QByteArray("0 HEAD\n1 CHAR ANSI\n0 TRLR\n");
    QTest::newRow("des lignes sans enregistrement") << QByteArray("1 NAME Jean /DUPONT/\n1 HUSB @I1@\n0 TRLR\n");
    QTest::newRow("un texte") << QByteArray("Ceci n'est pas une\ngénéalogie.\n");
}

void TestGedcomLecture::unFichierVideDonneDeuxListesVides()
{
    QFETCH(QByteArray, contenu);
    QVERIFY(Lit(contenu));
    QVERIFY(!LesIndividus);
    QVERIFY(!LesFamilles);
}

void TestGedcomLecture::lesListesSontALEnvers()
{
    QVERIFY(Lit("0 @F1@ FAM\n1 CHIL @I1@\n1 CHIL @I2@\n1 CHIL @I3@\n0 @I1@ INDI\n0 @I2@ INDI\n0 @F2@ FAM\n0 @I3@ INDI\n"
                "0 @F3@ FAM\n0 TRLR\n"));
    QCOMPARE(Individus(), (QStringList{"@I3@", "@I2@", "@I1@"}));
    QCOMPARE(Familles(), (QStringList{"@F3@", "@F2@", "@F1@ enfants[@I3@,@I2@,@I1@]"}));
}

void TestGedcomLecture::uneDeuxiemeLectureSAjouteEnTete()
{
    QVERIFY(Lit("0 @I1@ INDI\n0 @F1@ FAM\n0 TRLR\n"));
    QVERIFY(Ecrit("0 @I1@ INDI\n1 SEX F\n0 @F2@ FAM\n0 TRLR\n"));
    QVERIFY(DecodeFichierGED(Chemin("a.ged")));
    QCOMPARE(Individus(), (QStringList{"@I1@ sexe[F]", "@I1@"}));
    QCOMPARE(Familles(), (QStringList{"@F2@", "@F1@"}));
}

void TestGedcomLecture::unEnregistrementJamaisFermeEstPerdu_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QStringList>("individus");
    QTest::addColumn<QStringList>("familles");
    const auto ligne = [](const char *nom, const QByteArray &contenu, const QStringList &individus,
                          const QStringList &familles) { QTest::newRow(nom) << contenu << individus << familles; };
    ligne("un individu seul", "0 @I1@ INDI\n", {}, {});
    ligne("un individu entier", "0 @I1@ INDI\n1 NAME Jean /DUPONT/\n1 SEX M\n", {}, {});
    ligne("une famille seule", "0 @F1@ FAM\n1 HUSB @I1@\n1 CHIL @I2@\n", {}, {});
    ligne("le dernier de deux", "0 @I1@ INDI\n0 @I2@ INDI\n", {"@I1@"}, {});
    ligne("le dernier de deux sortes", "0 @I1@ INDI\n0 @F1@ FAM\n", {"@I1@"}, {});
    ligne("fermé par TRLR", "0 @I1@ INDI\n0 TRLR", {"@I1@"}, {});
    ligne("fermé par n'importe quelle ligne de niveau 0", "0 @I1@ INDI\n0 @S1@ SOUR\n", {"@I1@"}, {});
    ligne("fermé par un 0", "0 @I1@ INDI\n0", {"@I1@"}, {});
    ligne("des lignes vides ne ferment rien", "0 @I1@ INDI\n\n \n\n", {}, {});
}

void TestGedcomLecture::unEnregistrementJamaisFermeEstPerdu()
{
    QFETCH(QByteArray, contenu);
    QVERIFY(Lit(contenu));
    QTEST(Individus(), "individus");
    QTEST(Familles(), "familles");
}

void TestGedcomLecture::toutNiveau0FermeLEnregistrement_data()
{
    QTest::addColumn<QByteArray>("ligne");
    QTest::addColumn<QString>("individu");
    const auto rangee = [](const QByteArray &ligne, const QString &individu) {
        QTest::newRow(ligne.constData()) << ligne << individu;
    };
    const QString ferme = QStringLiteral("@I1@ nom[AVANT]");
    const QString ouvert = QStringLiteral("@I1@ nom[AVANT] sexe[M]");
    rangee("0 @N1@ NOTE", ferme);
    rangee("0 HEAD", ferme);
    rangee("0 TRLR", ferme);
    rangee("x SEX F", ferme);
    rangee("suite de la note", ferme);
    rangee("mot", ferme);
    rangee("1", ferme);
    rangee("99999 SEX F", ferme);
    rangee("1\tSEX F", ferme);
    rangee("1 SOUR", ouvert);
    rangee("2 SEX F", ouvert);
    rangee("3 SEX F", ouvert);
    rangee("4 NAME AUTRE", ouvert);
    rangee("-1 SEX F", ouvert);
    rangee("12 @I2@ INDI", ouvert);
    rangee("1 @I2@ INDI", ouvert);
    rangee("2 TRLR", ouvert);
}

void TestGedcomLecture::toutNiveau0FermeLEnregistrement()
{
    QFETCH(QByteArray, ligne);
    QFETCH(QString, individu);
    QVERIFY(LitUnIndividu("1 NAME AVANT\n" + ligne + "\n1 SEX M"));
    QCOMPARE(Individus(), QStringList{individu});
    QCOMPARE(Familles(), QStringList());
}

void TestGedcomLecture::unMotDansLaLigneOuvreUnEnregistrement_data()
{
    QTest::addColumn<QByteArray>("ligne");
    QTest::addColumn<QStringList>("individus");
    QTest::addColumn<QStringList>("familles");
    const auto rangee = [](const QByteArray &ligne, const QStringList &individus, const QStringList &familles) {
        QTest::newRow(ligne.constData()) << ligne << individus << familles;
    };
    const QString individu = QStringLiteral(" sexe[M]");
    const QString famille = QStringLiteral(" mari[@I7@]");
    rangee("0 @N1@ NOTE FAMILLE", {}, {"@N1@" + famille});
    rangee("0 @N1@ NOTE INDIEN", {"@N1@" + individu}, {});
    rangee("0 @INDI1@ FAM", {"@INDI1@" + individu}, {});
    rangee("0 @FAM1@ SOUR", {}, {"@FAM1@" + famille});
    rangee("0 @HEAD1@ INDI", {}, {});
    rangee("0 @TRLR@ FAM", {}, {"@TRLR@" + famille});
    rangee("0 INDI", {individu}, {});
    rangee("0 FAM", {}, {famille});
    rangee("INDI", {individu}, {});
    rangee("les INDIVIDUS @X@", {"@X@" + individu}, {});
    rangee("0 @I1 INDI", {individu}, {});
    rangee("0 @I1@ indi", {}, {});
    rangee("0 @F1@ Famille", {}, {});
}

void TestGedcomLecture::unMotDansLaLigneOuvreUnEnregistrement()
{
    QFETCH(QByteArray, ligne);
    QVERIFY(Lit(ligne + "\n1 SEX M\n1 HUSB @I7@\n0 TRLR\n"));
    QTEST(Individus(), "individus");
    QTEST(Familles(), "familles");
}

void TestGedcomLecture::lesLignesDUnIndividu_data()
{
    QTest::addColumn<QByteArray>("lignes");
    QTest::addColumn<QString>("textes");
    const auto rangee = [](const QByteArray &lignes, const QString &textes) {
        QTest::newRow(QByteArray(lignes).replace('\n', " | ").constData()) << lignes << textes;
    };
    rangee("1 SEX M", " sexe[M]");
    rangee("1 SEX f ", " sexe[f]");
    rangee("1 SEX inconnu", " sexe[inconnu]");
    rangee("1 SEX M\n1 SEX", "");
    rangee("1 SEX M\n1 SEX F", " sexe[F]");
    rangee("1 OCCU laboureur, marchand", " occu[laboureur, marchand]");
    rangee("1 OCCU a\n1 OCCU b", " occu[b]");
    rangee("1 OCCU SEXTON", " sexe[U SEXTON]");
    rangee("1 OCCU DATEUR", "");
    rangee("1 FAMS @F1@", " fams[@F1@]");
    rangee("1 FAMS @F1@\n1 FAMS @F2@", " fams[@F2@]");
    rangee("1 FAMS @F1@ @F2@ fin", " fams[@F1@]");
    rangee("1 FAMS @F1@\n1 FAMS F2", "");
    rangee("1 FAMC @F1@", " famc[@F1@]");
    rangee("1 FAMC @F1@\n1 FAMC @F2@", " famc[@F2@]");
    rangee("1 FAMC @F1@\n1 FAMC", "");
    rangee("1 FAMC @FAMS1@", " fams[@FAMS1@]");
    rangee("1 FAMS @NAME1@", " nom[@NAME1@]");
    rangee("1 HUSB @I1@\n1 WIFE @I2@\n1 CHIL @I3@", "");
    rangee("1 NOTE SEXE inconnu", " sexe[E SEXE inconnu]");
    rangee("1 NOTE Rapper's NAMEs", " nom[Rapper's NAMEs]");
    rangee("1 RESI\n1 ZZZZ\n1", "");
    rangee("  1 SEX M", " sexe[M]");
    rangee("\t\t1 SEX M\t", " sexe[M]");
    rangee("1  SEX M", " sexe[X M]");
    rangee("1 SEX M\n\n  \n\n1 OCCU a", " sexe[M] occu[a]");
    rangee("2 SEX M\n2 NAME a /b/\n2 OCCU c\n2 FAMS @F1@\n2 FAMC @F1@", "");
    rangee("3 SEX M\n3 NAME a /b/\n9 OCCU c", "");
}

void TestGedcomLecture::lesLignesDUnIndividu()
{
    QFETCH(QByteArray, lignes);
    QFETCH(QString, textes);
    QVERIFY(LitUnIndividu(lignes));
    QCOMPARE(Individus(), QStringList{"@I1@" + textes});
    QCOMPARE(Familles(), QStringList());
}

void TestGedcomLecture::lesNomsFrancais_data()
{
    QTest::addColumn<QByteArray>("lignes");
    QTest::addColumn<QString>("textes");
    const auto rangee = [](const QByteArray &lignes, const QString &textes) {
        QTest::newRow(QByteArray(lignes).replace('\n', " | ").constData()) << lignes << textes;
    };
    rangee("1 NAME Jean /DUPONT/", " prenom[Jean ] nom[DUPONT]");
    rangee("1 NAME Jean/DUPONT/", " prenom[Jean] nom[DUPONT]");
    rangee("1 NAME /DUPONT/", " nom[DUPONT]");
    rangee("1 NAME DUPONT/", " nom[DUPONT]");
    rangee("1 NAME DUPONT", " nom[DUPONT]");
    rangee("1 NAME Jean //", " prenom[Jean ]");
    rangee("1 NAME", "");
    rangee("1 NAME a/b/c/d", "");
    rangee("1 NAME Jean /SILVESTRE / RIVIÈRE/", "");
    rangee("1 NAME Paul /MARTIN/\n1 NAME Jean /SILVESTRE / RIVIÈRE/", " prenom[Paul ] nom[MARTIN]");
    rangee("1 NAME Paul /MARTIN/\n1 NAME Jean /DUPONT/", " prenom[Jean ] nom[DUPONT]");
    rangee("1 NAME Paul /MARTIN/\n1 NAME DUPONT", " prenom[Paul ] nom[DUPONT]");
    rangee("1 NAME Paul /MARTIN/\n1 NAME /DUPONT/", " nom[DUPONT]");
    rangee("1 NAME Marie Anne Élisabeth /LEFÈVRE/", " prenom[Marie Anne Élisabeth ] nom[LEFÈVRE]");
    rangee("1 NAME Louise /d'ÉPINAY/", " prenom[Louise ] nom[d'ÉPINAY]");
    rangee("1 NAME Jean-François /de LA TOUR du PIN/", " prenom[Jean-François ] nom[de LA TOUR du PIN]");
    rangee("1 NAME Gaëtan /LE CŒUR/ comte", " prenom[Gaëtan ] nom[LE CŒUR]");
    rangee("1 NAME  Jean   /DUPONT/  ", " prenom[Jean   ] nom[DUPONT]");
    rangee("1 NAME Jean /DUPONT/\n2 GIVN Paul\n2 SURN MARTIN", " prenom[Jean ] nom[DUPONT]");
}

void TestGedcomLecture::lesNomsFrancais()
{
    lesLignesDUnIndividu();
}

void TestGedcomLecture::lesDatesRestentTellesQuelles_data()
{
    QTest::addColumn<QString>("date");
    for (const char *date : {"12 MAR 1760",
                             "ca 1760",
                             "/1789",
                             "1789/",
                             "1989/1996",
                             "../03/1760",
                             "vers 1700",
                             "env. 1700",
                             "avant 1700",
                             "après 1700",
                             "7bre 1712",
                             "Xbre",
                             "12 vendémiaire an III",
                             "3 VEND 12",
                             "@#DFRENCH R@ 12 VEND 3",
                             "BET 1 JAN 1700 AND 1710",
                             "INT 1700 (vers Noël)",
                             "12  mars   1760",
                             "°",
                             "0",
                             "@",
                             "inconnue"})
        QTest::newRow(date) << QString(date);
}

void TestGedcomLecture::lesDatesRestentTellesQuelles()
{
    QFETCH(QString, date);
    QVERIFY(LitUnIndividu("1 BIRT\n2 DATE " + date.toUtf8() + "\n1 DEAT\n2 DATE   " + date.toUtf8() + " \t"));
    QCOMPARE(Individus(), QStringList{"@I1@ naissance[" + date + "] deces[" + date + ']'});
}

void TestGedcomLecture::lesLignesDUneFamille_data()
{
    QTest::addColumn<QByteArray>("lignes");
    QTest::addColumn<QString>("textes");
    const auto rangee = [](const QByteArray &lignes, const QString &textes) {
        QTest::newRow(QByteArray(lignes).replace('\n', " | ").constData()) << lignes << textes;
    };
    rangee("1 HUSB @I1@\n1 WIFE @I2@", " mari[@I1@] femme[@I2@]");
    rangee("1 WIFE @I2@\n1 HUSB @I1@", " mari[@I1@] femme[@I2@]");
    rangee("1 HUSB @I1@\n1 HUSB @I2@", " mari[@I2@]");
    rangee("1 HUSB @I1@\n1 HUSB I2", "");
    rangee("1 HUSB", "");
    rangee("1 WIFE @I1", "");
    rangee("1 WIFE @HUSB@", " mari[@HUSB@]");
    rangee("1 CHIL @I1@", " enfants[@I1@]");
    rangee("1 CHIL @I1@\n1 CHIL @I2@\n1 CHIL @I3@", " enfants[@I3@,@I2@,@I1@]");
    rangee("1 CHIL @I1@\n1 CHIL @I1@", " enfants[@I1@,@I1@]");
    rangee("1 CHIL @I1@\n1 CHIL\n1 CHIL I3", " enfants[,,@I1@]");
    rangee("1 CHIL   @I1@ aîné", " enfants[@I1@]");
    rangee("1 CHIL @WIFE@", " femme[@WIFE@]");
    rangee("2 HUSB @I1@\n2 WIFE @I2@\n2 CHIL @I3@", "");
    rangee("1 NAME a /b/\n1 SEX M\n1 OCCU c\n1 FAMS @F2@\n1 FAMC @F3@", "");
    rangee("1 BIRT\n2 DATE 1700\n2 PLAC Amboise", "");
    rangee("1 MARR\n2 DATE 1785\n2 PLAC Tours\n1 NOTE", "");
    rangee("1\n1 HUSB @I1@", "");
}

void TestGedcomLecture::lesLignesDUneFamille()
{
    QFETCH(QByteArray, lignes);
    QFETCH(QString, textes);
    QVERIFY(Lit("0 @F1@ FAM\n" + lignes + "\n0 TRLR\n"));
    QCOMPARE(Familles(), QStringList{"@F1@" + textes});
    QCOMPARE(Individus(), QStringList());
}

void TestGedcomLecture::lesEvenements_data()
{
    QTest::addColumn<QByteArray>("lignes");
    QTest::addColumn<QString>("textes");
    const auto rangee = [](const QByteArray &lignes, const QString &textes) {
        QTest::newRow(QByteArray(lignes).replace('\n', " | ").constData()) << lignes << textes;
    };
    rangee("1 BIRT\n2 DATE 1700\n2 PLAC Amboise", " naissance[1700] lieunaissance[Amboise]");
    rangee("1 DEAT\n2 PLAC Tours\n2 DATE 1750", " deces[1750] lieudeces[Tours]");
    rangee("1 DEAT\n2 DATE 1750\n1 BIRT\n2 DATE 1700", " naissance[1700] deces[1750]");
    rangee("1 BIRT Y\n2 DATE 1700", " naissance[1700]");
    rangee("2 DATE 1700\n2 PLAC Amboise", "");
    rangee("1 BAPM\n2 DATE 1700\n2 PLAC Amboise", "");
    rangee("1 BIRT\n1 DATE 1700\n1 PLAC Amboise", "");
    rangee("1 DATE 1700\n1 PLAC Amboise", "");
    rangee("1 BIRT\n3 DATE 1700\n3 PLAC Amboise", "");
    rangee("1 BIRT\n2 SOUR\n3 DATE 1700\n2 DATE 1701", " naissance[1701]");
    rangee("1 BIRT\n2 DATE 1700\n2 DATE 1701", " naissance[1701]");
    rangee("1 BIRT\n2 DATE 1700\n2 DATE", "");
    rangee("1 BIRT\n2 DATE 1700\n1 BAPM\n2 DATE 1701\n2 PLAC Tours", " naissance[1701] lieunaissance[Tours]");
    rangee("1 DEAT\n2 DATE 1750\n1 BURI\n2 DATE 1751", " deces[1751]");
    rangee("1 BIRT\n2 DATE 1700\n1 OCCU a\n2 DATE 1720", " naissance[1720] occu[a]");
    rangee("1 BIRT\n2 PLAC ESSEX", "");
    rangee("1 BIRT\n2 PLAC Amboise\n2 PLAC ESSEX", " lieunaissance[Amboise]");
    rangee("1 BIRT\n2 PLAC Essex", " lieunaissance[Essex]");
    rangee("1 BIRT\n2 PLAC BIRTON", "");
    rangee("1 BIRT\n2 PLAC DEATH VALLEY\n2 DATE 1700", " naissance[1700]");
    rangee("1 BIRT\n2 DATE 6 SEXTIDI an III", "");
    rangee("1 BIRT\n2 PLAC DATE", " naissance[DATE]");
    rangee("1 BIRT\n2 PLAC Ville, 37003, Indre-et-Loire, Centre, France",
           " lieunaissance[Ville, 37003, Indre-et-Loire, Centre, France]");
    rangee("1 BIRT\n2 NOTE UPDATE 3", " naissance[UPDATE 3]");
    rangee("1 BIRT\n2 FAMC @F1@\n2 SEX M\n2 OCCU a", "");
    rangee("1 NOTE BIRTHDAY\n2 DATE 1700", " naissance[1700]");
    rangee("1 BIRT\n1 DEATH\n2 DATE 1700", " deces[1700]");
    rangee("1 SEX BIRT\n2 DATE 1700", " sexe[BIRT]");
}

void TestGedcomLecture::lesEvenements()
{
    lesLignesDUnIndividu();
}

void TestGedcomLecture::lEvenementPasseALIndividuSuivant()
{
    QVERIFY(Lit("0 @I1@ INDI\n1 DEAT\n0 @I2@ INDI\n1 BAPM\n2 DATE 1900\n0 @I3@ INDI\n1 BIRT\n2 DATE 1901\n"
                "0 @I4@ INDI\n2 DATE 1902\n2 PLAC Amboise\n0 TRLR\n"));
    QCOMPARE(Individus(),
             (QStringList{"@I4@ naissance[1902] lieunaissance[Amboise]", "@I3@ naissance[1901]", "@I2@ deces[1900]",
                          "@I1@"}));
}

void TestGedcomLecture::lEvenementPasseParLesAutresBlocs()
{
    // A birth in a family, a source or no record at all is one for the next individual.
    QVERIFY(Lit("1 BIRT\n0 @I1@ INDI\n2 DATE 1900\n0 @F1@ FAM\n1 DEAT\n2 DATE 1901\n0 @I2@ INDI\n2 DATE 1902\n"
                "0 @S1@ SOUR\n1 NOTE BIRT\n2 DATE 1903\n0 @I3@ INDI\n1 EVEN\n2 DATE 1904\n0 TRLR\n"));
    QCOMPARE(Individus(), (QStringList{"@I3@ naissance[1904]", "@I2@ deces[1902]", "@I1@ naissance[1900]"}));
    QCOMPARE(Familles(), QStringList{"@F1@"});
}

void TestGedcomLecture::lEvenementNePassePasAuFichierSuivant()
{
    QVERIFY(Lit("0 @I1@ INDI\n1 BIRT\n0 @I2@ INDI\n"));
    QVERIFY(Lit("0 @I3@ INDI\n2 DATE 1900\n0 TRLR\n"));
    // Neither the birth nor the record that was still open.
    QCOMPARE(Individus(), QStringList{"@I3@"});
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomLecture)
#include "tst_gedcom_lecture.moc"

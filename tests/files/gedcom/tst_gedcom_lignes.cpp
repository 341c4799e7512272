#include "environnement.h"
#include "gedcomlecture.h"

#include <QCoreApplication>

/// The functions that take one line of a GEDCOM file apart.
class TestGedcomLignes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leNiveauEstRetireDeLaLigne_data();
    void leNiveauEstRetireDeLaLigne();
    void lAdresseVaDUneArobaseALAutre_data();
    void lAdresseVaDUneArobaseALAutre();
    void leNomEstCoupeAuxBarres_data();
    void leNomEstCoupeAuxBarres();
    void unNomDecoupeEstRaccourci();
    void chaqueBlocASonCode_data();
    void chaqueBlocASonCode();
    void chaqueInformationASonCode_data();
    void chaqueInformationASonCode();
    void laValeurEstCoupeeEtRognee_data();
    void laValeurEstCoupeeEtRognee();
};

void TestGedcomLignes::leNiveauEstRetireDeLaLigne_data()
{
    QTest::addColumn<QString>("ligne");
    QTest::addColumn<int>("niveau");
    QTest::addColumn<QString>("reste");
    QTest::newRow("0") << "0 HEAD" << 0 << "HEAD";
    QTest::newRow("1") << "1 NAME Jean /DUPONT/" << 1 << "NAME Jean /DUPONT/";
    QTest::newRow("2") << "2 DATE 12 MAR 1760" << 2 << "DATE 12 MAR 1760";
    QTest::newRow("deux chiffres") << "12 NOTE a" << 12 << "NOTE a";
    QTest::newRow("un zéro devant, toujours en base 10") << "010 NOTE" << 10 << "NOTE";
    QTest::newRow("huit avec un zéro devant") << "08 NOTE" << 8 << "NOTE";
    QTest::newRow("négatif") << "-1 NAME a" << -1 << "NAME a";
    QTest::newRow("deux blancs: le second reste") << "1  NAME a" << 1 << " NAME a";
    QTest::newRow("un blanc devant") << " 1 NAME a" << 0 << "1 NAME a";
    QTest::newRow("rien derrière") << "1 " << 1 << "";
    QTest::newRow("un mot") << "NAME Jean" << 0 << "Jean";
    QTest::newRow("hexadécimal") << "0x1 NAME" << 0 << "NAME";
    QTest::newRow("décimal") << "1.0 NAME" << 0 << "NAME";
    QTest::newRow("une lettre collée") << "1a NAME" << 0 << "NAME";
    QTest::newRow("une tabulation") << "1\tNAME Jean" << 0 << "Jean";
    QTest::newRow("le plus grand") << "32767 NAME" << 32767 << "NAME";
    QTest::newRow("trop grand pour 16 bits") << "32768 NAME" << 0 << "NAME";
    QTest::newRow("65537 n'est pas 1") << "65537 NAME" << 0 << "NAME";
    QTest::newRow("bien trop grand") << "99999999999999999999 NAME" << 0 << "NAME";
    QTest::newRow("sans blanc: entière") << "TRLR" << 0 << "TRLR";
    QTest::newRow("un nombre sans blanc: niveau 0, entière") << "1" << 0 << "1";
    QTest::newRow("vide") << "" << 0 << "";
}

void TestGedcomLignes::leNiveauEstRetireDeLaLigne()
{
    QFETCH(QString, ligne);
    QFETCH(int, niveau);
    QFETCH(QString, reste);
    QCOMPARE(int(Niveau(ligne)), niveau);
    QCOMPARE(ligne, reste);
}

void TestGedcomLignes::lAdresseVaDUneArobaseALAutre_data()
{
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("adresse");
    QTest::newRow("devant") << "@I12@ INDI"
                            << "@I12@";
    QTest::newRow("derrière") << "FAMS @I12@"
                              << "@I12@";
    QTest::newRow("seule") << "@F1@"
                           << "@F1@";
    QTest::newRow("la première de deux") << "@I1@ et @I2@"
                                         << "@I1@";
    QTest::newRow("un blanc dedans") << "CHIL @I 1@"
                                     << "@I 1@";
    QTest::newRow("rien dedans") << "CHIL @@ @I1@"
                                 << "@@";
    QTest::newRow("trois arobases") << "@I1@2@"
                                    << "@I1@";
    QTest::newRow("accentuée") << "HUSB @É1@ x"
                               << "@É1@";
    QTest::newRow("sans arobase") << "HUSB I1"
                                  << "";
    QTest::newRow("une seule arobase") << "HUSB @I1"
                                       << "";
    QTest::newRow("une arobase à la fin") << "HUSB I1@"
                                          << "";
    QTest::newRow("une arobase et rien") << "@"
                                         << "";
    QTest::newRow("vide") << ""
                          << "";
}

void TestGedcomLignes::lAdresseVaDUneArobaseALAutre()
{
    QFETCH(QString, texte);
    QFETCH(QString, adresse);
    QCOMPARE(DecodeAdresse(texte), adresse);
}

void TestGedcomLignes::leNomEstCoupeAuxBarres_data()
{
    QTest::addColumn<QString>("complet");
    QTest::addColumn<QString>("prenom");
    QTest::addColumn<QString>("nom");
    // "P" and "N" are what the two held before.
    QTest::newRow("prénom et nom: le blanc du prénom reste") << "Jean /DUPONT/"
                                                             << "Jean "
                                                             << "DUPONT";
    QTest::newRow("collés") << "Jean/DUPONT/"
                            << "Jean"
                            << "DUPONT";
    QTest::newRow("deux blancs") << "Jean Marie  /DUPONT/"
                                 << "Jean Marie  "
                                 << "DUPONT";
    QTest::newRow("des blancs dans le nom restent") << "Jean / DUPONT /"
                                                    << "Jean "
                                                    << " DUPONT ";
    QTest::newRow("sans prénom: il est vidé") << "/DUPONT/"
                                              << ""
                                              << "DUPONT";
    QTest::newRow("sans nom: il est vidé") << "Jean //"
                                           << "Jean "
                                           << "";
    QTest::newRow("deux barres seules") << "//"
                                        << ""
                                        << "";
    QTest::newRow("ce qui suit est perdu") << "Jean /DUPONT/ dit le Vieux"
                                           << "Jean "
                                           << "DUPONT";
    QTest::newRow("sans barre: tout est le nom") << "DUPONT"
                                                 << "P"
                                                 << "DUPONT";
    QTest::newRow("sans barre, deux mots") << "Jean DUPONT"
                                           << "P"
                                           << "Jean DUPONT";
    QTest::newRow("vide") << ""
                          << "P"
                          << "";
    QTest::newRow("une barre à la fin") << "DUPONT/"
                                        << "P"
                                        << "DUPONT";
    QTest::newRow("une barre au début") << "/DUPONT"
                                        << "P"
                                        << "";
    QTest::newRow("une barre au milieu") << "Jean /DUPONT"
                                         << "P"
                                         << "Jean ";
    QTest::newRow("une barre seule") << "/"
                                     << "P"
                                     << "";
    QTest::newRow("trois barres") << "a/b/c/d"
                                  << "P"
                                  << "N";
    QTest::newRow("une barre dans le nom") << "Jean /SILVESTRE / RIVIÈRE/"
                                           << "P"
                                           << "N";
    QTest::newRow("quatre barres") << "Jean /DUPONT/ /MARTIN/"
                                   << "P"
                                   << "N";
    QTest::newRow("trois barres seules") << "///"
                                         << "P"
                                         << "N";
    QTest::newRow("une capitale accentuée") << "Renée /LEFÈVRE/"
                                            << "Renée "
                                            << "LEFÈVRE";
    QTest::newRow("une particule") << "Louise Florence /d'ÉPINAY/"
                                   << "Louise Florence "
                                   << "d'ÉPINAY";
    QTest::newRow("une barre oblique inverse") << "Jean \\DUPONT\\"
                                               << "P"
                                               << "Jean \\DUPONT\\";
}

void TestGedcomLignes::leNomEstCoupeAuxBarres()
{
    QFETCH(QString, complet);
    QString prenom = QStringLiteral("P");
    QString nom = QStringLiteral("N");
    DecodeName(complet, prenom, nom);
    QTEST(prenom, "prenom");
    QTEST(nom, "nom");
}

void TestGedcomLignes::unNomDecoupeEstRaccourci()
{
    QString complet = QStringLiteral("Jean /DUPONT/");
    QString prenom;
    QString nom;
    DecodeName(complet, prenom, nom);
    QVERIFY2(complet.size() < 13, qPrintable(complet));
}

void TestGedcomLignes::chaqueBlocASonCode_data()
{
    QTest::addColumn<QString>("ligne");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("adresse");
    // "avant" is what the second argument held.
    QTest::newRow("HEAD") << "HEAD" << 1 << "avant";
    QTest::newRow("INDI") << "@I12@ INDI" << 2 << "@I12@";
    QTest::newRow("FAM") << "@F3@ FAM" << 3 << "@F3@";
    QTest::newRow("TRLR") << "TRLR" << 18 << "avant";
    QTest::newRow("un autre") << "@S1@ SOUR" << 0 << "avant";
    QTest::newRow("vide") << "" << 0 << "avant";
    QTest::newRow("en petites lettres") << "@I1@ indi" << 0 << "avant";
    QTest::newRow("en lettres mêlées") << "@F1@ Fam" << 0 << "avant";
    QTest::newRow("un individu sans adresse") << "INDI" << 2 << "";
    QTest::newRow("une famille sans adresse") << "FAM" << 3 << "";
    QTest::newRow("une adresse derrière") << "INDI @I1@" << 2 << "@I1@";
    QTest::newRow("une adresse jamais fermée") << "@I1 INDI" << 2 << "";
    QTest::newRow("une note de famille") << "@N1@ NOTE FAMILLE" << 3 << "@N1@";
    QTest::newRow("INDI au milieu d'un mot") << "@N1@ NOTE XINDIX" << 2 << "@N1@";
    QTest::newRow("TRLR au milieu d'un mot") << "ATRLRB" << 18 << "avant";
    QTest::newRow("HEAD avant INDI") << "@HEAD1@ INDI" << 1 << "avant";
    QTest::newRow("HEAD avant INDI, quel que soit l'ordre") << "@I1@ INDI HEAD" << 1 << "avant";
    QTest::newRow("INDI avant FAM") << "@INDI1@ FAM" << 2 << "@INDI1@";
    QTest::newRow("INDI avant FAM, quel que soit l'ordre") << "@FAM1@ INDI" << 2 << "@FAM1@";
    QTest::newRow("FAM avant TRLR") << "@TRLR@ FAM" << 3 << "@TRLR@";
    QTest::newRow("NAME n'est pas un bloc") << "@I1@ NAME" << 0 << "avant";
}

void TestGedcomLignes::chaqueBlocASonCode()
{
    QFETCH(QString, ligne);
    QString adresse = QStringLiteral("avant");
    const int obtenu = DetermineBlocinfo(ligne, adresse);
    QTEST(obtenu, "code");
    QTEST(adresse, "adresse");
}

void TestGedcomLignes::chaqueInformationASonCode_data()
{
    QTest::addColumn<QString>("ligne");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("info");
    // "avant" is what the second argument held.
    QTest::newRow("NAME") << "NAME Jean /DUPONT/" << 4 << "Jean /DUPONT/";
    QTest::newRow("SEX") << "SEX M" << 5 << "M";
    QTest::newRow("BIRT") << "BIRT" << 6 << "avant";
    QTest::newRow("BIRT Y") << "BIRT Y" << 6 << "avant";
    QTest::newRow("DATE") << "DATE 12 MAR 1760" << 7 << "12 MAR 1760";
    QTest::newRow("PLAC") << "PLAC Amboise, 37003, Indre-et-Loire" << 8 << "Amboise, 37003, Indre-et-Loire";
    QTest::newRow("DEAT") << "DEAT" << 9 << "avant";
    QTest::newRow("DEAT Y") << "DEAT Y" << 9 << "avant";
    QTest::newRow("FAMS") << "FAMS @F1@" << 10 << "@F1@";
    QTest::newRow("FAMC") << "FAMC @F2@" << 11 << "@F2@";
    QTest::newRow("OCCU") << "OCCU laboureur" << 12 << "laboureur";
    QTest::newRow("HUSB") << "HUSB @I1@" << 15 << "@I1@";
    QTest::newRow("WIFE") << "WIFE @I2@" << 16 << "@I2@";
    QTest::newRow("CHIL") << "CHIL @I3@" << 17 << "@I3@";
    QTest::newRow("une autre") << "BAPM" << 0 << "avant";
    QTest::newRow("vide") << "" << 0 << "avant";
    QTest::newRow("FAM seul n'est pas une information") << "FAM @F1@" << 0 << "avant";
    QTest::newRow("HEAD n'est pas une information") << "HEAD" << 0 << "avant";
    QTest::newRow("en petites lettres") << "name Jean" << 0 << "avant";
    QTest::newRow("sans valeur") << "NAME" << 4 << "";
    QTest::newRow("sans blanc") << "NAMEJean" << 4 << "Jean";
    QTest::newRow("des blancs autour") << "NAME \t Jean  " << 4 << "Jean";
    QTest::newRow("un blanc devant: la coupe est décalée") << " NAME Jean" << 4 << "E Jean";
    QTest::newRow("SEX dans un lieu") << "PLAC ESSEX" << 5 << "C ESSEX";
    QTest::newRow("NAME dans une note") << "NOTE NAMED" << 4 << "NAMED";
    QTest::newRow("SEX dans un métier") << "OCCU SEXTON" << 5 << "U SEXTON";
    QTest::newRow("BIRT dans un lieu") << "PLAC BIRTON" << 6 << "avant";
    QTest::newRow("DEAT dans un métier") << "OCCU DEATH" << 9 << "avant";
    QTest::newRow("NAME avant SEX") << "SEX NAME" << 4 << "NAME";
    QTest::newRow("SEX avant BIRT") << "BIRT SEX" << 5 << "T SEX";
    QTest::newRow("BIRT avant DEAT") << "DEAT BIRT" << 6 << "avant";
    QTest::newRow("DEAT avant DATE") << "DATE DEAT" << 9 << "avant";
    QTest::newRow("DATE avant PLAC") << "PLAC DATE" << 7 << "DATE";
    QTest::newRow("PLAC avant FAMS") << "FAMS PLAC" << 8 << "PLAC";
    QTest::newRow("FAMS avant FAMC") << "FAMC @FAMS1@" << 10 << "@FAMS1@";
    QTest::newRow("FAMC avant OCCU") << "OCCU FAMC" << 11 << "FAMC";
    QTest::newRow("OCCU avant HUSB") << "HUSB OCCU" << 12 << "OCCU";
    QTest::newRow("HUSB avant WIFE") << "WIFE @HUSB@" << 15 << "@HUSB@";
    QTest::newRow("WIFE avant CHIL") << "CHIL @WIFE@" << 16 << "@WIFE@";
}

void TestGedcomLignes::chaqueInformationASonCode()
{
    QFETCH(QString, ligne);
    QString info = QStringLiteral("avant");
    const int obtenu = DetermineTypeinfo(ligne, info);
    QTEST(obtenu, "code");
    QTEST(info, "info");
}

void TestGedcomLignes::laValeurEstCoupeeEtRognee_data()
{
    QTest::addColumn<QString>("ligne");
    QTest::addColumn<int>("longueur");
    QTest::addColumn<QString>("valeur");
    QTest::addColumn<QString>("reste");
    QTest::newRow("4") << "NAME Jean" << 4 << "Jean"
                       << " Jean";
    QTest::newRow("3") << "SEX M" << 3 << "M"
                       << " M";
    QTest::newRow("0") << " a " << 0 << "a"
                       << " a ";
    QTest::newRow("la ligne garde ses blancs") << "NAME\t Jean \t" << 4 << "Jean"
                                               << "\t Jean \t";
    QTest::newRow("les blancs du milieu restent") << "NAME a  b" << 4 << "a  b"
                                                  << " a  b";
    QTest::newRow("exacte") << "NAME" << 4 << ""
                            << "";
    QTest::newRow("plus courte") << "NA" << 4 << ""
                                 << "";
    QTest::newRow("vide") << "" << 4 << ""
                          << "";
    QTest::newRow("un blanc insécable compte comme un blanc") << "NAME Jean\u00A0" << 4 << "Jean"
                                                              << " Jean\u00A0";
}

void TestGedcomLignes::laValeurEstCoupeeEtRognee()
{
    QFETCH(QString, ligne);
    QFETCH(int, longueur);
    const QString obtenue = DecodeInfo(ligne, short(longueur));
    QTEST(obtenue, "valeur");
    QTEST(ligne, "reste");
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomLignes)
#include "tst_gedcom_lignes.moc"

#include "annuaire.h"
#include "bancechange.h"
#include "environnement.h"
#include "pannes.h"

#include <QCoreApplication>
#include <QDir>

#include <sys/stat.h>

/// The import of a GEDCOM file: the question for the root, the root itself, and what is said when nothing comes out.
class TestGedcomImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laQuestionNommeLeDernierDuFichierDAbord();
    void lesMotsSontEcritsMemeSansDonnees();
    void unSeulIndividuEstLaRacine();
    void lIdentifiantSeCacheDansLaReponse_data();
    void lIdentifiantSeCacheDansLaReponse();
    void sansIdentifiantLePremierSansConjointEstLaRacine_data();
    void sansIdentifiantLePremierSansConjointEstLaRacine();
    void uneLigneFamsSansIdentifiantNEnEstPasUne();
    void deDeuxIdentifiantsEgauxLePremierDuFichierGagne();
    void unFichierImpossibleAOuvrirEstAnnonce_data();
    void unFichierImpossibleAOuvrirEstAnnonce();
    void unFichierInterditEstAnnonce();
    void unFichierSansIndividuEstAnnonce_data();
    void unFichierSansIndividuEstAnnonce();
    void uneRacineIntrouvableEstAnnoncee_data();
    void uneRacineIntrouvableEstAnnoncee();
    void lesListesSontVidesApresUnSucces();
    void desListesDejaRempliesNeServentPas();
    void laPageDeGardeResteVide();
    void compteIndivCompteLaListe();
    void chercheRacineParcourtTouteLaListe();
    void copieInfoRemplaceSeptTextes();
    void desTextesLongsSontEntiers();
    void lesNomsSeCherchentMemeSiQuelquUnRegardaitDeja();
};

namespace {

/// @I1@ and @I3@ are spouses, @I2@, @I7@ and @I8@ are not.
const QByteArray cinqIndividus = "0 HEAD\n"
                                 "0 @I1@ INDI\n1 NAME Un /A/\n1 FAMS @F1@\n"
                                 "0 @I2@ INDI\n1 NAME Deux /B/\n"
                                 "0 @I3@ INDI\n1 NAME Trois /C/\n1 FAMS @F1@\n"
                                 "0 @I7@ INDI\n1 NAME Sept /D/\n"
                                 "0 @I8@ INDI\n1 NAME Huit /E/\n"
                                 "0 TRLR\n";

QString Vide()
{
    return QStringLiteral("0 personnes, 0 générations, sélection 0, liste \n");
}

}  // namespace

void TestGedcomImport::laQuestionNommeLeDernierDuFichierDAbord()
{
    BancEchange banc;
    const auto arbre = banc.Importe("0 @I1@ INDI\n1 NAME Jean /DUPONT/\n1 SEX M\n1 BIRT\n2 DATE 3 MAR 1901\n"
                                    "2 PLAC Dijon\n1 DEAT\n2 DATE 1980\n2 PLAC Lyon\n1 OCCU Notaire\n"
                                    "0 @I2@ INDI\n1 NAME MARTIN\n1 BIRT\n2 DATE vers 1905\n"
                                    "0 @I3@ INDI\n1 NAME Anne-Marie/LE GOFF/\n1 BIRT\n2 PLAC Saint-Malo\n"
                                    "0 TRLR\n",
                                    QStringLiteral("@I1@"));
    QCOMPARE(banc.messages,
             QStringList{"racine|@I3@ Anne-Marie LE GOFF né(e) le  à Saint-Malo"
                         "|@I2@  MARTIN né(e) le vers 1905 à "
                         "|@I1@ Jean  DUPONT né(e) le 3 MAR 1901 à Dijon"});
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Jean  DUPONT\n"));
}

void TestGedcomImport::lesMotsSontEcritsMemeSansDonnees()
{
    BancEchange banc;
    const auto arbre = banc.Importe("0 @I1@ INDI\n1 NAME Jean /DUPONT/\n0 @I2@ INDI\n0 INDI\n0 TRLR\n", {});
    QCOMPARE(banc.messages, QStringList{"racine|   né(e) le  à |@I2@   né(e) le  à |@I1@ Jean  DUPONT né(e) le  à "});
    QCOMPARE(NumerosEnTexte(*arbre), QStringLiteral("1"));
}

void TestGedcomImport::unSeulIndividuEstLaRacine()
{
    BancEchange banc;
    const auto arbre =
        banc.Importe("0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME Zoé /ÉTÉ/\n1 SEX F\n1 FAMC @F1@\n1 BIRT\n"
                     "2 DATE 1 JAN 1900\n2 PLAC Nîmes\n1 DEAT\n2 DATE 1999\n2 PLAC Sète\n"
                     "1 OCCU Sœur\n1 OBJE p.jpg\n"
                     "0 @F1@ FAM\n1 HUSB @I9@\n1 WIFE @I1@\n1 CHIL @I1@\n0 TRLR\n",
                     QString());
    QCOMPARE(ToutEnTexte(*arbre),
             QStringLiteral("1 personnes, 1 générations, sélection 0, liste 1\n"
                            "1 g0 e0 p0 m0 -> p0 m0 ÉTÉ|Zoé |1 JAN 1900|Nîmes|1999|Sète|Sœur|| photo -1\n"));
    QCOMPARE(banc.messages, QStringList{"racine|@I1@ Zoé  ÉTÉ né(e) le 1 JAN 1900 à Nîmes"});
}

void TestGedcomImport::lIdentifiantSeCacheDansLaReponse_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<QString>("racine");
    QTest::newRow("seul") << "@I7@"
                          << "Sept";
    QTest::newRow("entouré") << "xx @I7@ yy"
                             << "Sept";
    QTest::newRow("la ligne de la liste") << "@I7@ Sept  D né(e) le  à "
                                          << "Sept";
    QTest::newRow("collé") << "a@I8@b"
                           << "Huit";
    QTest::newRow("le premier de deux") << "@I8@ @I7@"
                                        << "Huit";
    QTest::newRow("un conjoint") << "@I3@"
                                 << "Trois";
}

void TestGedcomImport::lIdentifiantSeCacheDansLaReponse()
{
    QFETCH(QString, reponse);
    QFETCH(QString, racine);
    BancEchange banc;
    const auto arbre = banc.Importe(cinqIndividus, reponse);
    QVERIFY(arbre->premiere);
    QCOMPARE(arbre->premiere->info->prenom, racine + u' ');
    QCOMPARE(banc.messages.size(), 1);
}

void TestGedcomImport::sansIdentifiantLePremierSansConjointEstLaRacine_data()
{
    QTest::addColumn<bool>("renonce");
    QTest::addColumn<QString>("reponse");
    QTest::newRow("renoncer") << true << "";
    QTest::newRow("ne rien choisir") << false << "";
    QTest::newRow("taper un nom") << false << "Sept D";
    QTest::newRow("taper un identifiant nu") << false << "I7";
    QTest::newRow("oublier le second arrobas") << false << "@I7";
}

void TestGedcomImport::sansIdentifiantLePremierSansConjointEstLaRacine()
{
    QFETCH(bool, renonce);
    QFETCH(QString, reponse);
    BancEchange banc;
    const auto arbre = banc.Importe(cinqIndividus, renonce ? std::nullopt : std::optional(reponse));
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Deux  B\n"));
    QCOMPARE(banc.messages.size(), 1);
}

void TestGedcomImport::uneLigneFamsSansIdentifiantNEnEstPasUne()
{
    BancEchange banc;
    const auto arbre = banc.Importe("0 @I1@ INDI\n1 NAME Un /A/\n1 FAMS @F1@\n1 FAMS F2\n0 @I2@ INDI\n0 TRLR\n", {});
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Un  A\n"));
}

void TestGedcomImport::deDeuxIdentifiantsEgauxLePremierDuFichierGagne()
{
    BancEchange banc;
    const auto arbre = banc.Importe("0 @I1@ INDI\n1 NAME Premier /A/\n1 FAMS @F1@\n"
                                    "0 @I1@ INDI\n1 NAME Second /A/\n1 FAMS @F1@\n0 TRLR\n",
                                    QStringLiteral("@I1@"));
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Premier  A\n"));
}

void TestGedcomImport::unFichierImpossibleAOuvrirEstAnnonce_data()
{
    QTest::addColumn<QString>("nom");
    QTest::newRow("absent") << "absent.ged";
    QTest::newRow("dossier absent") << "rien/absent.ged";
    QTest::newRow("un dossier") << "dossier";
    QTest::newRow("pourcents") << "50%1 %s.ged";
}

void TestGedcomImport::unFichierImpossibleAOuvrirEstAnnonce()
{
    QFETCH(QString, nom);
    BancEchange banc;
    QVERIFY(QDir(banc.dossier.path()).mkdir(QStringLiteral("dossier")));
    Arbre arbre;
    ImporterDeFichierGEDCOM(nullptr, banc.Chemin(nom), &arbre);
    QCOMPARE(
        banc.messages,
        QStringList{"information|Information|Impossible de traiter le fichier " + banc.dossier.path() + u'/' + nom});
    QCOMPARE(ToutEnTexte(arbre), Vide());
    QVERIFY(!LesIndividus && !LesFamilles);
}

void TestGedcomImport::unFichierInterditEstAnnonce()
{
    BancEchange banc;
    const QString nom = banc.Pose(QStringLiteral("interdit.ged"), cinqIndividus);
    QCOMPARE(chmod(QFile::encodeName(banc.dossier.path()).constData(), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(nom).constData(), 0000), 0);
    Arbre arbre;
    {
        const SansPrivileges sansPrivileges;
        if (!sansPrivileges.Effectif())
            QSKIP("cannot become an ordinary user here");
        ImporterDeFichierGEDCOM(nullptr, nom, &arbre);
    }
    QCOMPARE(banc.messages, QStringList{"information|Information|Impossible de traiter le fichier " + nom});
    QCOMPARE(ToutEnTexte(arbre), Vide());
}

void TestGedcomImport::unFichierSansIndividuEstAnnonce_data()
{
    QTest::addColumn<QByteArray>("contenu");
    QTest::newRow("vide") << QByteArray();
    QTest::newRow("des blancs") << QByteArray("  \n\r\n\t\n");
    QTest::newRow("un en-tête") << QByteArray("0 HEAD\n1 CHAR ANSI\n0 TRLR\n");
    QTest::newRow("une famille") << QByteArray("0 @F1@ FAM\n1 HUSB @I1@\n1 CHIL @I2@\n0 TRLR\n");
    QTest::newRow("un individu jamais fermé") << QByteArray("0 HEAD\n0 @I1@ INDI\n1 NAME Jean /DUPONT/\n");
    QTest::newRow("autre chose") << QByteArray("<xrlg><personne/></xrlg>\n");
}

void TestGedcomImport::unFichierSansIndividuEstAnnonce()
{
    QFETCH(QByteArray, contenu);
    BancEchange banc;
    const auto arbre = banc.Importe(contenu, QStringLiteral("@I1@"));
    QCOMPARE(banc.messages,
             QStringList{"information|Information|Impossible de construire un arbre à partir de "
                         + banc.Chemin(QStringLiteral("a.ged"))});
    QCOMPARE(ToutEnTexte(*arbre), Vide());
    QVERIFY(!LesIndividus && !LesFamilles);
}

void TestGedcomImport::uneRacineIntrouvableEstAnnoncee_data()
{
    QTest::addColumn<QString>("reponse");
    QTest::addColumn<QString>("cle");
    QTest::newRow("inconnue") << "@I9@"
                              << "@I9@";
    QTest::newRow("dans un texte") << "Jean @I9@ DUPONT"
                                   << "@I9@";
    QTest::newRow("en minuscules") << "@i1@"
                                   << "@i1@";
    QTest::newRow("un blanc de trop") << "@ I1@"
                                      << "@ I1@";
    QTest::newRow("une famille") << "@F1@"
                                 << "@F1@";
    QTest::newRow("deux arrobas") << "@@I1@"
                                  << "@@";
    QTest::newRow("rien, et tous sont conjoints") << ""
                                                  << "";
    QTest::newRow("un nom, et tous sont conjoints") << "Jean"
                                                    << "";
}

void TestGedcomImport::uneRacineIntrouvableEstAnnoncee()
{
    QFETCH(QString, reponse);
    QFETCH(QString, cle);
    BancEchange banc;
    const auto arbre = banc.Importe("0 @I1@ INDI\n1 FAMS @F1@\n0 @I2@ INDI\n1 FAMS @F1@\n"
                                    "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I2@\n0 TRLR\n",
                                    reponse);
    QCOMPARE(banc.messages,
             (QStringList{"racine|@I2@   né(e) le  à |@I1@   né(e) le  à ",
                          "information|Information|Impossible de trouver la personne  " + cle
                              + "\nproposée comme racine de l'arbre"}));
    QCOMPARE(ToutEnTexte(*arbre), Vide());
    QVERIFY(!LesIndividus && !LesFamilles);
}

void TestGedcomImport::lesListesSontVidesApresUnSucces()
{
    BancEchange banc;
    for (int fois = 0; fois < 2; ++fois) {
        const auto arbre = banc.Importe("0 @I1@ INDI\n1 NAME Un /A/\n0 @I2@ INDI\n1 NAME Deux /B/\n"
                                        "0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n0 TRLR\n",
                                        QStringLiteral("@I1@"));
        QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Un  A\n  2 Deux  B\n"));
        QVERIFY(!LesIndividus && !LesFamilles);
        QCOMPARE(CompteIndiv(), 0L);
    }
}

void TestGedcomImport::desListesDejaRempliesNeServentPas()
{
    BancEchange banc;
    QVERIFY(DecodeFichierGED(banc.Pose(QStringLiteral("b.ged"), cinqIndividus)));
    const auto arbre = banc.Importe("0 @I9@ INDI\n1 NAME Neuf /N/\n0 TRLR\n", {});
    QCOMPARE(banc.messages, QStringList{"racine|@I9@ Neuf  N né(e) le  à "});
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Neuf  N\n"));
}

void TestGedcomImport::laPageDeGardeResteVide()
{
    BancEchange banc;
    const auto arbre = banc.Importe("0 HEAD\n1 SUBM @S0@\n2 NOTE x\n3 CONT Titre de l'arbre : Les DUPONT\n"
                                    "0 @S0@ SUBM\n1 NAME Auteur\n0 @I1@ INDI\n1 NAME Jean /DUPONT/\n0 TRLR\n",
                                    {});
    QCOMPARE(ArbreEnTexte(*arbre), QStringLiteral("1 Jean  DUPONT\n"));
    const InfoArbre &garde = *arbre->infoArbre;
    QCOMPARE((QStringList{garde.titrearbre, garde.creepar, garde.date, garde.majpar, garde.datemaj}),
             QStringList(5, QString()));
}

void TestGedcomImport::compteIndivCompteLaListe()
{
    const BancEchange banc;
    QCOMPARE(CompteIndiv(), 0L);
    QVERIFY(DecodeFichierGED(banc.Pose(QStringLiteral("b.ged"), cinqIndividus)));
    QCOMPARE(CompteIndiv(), 5L);
}

void TestGedcomImport::chercheRacineParcourtTouteLaListe()
{
    const BancEchange banc;
    QVERIFY(DecodeFichierGED(banc.Pose(QStringLiteral("b.ged"), cinqIndividus + cinqIndividus)));
    // The first of the file is the last of the list: how many the list holds from the one found on, 0 for none.
    const auto cherche = [](QString cle) {
        ChercheRacine(cle);
        int reste = 0;
        for (const IndividuGED *individu = RacinePos; individu; individu = individu->suivant)
            ++reste;
        return reste;
    };
    QCOMPARE(cherche(QStringLiteral("@I7@")), 4);
    QCOMPARE(RacinePos->prenom, QStringLiteral("Sept "));
    QCOMPARE(cherche(QStringLiteral("@I1@")), 1);
    QCOMPARE(cherche(QString()), 2);
    QCOMPARE(RacinePos->prenom, QStringLiteral("Deux "));
    QCOMPARE(cherche(QStringLiteral("I7")), 0);
    QCOMPARE(cherche(QStringLiteral("@i7@")), 0);
    VideLesListesGED();
    QCOMPARE(cherche(QString()), 0);
}

void TestGedcomImport::copieInfoRemplaceSeptTextes()
{
    IndividuGED individu(QStringLiteral("@I1@"));
    individu.prenom = QStringLiteral("Jean ");
    individu.nom = QStringLiteral("DUPONT");
    individu.sexe = QStringLiteral("M");
    individu.datenaissance = QStringLiteral("1900");
    individu.lieunaissance = QStringLiteral("Dijon");
    individu.datedeces = QStringLiteral("1980");
    individu.lieudeces = QStringLiteral("Lyon");
    individu.fams = QStringLiteral("@F1@");
    individu.famc = QStringLiteral("@F2@");
    individu.occu = QStringLiteral("Notaire");
    Personne personne(3);
    personne.info = new InfoPersonne;
    personne.info->divers = QStringLiteral("ancien");
    CopieInfo(&individu, &personne);
    QCOMPARE(Textes(*personne.info), QStringLiteral("DUPONT|Jean |1900|Dijon|1980|Lyon|Notaire|| photo -1"));
    QCOMPARE(personne.numerogeneration, 3);
    QCOMPARE(personne.numero, 0U);
    QCOMPARE(individu.numero, 0U);
    IndividuGED vide{QString()};
    CopieInfo(&vide, &personne);
    QCOMPARE(Textes(*personne.info), QStringLiteral("|||||||| photo -1"));
}

void TestGedcomImport::desTextesLongsSontEntiers()
{
    BancEchange banc;
    const QByteArray cent(100, 'A');
    const QByteArray centUn(101, 'B');
    const auto arbre = banc.Importe("0 @I1@ INDI\n1 NAME X /" + cent + "/\n1 OCCU " + centUn + "\n1 BIRT\n2 PLAC "
                                        + centUn + "\n2 DATE " + cent + "\n0 TRLR\n",
                                    QStringLiteral("@I1@"));
    const InfoPersonne &info = *arbre->premiere->info;
    QCOMPARE(info.nom, QString(100, u'A'));
    QCOMPARE(info.divers, QString(101, u'B'));
    QCOMPARE(info.lieunaissance, QString(101, u'B'));
    QCOMPARE(info.datenaissance, QString(100, u'A'));
}

void TestGedcomImport::lesNomsSeCherchentMemeSiQuelquUnRegardaitDeja()
{
    BancEchange banc;
    Arbre arbre;
    // As a screen reader may, while the question for the root is open.
    QCOMPARE(arbre.SonAnnuaire().Nombre(), 0U);
    banc.reponses->racine = QStringLiteral("@I1@");
    ImporterDeFichierGEDCOM(nullptr,
                            banc.Pose("a.ged",
                                      "0 @I1@ INDI\n1 NAME Jean /DUPONT/\n0 @I2@ INDI\n1 NAME Paul /MARTIN/\n"
                                      "0 @F1@ FAM\n1 HUSB @I2@\n1 CHIL @I1@\n0 TRLR\n"),
                            &arbre);
    QCOMPARE(NumeroDe(arbre.SonAnnuaire().Prochaine(nullptr, true, NomCherche(u"dupont"))), 1U);
    QCOMPARE(NumeroDe(arbre.SonAnnuaire().Prochaine(nullptr, true, NomCherche(u"martin"))), 2U);
}

RAMELIER_TEST_MAIN(QCoreApplication, TestGedcomImport)
#include "tst_gedcom_import.moc"

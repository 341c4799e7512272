#include "environnement.h"
#include "interlocuteur.h"

#include <QCoreApplication>
#include <QTemporaryFile>

#include <cstdio>

#include <unistd.h>

namespace {

/// What is written to the standard error stream as long as this lives.
class SortieErreur
{
public:
    SortieErreur()
        : ancienne(dup(STDERR_FILENO))
    {
        std::fflush(stderr);
        prete = fichier.open() && dup2(fichier.handle(), STDERR_FILENO) >= 0;
    }
    ~SortieErreur()
    {
        dup2(ancienne, STDERR_FILENO);
        close(ancienne);
    }
    Q_DISABLE_COPY_MOVE(SortieErreur)

    [[nodiscard]] QByteArray Texte()
    {
        std::fflush(stderr);
        return prete && fichier.seek(0) ? fichier.readAll() : QByteArray("illisible");
    }

private:
    QTemporaryFile fichier;
    int ancienne;
    bool prete = false;
};

}  // namespace

/// Who speaks to the user before a program has said who does.
class TestInterlocuteur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sansPersonneLesMessagesVontSurLaSortieDErreur();
    void sansPersonneRienNEstChoisi();
};

void TestInterlocuteur::sansPersonneLesMessagesVontSurLaSortieDErreur()
{
    SortieErreur sortie;
    Interlocuteur::Courant().Information(QStringLiteral("Arbre"), QStringLiteral("Né à %s ?"));
    Interlocuteur::Courant().Avertissement(QStringLiteral("Lecture"), QStringLiteral("Impossible."));
    QCOMPARE(sortie.Texte(), QByteArray("Arbre: N\xC3\xA9 \xC3\xA0 %s ?\nLecture: Impossible.\n"));
}

void TestInterlocuteur::sansPersonneRienNEstChoisi()
{
    const auto lignes = [] { return QStringList{QStringLiteral("@I1@ Jean")}; };
    QVERIFY(!Interlocuteur::Courant().ChoisitRacine(nullptr, lignes));
    QVERIFY(Interlocuteur::Courant().RacineMasculine(nullptr));
}

RAMELIER_TEST_MAIN(QCoreApplication, TestInterlocuteur)
#include "tst_interlocuteur.moc"

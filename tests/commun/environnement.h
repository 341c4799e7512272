#pragma once

#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

/// A place of its own for one test program: home, settings and run-time folders in a temporary directory, one locale,
/// time zone, font family and widget style, no printer. Construct it before the application object.
class Environnement
{
public:
    /// With a screen of the size \a ecran (pixels of the device), or the platform's usual one of 800 x 800.
    explicit Environnement(QSize ecran = {});

    /// The scratch home folder.
    [[nodiscard]] static QString Maison();

private:
    QTemporaryDir dossier;
};

/// The main function of a test class with an application object of the class \a Application.
#define RAMELIER_TEST_MAIN(Application, Classe)                                                                        \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        const Environnement environnement;                                                                             \
        Application application(argc, argv);                                                                           \
        Classe test;                                                                                                   \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

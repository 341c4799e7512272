#pragma once

#include "demarrage.h"
#include "environnement.h"

#include <QApplication>
#include <QtTest>

/// The main function of a class of tests of windows, set up as the program itself.
#define RAMELIER_TEST_BUREAU_MAIN(Classe)                                                                              \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        const Environnement environnement;                                                                             \
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                                                   \
        QApplication application(argc, argv);                                                                          \
        PrepareLApplication(application, QStringLiteral("ramelier"));                                                  \
        Classe test;                                                                                                   \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

#include "mesure.h"

#include <QGuiApplication>

#include <cstdlib>

/// RAMELIER_BENCH_PERSONNES: the largest tree, 100000 when it is not set.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    bool dit = false;
    const int voulu = qEnvironmentVariableIntValue("RAMELIER_BENCH_PERSONNES", &dit);
    const int plusGrand = dit ? voulu : 100000;
    benchmark::Initialize(&argc, argv);
    EnregistreDisposition(plusGrand);
    EnregistreXrlg(plusGrand);
    EnregistreGedcom(plusGrand);
    EnregistreAssemblage(plusGrand);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}

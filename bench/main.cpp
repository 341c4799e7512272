#include "documentouvert.h"
#include "mesure.h"
#include "taillemax.h"

#include <QApplication>

#include <cstdlib>

/// RAMELIER_BENCH_PERSONNES: the largest tree, 100000 when it is not set.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // It tells at each dialog that it has no window manager.
    qputenv("QT_LOGGING_RULES", "default.warning=false");
    const QApplication application(argc, argv);
    const int plusGrand = PersonnesAuPlus();
    benchmark::Initialize(&argc, argv);
    EnregistreDisposition(plusGrand);
    EnregistreDessin(plusGrand);
    EnregistreClic(plusGrand);
    EnregistreClavier(plusGrand);
    EnregistreEdition(plusGrand);
    EnregistreImpression(plusGrand);
    EnregistreXrlg(plusGrand);
    EnregistreGedcom(plusGrand);
    EnregistreAssemblage(plusGrand);
    MesureTout();
    FermeLesDocuments();
    return EXIT_SUCCESS;
}

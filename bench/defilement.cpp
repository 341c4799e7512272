#include "arbre.h"
#include "arbview.h"
#include "documentouvert.h"
#include "ligne.h"
#include "taillemax.h"

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

/// The processor time of this program so far.
double Millisecondes()
{
    timespec temps{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &temps);
    return 1e3 * double(temps.tv_sec) + double(temps.tv_nsec) / 1e6;
}

/// How long each repaint takes, in milliseconds and sorted, while the chart is scrolled from one end to the other.
std::vector<double> Images(DocumentOuvert &ouvert)
{
    constexpr int pas = 300;
    ouvert.vue.resize(1000, 700);
    ouvert.vue.show();
    QCoreApplication::processEvents();
    ouvert.vue.vue()->repaint();  // takes the size of the chart
    QCoreApplication::processEvents();
    QScrollBar &barre = *ouvert.vue.horizontalScrollBar();
    std::vector<double> durees;
    for (int i = 0; i <= pas; ++i) {
        const double debut = Millisecondes();
        barre.setValue(static_cast<int>(qint64(barre.maximum()) * i / pas));
        ouvert.vue.vue()->repaint();
        durees.push_back(Millisecondes() - debut);
        QCoreApplication::processEvents();
    }
    ouvert.vue.hide();
    std::sort(durees.begin(), durees.end());
    return durees;
}

}  // namespace

/// Scrolls charts of a thousand persons and more in a view of 1000 x 700.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::vector<double> petit;
    for (int personnes = 1000; personnes <= PersonnesAuPlus(); personnes *= 10) {
        const std::vector<double> images = Images(DocumentDe(Forme::Complete, personnes));
        if (petit.empty())
            petit = images;
        const auto ecrit = [&](const char *nom, double valeur, double plancher) {
            Ecrit({.nom = nom, .personnes = personnes, .valeur = valeur, .unite = "ms", .plancher = plancher});
        };
        ecrit("défilement, image médiane", images[images.size() / 2], petit[petit.size() / 2]);
        ecrit("défilement, image la plus lente", images.back(), petit.back());
    }
}

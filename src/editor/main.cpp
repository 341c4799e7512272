#include "copiesretrouvees.h"
#include "demarrage.h"
#include "findesession.h"
#include "lytextedit.h"
#include "placedesecours.h"
#include "signauxdefin.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStatusBar>

/// The editor of sheets as a program of its own: lyedithtml [FILE]
int main(int argc, char **argv)
{
    const std::future<void> polices = ChercheLesPolices();
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("lyedithtml"));
    polices.wait();
    const QString fichier = argc >= 2 ? QFile::decodeName(argv[1]) : QString();
    const LyTextEdit editeur(QStringLiteral("LyEditHtml"), fichier, true, QFile::decodeName(argv[0]),
                             QStringLiteral("1.0"));
    QStringList copies = CopiesRetrouvees(Copies::DeFiches);
    copies.removeAll(QFileInfo(fichier).absoluteFilePath());
    AnnonceLesCopies(copies, *editeur.statusBar());
    // cppcheck-suppress unreadVariable ; it listens as long as it lives
    const SignauxDeFin signaux(&LyTextEdit::MetLesFichesEnSurete);
    FinDeSession::Surveille(
        &application, {.peutFinir = &LyTextEdit::TousPeuventFermer, .metEnSurete = &LyTextEdit::MetLesFichesEnSurete});
    return QApplication::exec();
}

#include "demarrage.h"
#include "findesession.h"
#include "lytextedit.h"

#include <QApplication>
#include <QFile>

/// The editor of sheets as a program of its own: lyedithtml [FILE]
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    PrepareLApplication(application, QStringLiteral("lyedithtml"));
    const QString fichier = argc >= 2 ? QFile::decodeName(argv[1]) : QString();
    // cppcheck-suppress unreadVariable ; a window: it is there as long as it lives
    const LyTextEdit editeur(QStringLiteral("LyEditHtml"), fichier, true, QFile::decodeName(argv[0]),
                             QStringLiteral("1.0"));
    FinDeSession::Surveille(&application, {.peutFinir = &LyTextEdit::TousPeuventFermer});
    return QApplication::exec();
}

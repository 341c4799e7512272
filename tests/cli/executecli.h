#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// What became of a run of the built companion.
struct Resultat
{
    int code = -1;  ///< its exit status; -1 when it crashed or did not end
    QString sortie;
    QString erreur;
};

inline Resultat Execute(const QStringList &arguments)
{
    QProcess programme;
    programme.start(QStringLiteral(RAMELIER_CLI), arguments);
    const bool fini = programme.waitForFinished(60000) && programme.exitStatus() == QProcess::NormalExit;
    return {fini ? programme.exitCode() : -1, QString::fromUtf8(programme.readAllStandardOutput()),
            QString::fromUtf8(programme.readAllStandardError())};
}

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// What a program did that was waited for.
struct Execution
{
    int code = -1;   ///< -1: it did not start, or crashed
    QString sortie;  ///< all that it said, errors included
};

/// Runs \a programme in \a environnement, from the root folder.
inline Execution Execute(const QString &programme, const QStringList &arguments,
                         const QProcessEnvironment &environnement = QProcessEnvironment::systemEnvironment())
{
    QProcess processus;
    processus.setProcessEnvironment(environnement);
    processus.setWorkingDirectory(QStringLiteral("/"));
    processus.setProcessChannelMode(QProcess::MergedChannels);
    processus.start(programme, arguments);
    if (!processus.waitForFinished(120'000) || processus.exitStatus() != QProcess::NormalExit)
        return {-1, processus.errorString() + QString::fromUtf8(processus.readAll())};
    return {processus.exitCode(), QString::fromUtf8(processus.readAll())};
}

/// The environment of this process, with \a variable.
inline QProcessEnvironment Avec(const QString &variable, const QString &valeur)
{
    QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
    environnement.insert(variable, valeur);
    return environnement;
}

#include "dossier.h"

#include <QDir>
#include <QFile>

QString Dossier::Chemin(const QString &nom) const
{
    return nom.isEmpty() ? dossier.path() : dossier.filePath(nom);
}

QString Dossier::Ecrit(const QString &nom, const QByteArray &contenu) const
{
    QFile fichier(Chemin(nom));
    if (!fichier.open(QIODevice::WriteOnly) || fichier.write(contenu) != contenu.size())
        qFatal("le dossier d'essai refuse %s", qPrintable(nom));
    return fichier.fileName();
}

QByteArray Dossier::Lit(const QString &nom) const
{
    QFile fichier(Chemin(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("illisible");
}

QStringList Dossier::Noms() const
{
    return QDir(Chemin()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

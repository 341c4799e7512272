#include "ramelierapp.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace {

/// The one tree file that \a depose holds; empty when it holds anything else.
QString FichierArbreDe(const QMimeData &depose)
{
    const QList<QUrl> adresses = depose.urls();
    const QString fichier = adresses.size() == 1 ? adresses.front().toLocalFile() : QString();
    const bool estUnArbre = fichier.endsWith(QStringLiteral(".xrlg"), Qt::CaseInsensitive)
        || fichier.endsWith(QStringLiteral(".rlg"), Qt::CaseInsensitive);
    return estUnArbre ? fichier : QString();
}

/// The program waits for an answer: nothing else may change the tree.
bool UneQuestionEstPosee()
{
    return QApplication::activeModalWidget() != nullptr;
}

}  // namespace

void RamelierApp::dragEnterEvent(QDragEnterEvent *evenement)
{
    if (UneQuestionEstPosee() || FichierArbreDe(*evenement->mimeData()).isEmpty())
        return;
    evenement->setDropAction(Qt::CopyAction);
    evenement->accept();
}

void RamelierApp::dropEvent(QDropEvent *evenement)
{
    const QString fichier = FichierArbreDe(*evenement->mimeData());
    if (fichier.isEmpty())
        return;
    evenement->setDropAction(Qt::CopyAction);
    evenement->accept();
    // Who dropped the file waits until this returns: what is asked before the tree goes comes later.
    QMetaObject::invokeMethod(
        this, [this, fichier] { OuvreLeFichierDepose(fichier); }, Qt::QueuedConnection);
}

void RamelierApp::OuvreLeFichierDepose(const QString &fichier)
{
    if (UneQuestionEstPosee() || !PeutAbandonnerLArbre())
        return;
    Status(QStringLiteral("Ouverture du fichier..."));
    fichierArbre = fichier;
    ChargeLeFichierArbre();
}

#include "navigateurfiche.h"

#include "imagesbornees.h"
#include "longsmots.h"
#include "papier.h"
#include "tablesprofondes.h"
#include "textefiche.h"

#include <QFileInfo>
#include <QStyle>

namespace {

/// Images and style sheets are read whole.
constexpr qint64 octetsMaxRessource = qint64(512) << 20;

}  // namespace

NavigateurFiche::NavigateurFiche(QWidget *parent)
    : QTextBrowser(parent)
{
    setAccessibleName(QStringLiteral("Texte affiché"));
    // Sheets are written for white paper, whatever the desktop's colours are.
    setPalette(PaletteDePapier(palette()));
    // The toolkit would take the colour of links from the desktop, which may have chosen it for a dark page.
    document()->setDefaultStyleSheet(QStringLiteral("a:link { color: #0000ff }"));
    CoupeLesTresLongsMots(this);
    new ImagesBornees(document());
}

QVariant NavigateurFiche::loadResource(int type, const QUrl &nom)
{
    const QUrl url = source().resolved(nom);
    const QString chemin = url.toLocalFile();
    const QFileInfo fichier(chemin);
    const bool ordinaire = fichier.isFile() && fichier.size() <= octetsMaxRessource;
    // Without a picture the toolkit would open the name by itself, even that of a device that never ends.
    if (type == QTextDocument::ImageResource && !ordinaire)
        return style()->standardIcon(QStyle::SP_FileIcon).pixmap(16, 16);
    if (type != QTextDocument::HtmlResource)
        return ordinaire ? QTextBrowser::loadResource(type, url) : QVariant();
    QString cause;
    const QByteArray octets = OctetsFiche(chemin, &cause);
    if (!octets.isNull())
        return SansTablesProfondes(TexteFicheHtml(octets));
    const QString refus = fichier.exists()
        ? NonLu(chemin, cause)
        : QStringLiteral("Le fichier %1 n'existe pas !").arg(chemin.isEmpty() ? url.toDisplayString() : chemin);
    return QStringLiteral("<p>%1</p>").arg(refus.toHtmlEscaped());
}

QString NavigateurFiche::NonLu(const QString &fichier, const QString &cause)
{
    return QStringLiteral("Le fichier %1 ne peut pas être lu : %2.").arg(fichier, cause);
}

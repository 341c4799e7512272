#include "ecran.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>

namespace Ecran {

namespace {

constexpr int attenteMs = 20000;

QString Sortie(const QString &programme, const QStringList &arguments, bool *reussi = nullptr)
{
    QProcess outil;
    outil.start(programme, arguments);
    const bool fini = outil.waitForFinished();
    if (reussi)
        *reussi = fini && outil.exitStatus() == QProcess::NormalExit && outil.exitCode() == 0;
    return QString::fromUtf8(outil.readAllStandardOutput()).trimmed();
}

}  // namespace

QString Xdotool(const QStringList &arguments)
{
    return Sortie("xdotool", arguments);
}

QString AttendActive(const QString &titre)
{
    QString fenetre;
    const bool venue = QTest::qWaitFor(
        [&fenetre, &titre] {
            fenetre = Xdotool({"search", "--onlyvisible", "--name", titre}).section(u'\n', -1);
            return !fenetre.isEmpty() && Xdotool({"getactivewindow"}) == fenetre;
        },
        attenteMs);
    return venue ? fenetre : QString();
}

bool EstActive(const QString &fenetre)
{
    return QTest::qWaitFor([&fenetre] { return Xdotool({"getactivewindow"}) == fenetre; }, attenteMs);
}

QRect Place(const QString &fenetre)
{
    QRect place;
    const QStringList lignes = Xdotool({"getwindowgeometry", "--shell", fenetre}).split(u'\n');
    for (const QString &ligne : lignes) {
        const int valeur = ligne.section(u'=', 1).toInt();
        if (ligne.startsWith("X="))
            place.moveLeft(valeur);
        else if (ligne.startsWith("Y="))
            place.moveTop(valeur);
        else if (ligne.startsWith("WIDTH="))
            place.setWidth(valeur);
        else if (ligne.startsWith("HEIGHT="))
            place.setHeight(valeur);
    }
    return place;
}

void Touches(const QStringList &touches)
{
    Xdotool(QStringList{"key", "--delay", "5"} + touches);
}

void Tape(const QString &texte)
{
    Xdotool({"type", "--delay", "5", "--", texte});
}

bool PrendClavierFrancophone()
{
    bool pris = false;
    Sortie("setxkbmap", {"-layout", "ca", "-variant", "multix"}, &pris);
    return pris;
}

void Clique(QPoint point, int bouton)
{
    Xdotool({"mousemove", QString::number(point.x()), QString::number(point.y()), "click", QString::number(bouton)});
}

QImage Image()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
}

void Garde(const QString &nom)
{
    QDir().mkpath(RAMELIER_CAPTURES);
    Image().save(QStringLiteral(RAMELIER_CAPTURES "/%1.png").arg(nom));
}

int Points(const QImage &image, const QRect &zone, QRgb couleur)
{
    int points = 0;
    const QRect visible = zone & image.rect();
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
        for (int x = visible.left(); x <= visible.right(); ++x)
            points += image.pixel(x, y) == couleur ? 1 : 0;
    }
    return points;
}

}  // namespace Ecran

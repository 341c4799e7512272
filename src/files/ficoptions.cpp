#include "ficoptions.h"

#include "ecriture.h"
#include "formatsdessins.h"
#include "lespolices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <array>

namespace {

constexpr qint64 octetsMax = 65536;

/// The whole lengths in the order of the file.
constexpr std::array<int FormatsDessins::*, 7> longueurs{
    &FormatsDessins::largeurCadre,    &FormatsDessins::hauteurCadre,  &FormatsDessins::distMinHoriz,
    &FormatsDessins::distMinVert,     &FormatsDessins::margeGenerale, &FormatsDessins::margeDansCadre,
    &FormatsDessins::intervCadrePhoto};

/// The fonts with weight and slope, in the order of the file, which is not the one of LesPolices.
constexpr std::array<QFont LesPolices::*, 3> policesCompletes{&LesPolices::policeNumeros, &LesPolices::policeLegende,
                                                              &LesPolices::policeTitre};

int LitEntier(QTextStream &flux)
{
    int valeur = 0;
    flux >> valeur;
    return valeur;
}

QString LitMot(QTextStream &flux)
{
    QString mot;
    flux >> mot;
    return mot;
}

QColor LitCouleur(QTextStream &flux)
{
    const int rouge = LitEntier(flux);
    const int vert = LitEntier(flux);
    const int bleu = LitEntier(flux);
    return {rouge, vert, bleu};
}

QFont LitPolice(QTextStream &flux)
{
    const QString famille = LitMot(flux);
    const int taille = LitEntier(flux);
    const int poids = LitEntier(flux);
    const int italique = LitEntier(flux);
    return FaitPolice(famille, taille, poids, italique != 0);
}

void EcritCouleur(QTextStream &flux, const QColor &couleur)
{
    flux << couleur.red() << '\n' << couleur.green() << '\n' << couleur.blue() << '\n';
}

void EcritEntete(QTextStream &flux, int type)
{
    if (type == OptionsPreferences)
        flux << QStringLiteral("Fichier créé par Ramelier pour enregistrer les préférences de l'utilisateur\n");
    else if (type == OptionsParArbre)
        flux << QStringLiteral("Fichier créé par Ramelier pour enregistrer les formats du fichier .rlg associé\n");
    else
        return;
    flux << QStringLiteral("NE PAS MODIFIER MANUELLEMENT\n");
}

void EcritValeurs(QTextStream &flux, const FormatsDessins &formats, const LesPolices &polices)
{
    constexpr int entierMax = 200'000'000;
    const auto enDixiemes = [](float valeur) {
        // Truncated before it is multiplied: whole millimetres only, deliberately.
        return 10 * (valeur < 0 ? -1 : 1) * int(qMin(qAbs(valeur), float(entierMax)));
    };
    flux << enDixiemes(formats.epaisseurTraits) << '\n' << enDixiemes(formats.rayonArc) << '\n';
    for (const auto longueur : longueurs)
        flux << formats.*longueur << '\n';
    EcritCouleur(flux, formats.couleurTraits);
    flux << polices.policeTextes.family() << '\n' << polices.policeTextes.pointSize() << '\n';
    for (const auto champ : policesCompletes) {
        const QFont &police = polices.*champ;
        flux << police.family() << '\n'
             << police.pointSize() << '\n'
             << PoidsSurCent(police) << '\n'
             << (police.style() != QFont::StyleNormal ? 1 : 0) << '\n';
    }
    EcritCouleur(flux, polices.couleurCaracteres);
}

}  // namespace

bool LitOptions(const QString &fichier, FormatsDessins *formats, LesPolices *polices)
{
    if (!QFileInfo(fichier).isFile())
        return false;
    QFile source(fichier);
    if (!source.open(QIODevice::ReadOnly))
        return false;
    // A few hundred bytes; whatever else bears such a name is not read to its end.
    const QByteArray debut = source.read(octetsMax);
    QTextStream flux(debut);
    flux.readLine();
    flux.readLine();
    formats->epaisseurTraits = static_cast<float>(LitEntier(flux) / 10.0);
    formats->rayonArc = static_cast<float>(LitEntier(flux) / 10.0);
    for (const auto longueur : longueurs)
        formats->*longueur = LitEntier(flux);
    formats->couleurTraits = LitCouleur(flux);
    const QString familleTextes = LitMot(flux);
    polices->policeTextes = QFont(familleTextes, LitEntier(flux));
    for (const auto champ : policesCompletes)
        polices->*champ = LitPolice(flux);
    polices->couleurCaracteres = LitCouleur(flux);
    return true;
}

bool EcritOptions(const QString &fichier, const FormatsDessins &formats, const LesPolices &polices, int type)
{
    EcritureFichier ecriture(fichier);
    if (!ecriture.Ouvre())
        return false;
    QTextStream flux(&ecriture.Appareil());
    EcritEntete(flux, type);
    EcritValeurs(flux, formats, polices);
    flux.flush();
    return flux.status() == QTextStream::Ok && ecriture.Termine();
}

QString CheminDesPreferences()
{
    return QDir::homePath() + QStringLiteral("/.ramelier.opt");
}

QString CheminDesOptions(const QString &fichierArbre)
{
    const QFileInfo arbre(fichierArbre);
    return arbre.absolutePath() + u'/' + arbre.baseName() + QStringLiteral(".opt");
}

void LitPreferences(const QString &fichier, FormatsDessins *formats, LesPolices *polices)
{
    if (LitOptions(fichier, formats, polices))
        return;
    *formats = FormatsDessins::ParDefaut();
    *polices = LesPolices::ParDefaut();
}

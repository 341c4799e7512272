#include "arbre.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "ligne.h"
#include "personne.h"

#include <QFile>
#include <QFileInfo>

#include <cstdlib>
#include <optional>

#include <malloc.h>

namespace {

double OctetsAlloues()
{
    const struct mallinfo2 tas = mallinfo2();
    return double(tas.uordblks + tas.hblkhd);
}

/// A line of /proc/self/status, in bytes.
double Octets(const QByteArray &nom)
{
    QFile etat(QStringLiteral("/proc/self/status"));
    if (!etat.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lignes = etat.readAll().split('\n');
    for (const QByteArray &ligne : lignes) {
        if (ligne.startsWith(nom + ':'))
            return 1024 * ligne.mid(nom.size() + 1).trimmed().split(' ').first().toDouble();
    }
    return 0;
}

double OctetsDesTextes(const Arbre &arbre)
{
    double lettres = 0;
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        const InfoPersonne &info = *personne->info;
        for (const QString *texte : {&info.nom, &info.prenom, &info.datenaissance, &info.lieunaissance, &info.datedeces,
                                     &info.lieudeces, &info.divers, &info.fichtml, &info.ficphoto})
            lettres += double(texte->size());
    }
    return lettres * sizeof(QChar);
}

}  // namespace

/// memoire PERSONNES FICHIER.xrlg: what an open tree takes beside its texts.
int main(int argc, char **argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    const int personnes = std::atoi(argv[1]);
    const QString fichier = QString::fromLocal8Bit(argv[2]);
    QString dossier = QFileInfo(fichier).absolutePath();
    const double alloues = OctetsAlloues();
    const double presents = Octets("VmRSS");
    Arbre arbre;
    if (readFicXRLG(fichier, dossier, &arbre) != 0)
        return EXIT_FAILURE;
    const double textes = OctetsDesTextes(arbre);
    const auto ecrit = [personnes](const char *nom, double octets, std::optional<double> limite) {
        Ecrit({.nom = nom, .personnes = personnes, .valeur = octets / personnes, .unite = "o/pers.", .limite = limite});
    };
    ecrit("mémoire d'un arbre ouvert, sans ses textes", OctetsAlloues() - alloues - textes, 700);
    ecrit("mémoire d'un arbre ouvert, textes seuls", textes, {});
    ecrit("mémoire que l'ouverture ajoute au processus", Octets("VmRSS") - presents, {});
    ecrit("mémoire du processus au plus haut", Octets("VmHWM"), {});
    return EXIT_SUCCESS;
}

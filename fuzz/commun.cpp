#include "commun.h"

#include "arbre.h"
#include "ficxrlg.h"
#include "infopersonne.h"
#include "personne.h"

#include <QBuffer>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace {

InterlocuteurPresse *presse = nullptr;

void Silence(QtMsgType /*type*/, const QMessageLogContext & /*contexte*/, const QString & /*texte*/) { }

/// All that the format keeps.
QStringList Textes(const Arbre &arbre)
{
    const InfoArbre &page = *arbre.infoArbre;
    QStringList textes{page.titrearbre, page.creepar, page.date, page.majpar, page.datemaj};
    for (const Personne *p = arbre.premiere; p; p = p->suivante) {
        for (const quint64 nombre : {p->numero, quint64(p->numerogeneration), p->pere, p->mere, p->enfant})
            textes += QString::number(nombre);
        const InfoPersonne &i = *p->info;
        textes += {i.nom,       i.prenom, i.datenaissance, i.lieunaissance, i.datedeces,
                   i.lieudeces, i.divers, i.fichtml,       i.ficphoto};
    }
    return textes;
}

/// What stands in a file as it is: the format escapes nothing, and files lose every "\r".
bool SeGarde(const QString &texte)
{
    for (const QChar c : texte) {
        if (c == u'&' || c == u'<' || c == u'\r' || c.unicode() >= 0xfffe || (c < u' ' && c != u'\n' && c != u'\t'))
            return false;
    }
    return texte.isValidUtf16() && !texte.contains(QStringLiteral("]]>"));
}

QByteArray EnXrlg(const Arbre &arbre)
{
    QBuffer sortie;
    sortie.open(QIODevice::WriteOnly);
    Exige(EcritArbreXRLG(sortie, arbre), "un tampon prend tous les octets");
    return sortie.data();
}

void VerifieParent(const Personne *parent, quint64 numero, const QSet<const Personne *> &plusLoin,
                   QSet<const Personne *> &parents)
{
    if (!parent)
        return;
    Exige(plusLoin.contains(parent), "un parent est plus loin dans la liste");
    Exige(parent->numero == numero && numero != 0, "un parent porte le numéro que dit l'enfant");
    Exige(!parents.contains(parent), "un parent n'a qu'un enfant");
    parents.insert(parent);
}

}  // namespace

void Exige(bool tenue, const char *propriete)
{
    if (tenue)
        return;
    std::fprintf(stderr, "== TROUVAILLE : il n'est pas vrai que %s\n", propriete);
    std::abort();
}

void InterlocuteurPresse::Information(const QString & /*titre*/, const QString & /*texte*/) { }
void InterlocuteurPresse::Avertissement(const QString & /*titre*/, const QString & /*texte*/) { }

std::optional<QString> InterlocuteurPresse::ChoisitRacine(QWidget * /*parent*/, const Lignes &individus)
{
    return racine ? racine(individus()) : std::nullopt;
}

bool InterlocuteurPresse::RacineMasculine(QWidget * /*parent*/)
{
    return masculine;
}

InterlocuteurPresse &Presse()
{
    return *presse;
}

void Tais()
{
    qInstallMessageHandler(Silence);
    auto nouveau = std::make_unique<InterlocuteurPresse>();
    presse = nouveau.get();
    Interlocuteur::Installe(std::move(nouveau));
}

QString Dossier()
{
    static const QTemporaryDir dossier;
    return dossier.path();
}

QString Pose(const QString &nom, QByteArrayView octets)
{
    QFile fichier(Dossier() + u'/' + nom);
    fichier.remove();  // some file systems wait for the disk when one is only cut to nothing
    Exige(fichier.open(QIODevice::WriteOnly | QIODevice::Unbuffered), "le dossier prend un fichier");
    Exige(fichier.write(octets.data(), octets.size()) == octets.size(), "le fichier prend tous les octets");
    return fichier.fileName();
}

QByteArray Contenu(const QString &chemin)
{
    QFile fichier(chemin);
    Exige(fichier.open(QIODevice::ReadOnly), "le fichier écrit se lit");
    return fichier.readAll();
}

quint64 VerifieListe(const Arbre &arbre)
{
    quint64 nombre = 0;
    const Personne *precedente = nullptr;
    for (const Personne *p = arbre.premiere; p; precedente = p, p = p->suivante, ++nombre)
        Exige(p->precedente == precedente, "la liste est liée dans les deux sens");
    Exige(arbre.derniere == precedente, "la dernière personne termine la liste");
    return nombre;
}

quint64 VerifieArbre(const Arbre &arbre)
{
    const quint64 nombre = VerifieListe(arbre);
    QSet<const Personne *> plusLoin;
    QSet<const Personne *> parents;
    for (const Personne *p = arbre.derniere; p; p = p->precedente) {
        Exige(p->info, "chacun a ses données");
        VerifieParent(p->ptrPere, p->pere, plusLoin, parents);
        VerifieParent(p->ptrMere, p->mere, plusLoin, parents);
        plusLoin.insert(p);
    }
    return nombre;
}

void VerifieArbreNumerote(const Arbre &arbre)
{
    Exige(VerifieArbre(arbre) == arbre.nombrePersonnes, "le nombre de personnes est juste");
    quint64 numero = 0;
    for (const Personne *p = arbre.premiere; p; numero = p->numero, p = p->suivante) {
        Exige(p->numero > numero, "les numéros croissent");
        Exige(p->numero >> p->numerogeneration == 1, "la génération suit du numéro");
        Exige(p->enfant == p->numero / 2, "l'enfant suit du numéro");
        Exige(p->pere == (p->ptrPere ? 2 * p->numero : 0), "le père suit du numéro");
        Exige(p->mere == (p->ptrMere ? 2 * p->numero + 1 : 0), "la mère suit du numéro");
        Exige(p->numerogeneration < arbre.nombreGenerations, "la génération est comptée");
    }
}

void VerifieAllerRetour(Arbre &arbre)
{
    const QString chemin = Dossier() + QStringLiteral("/ecrit.xrlg");
    Exige(writeFicXRLG(chemin, &arbre), "l'arbre s'écrit");
    const QByteArray ecrit = Contenu(chemin);
    Arbre relu;
    QString repertoire = Dossier();
    const int resultat = readFicXRLG(chemin, repertoire, &relu);
    const quint64 nombre = VerifieArbre(relu);
    const QStringList textes = Textes(arbre);
    if (!std::all_of(textes.begin(), textes.end(), SeGarde))
        return;
    Exige(resultat == 0, "ce qui fut écrit se lit");
    Exige(relu.nombrePersonnes == arbre.nombrePersonnes + nombre, "la lecture compte les personnes en plus");
    Exige(Textes(relu) == textes, "ce qui fut écrit se relit");
    relu.nombrePersonnes = arbre.nombrePersonnes;
    Exige(EnXrlg(relu) == ecrit, "ce qui fut relu s'écrit de même");
}

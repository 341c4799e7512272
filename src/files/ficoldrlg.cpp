#include "ficoldrlg.h"

#include "arbre.h"
#include "infopersonne.h"
#include "personne.h"

#include <QFile>
#include <QFileInfo>

#include <deque>
#include <memory>
#include <unordered_map>

namespace {

constexpr quint64 marqueArbre = 1013;
constexpr quint64 marquePageDeGarde = 1012;
constexpr quint64 marquePersonne = 1011;
constexpr quint64 marqueTextes = 1010;

struct Ferme
{
    void operator()(std::FILE *fichier) const { std::fclose(fichier); }
};
using Fichier = std::unique_ptr<std::FILE, Ferme>;

Fichier Ouvre(const QString &nom)
{
    // A pipe would wait for its writer, and a folder opens but cannot be read.
    return Fichier(QFileInfo(nom).isFile() ? std::fopen(QFile::encodeName(nom).constData(), "rb") : nullptr);
}

/// The persons that name a number as a parent, in list order, so that no search walks the list.
class Enfants
{
public:
    void Note(Personne *personne)
    {
        for (const quint64 numero : {personne->pere, personne->mere}) {
            if (numero != 0)
                parParent[numero].push_back(personne);
        }
    }

    /// The first person of the list one of whose parents bears this number now, or none.
    [[nodiscard]] Personne *PremierDe(quint64 numero)
    {
        const auto trouve = parParent.find(numero);
        if (trouve == parParent.end())
            return nullptr;
        std::deque<Personne *> &candidats = trouve->second;
        // Links are only ever cleared: who has lost this one is never looked at again.
        while (!candidats.empty() && candidats.front()->pere != numero && candidats.front()->mere != numero)
            candidats.pop_front();
        return candidats.empty() ? nullptr : candidats.front();
    }

private:
    std::unordered_map<quint64, std::deque<Personne *>> parParent;
};

/// One file being read.
class LecteurRLG
{
public:
    LecteurRLG(std::FILE *f, const QString &dossier, Arbre &unArbre)
        : fichier(f)
        , repertoire(dossier)
        , arbre(unArbre)
    {
    }

    [[nodiscard]] QString EnTete()
    {
        QString texte;
        LitChaine(fichier, texte, static_cast<short>(Entier(1)));
        return texte;
    }

    /// What follows the header; false when the start marker is wrong.
    [[nodiscard]] bool Lit(int version)
    {
        if (Entier(2) != marqueArbre)
            return false;
        if (Entier(2) == marquePageDeGarde)
            LitPageDeGarde();
        Entier(2);
        const quint64 emplacements = Entier(TailleNumero(version));
        if (version == 1) {
            Entier(2);
            Entier(2);
        }
        for (quint64 i = 0; i < emplacements && !std::feof(fichier); ++i) {
            if (Entier(2) == marquePersonne)
                Range(LitPersonne(version));
        }
        arbre.nombreGenerations = static_cast<unsigned short>(Entier(2));
        if (arbre.nombrePersonnes >= 2)
            arbre.DetermineLiensDeParente();
        return true;
    }

private:
    static int TailleNumero(int version) { return version == 1 ? 2 : 8; }

    /// An unsigned integer of so many bytes, low byte first; the bytes behind the end of the file are zero.
    quint64 Entier(int octets)
    {
        quint64 valeur = 0;
        for (int i = 0; i < octets; ++i) {
            const int octet = std::getc(fichier);
            if (octet == EOF)
                break;
            valeur |= quint64(octet) << (8 * i);
        }
        return valeur;
    }

    void Texte(QString &texte) { LitChaine(fichier, texte, static_cast<short>(Entier(2))); }

    void LitPageDeGarde()
    {
        InfoArbre &info = *arbre.infoArbre;
        for (QString *texte : {&info.titrearbre, &info.creepar, &info.date, &info.majpar, &info.datemaj})
            Texte(*texte);
    }

    std::unique_ptr<Personne> LitPersonne(int version)
    {
        auto personne = std::make_unique<Personne>(static_cast<unsigned short>(0));
        const int octets = TailleNumero(version);
        personne->numero = Entier(octets);
        personne->numerogeneration = static_cast<unsigned short>(Entier(2));
        personne->pere = Entier(octets);
        personne->mere = Entier(octets);
        personne->enfant = Entier(octets);
        if (Entier(2) == marqueTextes)
            LitTextes(*personne);
        return personne;
    }

    void LitTextes(Personne &personne)
    {
        personne.info = new InfoPersonne;
        InfoPersonne &info = *personne.info;
        for (QString *texte : {&info.nom, &info.prenom, &info.datenaissance, &info.lieunaissance, &info.datedeces,
                               &info.lieudeces, &info.divers, &info.fichtml, &info.ficphoto})
            Texte(*texte);
        if (!info.ficphoto.isEmpty())
            info.etatPhoto = info.ChargePhoto(repertoire) ? InfoPersonne::PhotoChargee : InfoPersonne::PhotoAbsente;
    }

    void Range(std::unique_ptr<Personne> personne)
    {
        if (!personne->estVide()) {
            enfants.Note(personne.get());
            arbre.AjouteALaFin(personne.release());
            return;
        }
        Personne *enfant = enfants.PremierDe(personne->numero);
        if (enfant)
            (personne->numero % 2 != 0 ? enfant->mere : enfant->pere) = 0;
    }

    std::FILE *fichier;
    QString repertoire;
    Arbre &arbre;
    Enfants enfants;
};

}  // namespace

int readFicOldRLG(const QString &fileName, QString &repertoire, Arbre *arbre, QString &enteteV1, QString &enteteV3,
                  int &typeFichier)
{
    const Fichier fichier = Ouvre(fileName);
    if (!fichier)
        return 1;
    LecteurRLG lecteur(fichier.get(), repertoire, *arbre);
    const QString enTete = lecteur.EnTete();
    if (enTete == enteteV3)
        typeFichier = 3;
    else if (enTete == enteteV1)
        typeFichier = 1;
    else
        return 2;
    return lecteur.Lit(typeFichier) ? 0 : 3;
}

void LitChaine(std::FILE *f, QString &s, short n)
{
    if (n <= 0)
        return;
    QByteArray octets(n, Qt::Uninitialized);
    octets.truncate(static_cast<qsizetype>(std::fread(octets.data(), 1, static_cast<std::size_t>(n), f)));
    s += QString::fromLatin1(octets);
}

void EcriChaine(std::FILE *f, QString &s)
{
    const auto longueur = static_cast<quint16>(s.size());
    std::putc(longueur & 0xff, f);
    std::putc(longueur >> 8, f);
    const QByteArray octets = s.toLatin1().left(longueur);
    std::fwrite(octets.constData(), 1, static_cast<std::size_t>(octets.size()), f);
}

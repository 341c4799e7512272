#include "sauvegardes.h"

#include "arbre.h"
#include "arbres.h"
#include "dossier.h"
#include "ficoptions.h"
#include "gedcomexport.h"
#include "infopersonne.h"
#include "lytextedit.h"
#include "monqtextedit.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "scenario.h"

#include <QTextDocument>

namespace {

/// Enough persons that a file takes more than one write.
constexpr int generations = 10;

/// A tree whose last person says which content it is.
void Marque(const Arbre &arbre, int version)
{
    arbre.derniere->info->nom = version == 0 ? QStringLiteral("Ancien") : QStringLiteral("Nouveau");
}

class SauvegardeArbre : public Sauvegarde
{
public:
    SauvegardeArbre(QStringList &messages, const QString &chemin)
        : Sauvegarde(messages)
        , doc(QString())
    {
        doc.arbre = ArbreComplet(generations).release();
        doc.nomFichier = chemin;
        doc.typeFichier = 4;
    }
    [[nodiscard]] QString Fichier() const override { return QStringLiteral("a.xrlg"); }
    bool Ecrit(int version) override
    {
        Marque(*doc.arbre, version);
        doc.modifie = true;
        QString sansOptions;
        return doc.save(sansOptions);
    }
    [[nodiscard]] QString Echec() const override { return QStringLiteral("avertissement|Fichier XRLG|"); }
    [[nodiscard]] std::optional<bool> ResteModifie() const override { return doc.isModified(); }

private:
    RamelierDoc doc;
};

class SauvegardeOptions : public Sauvegarde
{
public:
    SauvegardeOptions(QStringList &messages, const Dossier &dossier)
        : Sauvegarde(messages)
        , doc(QString())
        , chemin(dossier.Chemin(QStringLiteral("o.opt")))
    {
        doc.arbre = ArbreComplet(1).release();
        doc.nomFichier = dossier.Chemin(QStringLiteral("o.xrlg"));
        doc.typeFichier = 4;
    }
    [[nodiscard]] QString Fichier() const override { return QStringLiteral("o.opt"); }
    bool Ecrit(int version) override
    {
        doc.formats.largeurCadre = version == 0 ? 30 : 40;
        return doc.saveOptions(chemin, &doc.formats, &doc.polices, OptionsParArbre);
    }
    [[nodiscard]] QString Echec() const override { return {}; }

private:
    RamelierDoc doc;
    QString chemin;
};

class SauvegardeFiche : public Sauvegarde
{
public:
    SauvegardeFiche(QStringList &messages, const Dossier &dossier)
        : Sauvegarde(messages)
        , chemin(dossier.Chemin(QStringLiteral("f.htm")))
        , editeur(QStringLiteral("Fiche"), dossier.Ecrit(QStringLiteral("f.htm"), "<html></html>\n"), false,
                  dossier.Chemin(), QStringLiteral("n° 1"))
    {
    }
    [[nodiscard]] QString Fichier() const override { return QStringLiteral("f.htm"); }
    bool Ecrit(int version) override
    {
        const Scenario scenario;
        const QString ligne =
            version == 0 ? QStringLiteral("<p>L'ancien récit</p>\n") : QStringLiteral("<p>Le nouveau</p>\n");
        editeur.texte->setPlainText(ligne.repeated(300));
        editeur.texte->document()->setModified(true);
        const bool ecrit = editeur.saveFile(chemin);
        for (const BoiteVue &boite : scenario.Boites())
            dits += QStringLiteral("boîte|") + boite.titre + u'|' + boite.texte;
        return ecrit;
    }
    [[nodiscard]] QString Echec() const override { return QStringLiteral("boîte|LyTextEdit|Cannot write file "); }
    [[nodiscard]] std::optional<bool> ResteModifie() const override { return editeur.texte->document()->isModified(); }

private:
    QString chemin;
    LyTextEdit editeur;
};

class SauvegardeGedcom : public Sauvegarde
{
public:
    SauvegardeGedcom(QStringList &messages, const QString &fichier)
        : Sauvegarde(messages)
        , chemin(fichier)
        , arbre(ArbreComplet(generations))
    {
    }
    [[nodiscard]] QString Fichier() const override { return QStringLiteral("g.ged"); }
    bool Ecrit(int version) override
    {
        Marque(*arbre, version);
        QString nomArbre = QStringLiteral("famille.xrlg");
        ExporterVersFichierGEDCOM(nullptr, chemin, arbre.get(), nomArbre);
        dits.removeAll(QStringLiteral("sexe"));  // a question, no message
        return !dits.last().startsWith(Echec());
    }
    [[nodiscard]] QString Echec() const override
    {
        return QStringLiteral("information|Exportation vers GEDCOM|Echec à l'exportation du fichier");
    }

private:
    QString chemin;
    std::unique_ptr<Arbre> arbre;
};

}  // namespace

Sauvegarde::~Sauvegarde() = default;

std::vector<std::unique_ptr<Sauvegarde>> Sauvegardes(const Dossier &dossier, QStringList &dits)
{
    std::vector<std::unique_ptr<Sauvegarde>> toutes;
    toutes.push_back(std::make_unique<SauvegardeArbre>(dits, dossier.Chemin(QStringLiteral("a.xrlg"))));
    toutes.push_back(std::make_unique<SauvegardeOptions>(dits, dossier));
    toutes.push_back(std::make_unique<SauvegardeFiche>(dits, dossier));
    toutes.push_back(std::make_unique<SauvegardeGedcom>(dits, dossier.Chemin(QStringLiteral("g.ged"))));
    return toutes;
}

QByteArray SansLaDate(const QByteArray &octets)
{
    const qsizetype debut = octets.indexOf("\r\n  1 DATE ");
    return debut < 0 ? octets : octets.left(debut) + octets.mid(octets.indexOf("\r\n", debut + 2));
}

#pragma once

#include "arbre.h"
#include "arbres.h"
#include "environnement.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"
#include "saisie.h"

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QTemporaryDir>
#include <QWidget>

#include <functional>
#include <memory>
#include <utility>

/// A document with a window for its dialogs and a folder for its photos, and what is seen of it.

/// What a document does, in one order: its signals ("documentChanged 2", "autoriseAnnulation", "personneSelectionnee 1"),
/// its dialogs ("dialogue DlgPers") and its message boxes ("boîte Modification"), each when it comes. A dialog of another
/// window than \a fenetre ends in " ailleurs". Every line ends in the state of the document: " modifié" and " options"
/// for its two flags, or what another function says.
class Deroulement : public QObject
{
public:
    using Etat = std::function<QString(const RamelierDoc &)>;

    Deroulement(const RamelierDoc &unDoc, const QWidget &uneFenetre, Etat unEtat = Drapeaux)
        : doc(unDoc)
        , fenetre(uneFenetre)
        , etat(std::move(unEtat))
    {
        connect(&doc, &RamelierDoc::documentChanged, this,
                [this](int code) { Note(QStringLiteral("documentChanged %1").arg(code)); });
        connect(&doc, &RamelierDoc::personneSelectionnee, this,
                [this](int code) { Note(QStringLiteral("personneSelectionnee %1").arg(code)); });
        connect(&doc, &RamelierDoc::autoriseAnnulation, this, [this] { Note(QStringLiteral("autoriseAnnulation")); });
        qApp->installEventFilter(this);
    }

    [[nodiscard]] const QStringList &Lignes() const { return lignes; }

    static QString Drapeaux(const RamelierDoc &doc)
    {
        return QString(doc.modifie ? " modifié" : "") + (doc.optionsModifiees ? " options" : "");
    }

protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override
    {
        const auto *dialogue = qobject_cast<QDialog *>(objet);
        if (!dialogue || evenement->type() != QEvent::Show)
            return false;
        const QString ou = dialogue->parentWidget() == &fenetre ? "" : " ailleurs";
        if (qobject_cast<const QMessageBox *>(dialogue))
            Note(QStringLiteral("boîte ") + dialogue->windowTitle() + ou);
        else
            Note(QStringLiteral("dialogue ") + QString::fromLatin1(dialogue->metaObject()->className()) + ou);
        return false;
    }

private:
    void Note(const QString &ligne) { lignes += ligne + etat(doc); }

    const RamelierDoc &doc;
    const QWidget &fenetre;
    Etat etat;
    QStringList lignes;
};

/// A document, the window that its dialogs belong to, and its folder.
struct Banc
{
    QTemporaryDir dossier;
    QWidget fenetre;
    RamelierDoc doc{QStringLiteral("/usr/bin")};
    QString repertoire = dossier.path();
    Deroulement deroulement{doc, fenetre};

    /// Opens the tree of these numbers (see ArbreDeNumeros), nobody selected.
    void Ouvre(const QList<quint64> &numeros)
    {
        delete std::exchange(doc.arbre, ArbreDeNumeros(numeros).release());
        doc.arbreCharge = true;
    }
    /// Selects a person as a click does.
    void Choisit(quint64 numero)
    {
        if (doc.arbre->selection)
            doc.arbre->selection->selectionnee = false;
        doc.arbre->selection = Qui(numero);
        doc.arbre->selection->selectionnee = true;
    }
    [[nodiscard]] Personne *Qui(quint64 numero) const { return Trouve(*doc.arbre, numero); }
    [[nodiscard]] InfoPersonne &Info(quint64 numero) const { return *Qui(numero)->info; }

    /// Writes a red photo of \a largeur x 40 pixels.
    void EcritPhoto(const QString &nom, int largeur = 30) const
    {
        QImage photo(largeur, 40, QImage::Format_RGB32);
        photo.fill(Qt::red);
        QVERIFY(photo.save(dossier.filePath(nom)));
    }
    /// No dialog is left behind, and the folder's name is what it was.
    [[nodiscard]] bool EstRange() const
    {
        return fenetre.findChildren<QDialog *>().isEmpty() && repertoire == dossier.path();
    }
};

/// The nine texts, "|" between them, and the state of the photo.
inline QString EnTexte(const InfoPersonne &info)
{
    const QStringList textes{info.nom,       info.prenom, info.datenaissance, info.lieunaissance, info.datedeces,
                             info.lieudeces, info.divers, info.fichtml,       info.ficphoto};
    return textes.join(u'|') + QStringLiteral(" photo %1").arg(info.etatPhoto);
}

/// The person's number; 0 for none.
inline quint64 NumeroDe(const Personne *personne)
{
    return personne ? personne->numero : 0;
}

/// What the tree keeps for undo: "DUPONT de 2, sans père 0, sans mère 1"; "rien" when it keeps nothing at all.
inline QString Annulation(const Arbre &arbre)
{
    if (!arbre.infoSauvee && arbre.numeroSauve == 0 && !arbre.enfantSansPere && !arbre.enfantSansMere)
        return QStringLiteral("rien");
    return QStringLiteral("%1 de %2, sans père %3, sans mère %4")
        .arg(arbre.infoSauvee ? arbre.infoSauvee->nom : QStringLiteral("personne"))
        .arg(arbre.numeroSauve)
        .arg(NumeroDe(arbre.enfantSansPere))
        .arg(NumeroDe(arbre.enfantSansMere));
}

/// Everything that a tree holds, title page, list, links, places, flags and undo, one line a person.
inline QString ToutEnTexte(const Arbre &arbre)
{
    QString texte = QStringLiteral("%1 personnes, %2 générations, sélection %3, %4\n")
                        .arg(arbre.nombrePersonnes)
                        .arg(arbre.nombreGenerations)
                        .arg(NumeroDe(arbre.selection))
                        .arg(NumerosEnTexte(arbre));
    for (const Personne *personne = arbre.premiere; personne; personne = personne->suivante) {
        texte += QStringLiteral("%1 g%2 p%3 m%4 e%5 -> p%6 m%7 ")
                     .arg(personne->numero)
                     .arg(personne->numerogeneration)
                     .arg(personne->pere)
                     .arg(personne->mere)
                     .arg(personne->enfant)
                     .arg(NumeroDe(personne->ptrPere))
                     .arg(NumeroDe(personne->ptrMere));
        texte += QStringLiteral("%1,%2 affichable %3 sélectionnée %4 ")
                     .arg(personne->x)
                     .arg(personne->y)
                     .arg(personne->affichable)
                     .arg(personne->selectionnee);
        texte += (personne->info ? EnTexte(*personne->info) : QStringLiteral("sans données")) + u'\n';
    }
    const InfoArbre &garde = *arbre.infoArbre;
    return texte + Annulation(arbre) + u'\n'
        + QStringList{garde.titrearbre, garde.creepar, garde.date, garde.majpar, garde.datemaj}.join(u'|');
}

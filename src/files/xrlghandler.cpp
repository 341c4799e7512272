#include "xrlghandler.h"

#include "arbre.h"
#include "francais.h"
#include "infopersonne.h"
#include "interlocuteur.h"
#include "personne.h"

#include <QHash>

namespace {

/// The parser calls itself for every nested element; a tree file needs five levels.
constexpr int profondeurMax = 200;

const QHash<QString, QString InfoArbre::*> &TextesArbre()
{
    static const QHash<QString, QString InfoArbre::*> textes{
        {QStringLiteral("titrearbre"), &InfoArbre::titrearbre},
        {QStringLiteral("creepar"), &InfoArbre::creepar},
        {QStringLiteral("date"), &InfoArbre::date},
        {QStringLiteral("majpar"), &InfoArbre::majpar},
        {QStringLiteral("datemaj"), &InfoArbre::datemaj},
    };
    return textes;
}

const QHash<QString, QString InfoPersonne::*> &TextesPersonne()
{
    static const QHash<QString, QString InfoPersonne::*> textes{
        {QStringLiteral("nom"), &InfoPersonne::nom},
        {QStringLiteral("prenom"), &InfoPersonne::prenom},
        {QStringLiteral("datenaissance"), &InfoPersonne::datenaissance},
        {QStringLiteral("lieunaissance"), &InfoPersonne::lieunaissance},
        {QStringLiteral("datedeces"), &InfoPersonne::datedeces},
        {QStringLiteral("lieudeces"), &InfoPersonne::lieudeces},
        {QStringLiteral("divers"), &InfoPersonne::divers},
        {QStringLiteral("fichtml"), &InfoPersonne::fichtml},
        {QStringLiteral("ficphoto"), &InfoPersonne::ficphoto},
    };
    return textes;
}

const QHash<QString, quint64 Personne::*> &NombresPersonne()
{
    static const QHash<QString, quint64 Personne::*> nombres{
        {QStringLiteral("numero"), &Personne::numero},
        {QStringLiteral("pere"), &Personne::pere},
        {QStringLiteral("mere"), &Personne::mere},
        {QStringLiteral("enfant"), &Personne::enfant},
    };
    return nombres;
}

}  // namespace

XrlgHandler::XrlgHandler(Arbre *aRemplir, QString &dossier)
    : arbre(aRemplir)
    , repertoire(dossier)
{
}

XrlgHandler::~XrlgHandler() = default;

bool XrlgHandler::Refuse(const QString &message)
{
    messageErreur = message;
    return false;
}

bool XrlgHandler::startElement(const QString & /*namespaceURI*/, const QString & /*localName*/, const QString &qName,
                               const QXmlAttributes &attributes)
{
    if ((!baliseRacineVue && qName != u"xrlg") || ++profondeur > profondeurMax)
        return Refuse(QStringLiteral("Le fichier n'est pas un fichier XRLG."));
    if (qName == u"xrlg") {
        const QString version = attributes.value(QStringLiteral("version"));
        if (!version.isEmpty() && version != u"1.0")
            return Refuse(QStringLiteral("Le fichier n'est pas un fichier XRLG version 1.0."));
        baliseRacineVue = true;
    } else if (qName == u"personne") {
        personneCourante = std::make_unique<Personne>(static_cast<unsigned short>(0));
    } else if (qName == u"infopersonne" && personneCourante && !personneCourante->info) {
        personneCourante->info = new InfoPersonne;
    }
    texteCourant.resize(0);
    return true;
}

bool XrlgHandler::endElement(const QString & /*namespaceURI*/, const QString & /*localName*/, const QString &qName)
{
    --profondeur;
    if (EcritTextePersonne(qName) || EcritNombre(qName) || EcritTexteArbre(qName))
        return true;
    if (qName == u"personne") {
        FinitPersonne();
    } else if (qName == u"infopersonne") {
        InfoPersonne *info = personneCourante ? personneCourante->info : nullptr;
        if (info && !info->ficphoto.isEmpty())
            info->etatPhoto = info->ChargePhoto(repertoire) ? InfoPersonne::PhotoChargee : InfoPersonne::PhotoAbsente;
    } else if (qName == u"arbre" && arbre->nombrePersonnes >= 2) {
        arbre->DetermineLiensDeParente();
    }
    return true;
}

void XrlgHandler::FinitPersonne()
{
    if (!personneCourante)
        return;
    if (!personneCourante->info)
        personneCourante->info = new InfoPersonne;
    arbre->AjouteALaFin(personneCourante.release());
}

bool XrlgHandler::EcritTexteArbre(const QString &balise)
{
    const auto champ = TextesArbre().constFind(balise);
    if (champ == TextesArbre().cend())
        return false;
    arbre->infoArbre->*champ.value() = texteCourant;
    return true;
}

bool XrlgHandler::EcritTextePersonne(const QString &balise)
{
    const auto champ = TextesPersonne().constFind(balise);
    if (champ == TextesPersonne().cend())
        return false;
    if (personneCourante && personneCourante->info)
        // A copy takes no more room than its letters.
        personneCourante->info->*champ.value() = QString(texteCourant.constData(), texteCourant.size());
    return true;
}

bool XrlgHandler::EcritNombre(const QString &balise)
{
    if (balise == u"nombrepersonnes") {
        arbre->nombrePersonnes = texteCourant.toULongLong();
    } else if (balise == u"nombregenerations") {
        arbre->nombreGenerations = texteCourant.toUShort();
    } else if (balise == u"numerogeneration") {
        if (personneCourante)
            personneCourante->numerogeneration = texteCourant.toUShort();
    } else {
        const auto champ = NombresPersonne().constFind(balise);
        if (champ == NombresPersonne().cend())
            return false;
        if (personneCourante)
            (*personneCourante).*champ.value() = texteCourant.toULongLong();
    }
    return true;
}

bool XrlgHandler::characters(const QString &text)
{
    texteCourant += text;
    return true;
}

bool XrlgHandler::fatalError(const QXmlParseException &exception)
{
    Interlocuteur::Courant().Information(QStringLiteral("Arbre XRLG"),
                                         QStringLiteral("Erreur de syntaxe ligne %1, colonne %2:\n%3")
                                             .arg(exception.lineNumber())
                                             .arg(exception.columnNumber())
                                             .arg(ErreurXmlEnFrancais(exception.message())));
    return false;
}

QString XrlgHandler::errorString() const
{
    return messageErreur;
}

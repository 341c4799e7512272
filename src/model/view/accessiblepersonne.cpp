#include "accessiblepersonne.h"

#include "annuaire.h"
#include "arbre.h"
#include "arbview.h"
#include "infopersonne.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QApplication>
#include <QStringList>

namespace {

/// As a voice says it: the parts that there are.
QString Assemble(QStringList parties, const QString &separateur)
{
    parties.removeAll(QString());
    return parties.join(separateur);
}

QString NomEtNumero(const Personne &personne)
{
    const QString nom =
        personne.info ? Assemble({personne.info->prenom, personne.info->nom}, QStringLiteral(" ")) : QString();
    return Assemble({nom, QStringLiteral("n° ") + QString::number(personne.numero)}, QStringLiteral(", "));
}

QString Evenement(const QString &lequel, const QString &date, const QString &lieu)
{
    const QString texte = Assemble({date, lieu}, QStringLiteral(", "));
    return texte.isEmpty() ? QString() : lequel + texte;
}

QString DatesEtLieux(const InfoPersonne &info)
{
    return Assemble({Evenement(QStringLiteral("naissance : "), info.datenaissance, info.lieunaissance),
                     Evenement(QStringLiteral("décès : "), info.datedeces, info.lieudeces), info.divers},
                    QStringLiteral(" ; "));
}

}  // namespace

AccessiblePersonne::AccessiblePersonne(arbView &uneVue, int unRang, quint64 unNumero)
    : vue(&uneVue)
    , rang(unRang)
    , numero(unNumero)
{
}

Personne *AccessiblePersonne::SaPersonne() const
{
    const Arbre *arbre = vue ? vue->Document().arbre : nullptr;
    if (!arbre)
        return nullptr;
    // Numbers of damaged trees may be there twice: the place tells whom is meant, as long as nobody comes or goes.
    Personne *ici = arbre->SonAnnuaire().DeRang(static_cast<std::size_t>(rang));
    return ici && ici->numero == numero ? ici : arbre->SonAnnuaire().DeNumero(numero);
}

bool AccessiblePersonne::isValid() const
{
    return SaPersonne() != nullptr;
}

QWindow *AccessiblePersonne::window() const
{
    return vue ? vue->window()->windowHandle() : nullptr;
}

QAccessibleInterface *AccessiblePersonne::parent() const
{
    return QAccessible::queryAccessibleInterface(vue);
}

QAccessibleInterface *AccessiblePersonne::child(int /*rang*/) const
{
    return nullptr;
}

QAccessibleInterface *AccessiblePersonne::childAt(int /*x*/, int /*y*/) const
{
    return nullptr;
}

int AccessiblePersonne::indexOfChild(const QAccessibleInterface * /*enfant*/) const
{
    return -1;
}

QString AccessiblePersonne::text(QAccessible::Text genre) const
{
    const Personne *personne = SaPersonne();
    if (personne && genre == QAccessible::Name)
        return NomEtNumero(*personne);
    if (personne && personne->info && genre == QAccessible::Description)
        return DatesEtLieux(*personne->info);
    return {};
}

void AccessiblePersonne::setText(QAccessible::Text /*genre*/, const QString & /*texte*/) { }

QRect AccessiblePersonne::rect() const
{
    const Personne *personne = SaPersonne();
    if (!personne)
        return {};
    const QRect place = vue->PlaceDe(*personne);
    return {vue->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State AccessiblePersonne::state() const
{
    QAccessible::State etat;
    const Personne *personne = SaPersonne();
    if (!personne) {
        etat.invalid = true;
        return etat;
    }
    etat.focusable = true;
    etat.selectable = true;
    etat.selected = vue->Document().arbre->selection == personne;
    etat.focused = etat.selected && vue->hasFocus();
    etat.invisible = !personne->affichable || !vue->isVisible();
    etat.offscreen = !vue->visibleRegion().intersects(vue->PlaceDe(*personne));
    return etat;
}

void *AccessiblePersonne::interface_cast(QAccessible::InterfaceType genre)
{
    return genre == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList AccessiblePersonne::actionNames() const
{
    return {pressAction(), setFocusAction(), showMenuAction()};
}

void AccessiblePersonne::doAction(const QString &action)
{
    Personne *personne = SaPersonne();
    // While a dialog is open the chart takes neither clicks nor keys.
    if (!personne || QApplication::activeModalWidget() || !actionNames().contains(action))
        return;
    vue->setFocus(Qt::OtherFocusReason);
    vue->SelectionneEtMontre(personne);
    if (action == showMenuAction())
        vue->DemandeLeMenu();
}

QStringList AccessiblePersonne::keyBindingsForAction(const QString & /*action*/) const
{
    return {};
}

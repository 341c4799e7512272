#include "accessiblevue.h"

#include "accessiblepersonne.h"
#include "annuaire.h"
#include "arbre.h"
#include "arbview.h"
#include "personne.h"
#include "ramelierdoc.h"

#include <QAccessible>

AccessibleVue::AccessibleVue(arbView &uneVue)
    : QAccessibleWidget(&uneVue, QAccessible::List)
    , vue(uneVue)
{
    QObject::connect(&vue, &arbView::autresPersonnes, &contexte, [this] { Libere(); });
}

AccessibleVue::~AccessibleVue()
{
    Libere();
}

void AccessibleVue::Libere()
{
    selectionAnnoncee.reset();
    const auto partants = std::exchange(enfants, {});
    for (const QAccessible::Id id : partants)
        QAccessible::deleteAccessibleInterface(id);
}

std::optional<int> AccessibleVue::RangDe(const Personne *personne) const
{
    const Arbre *arbre = vue.Document().arbre;
    const std::optional<std::size_t> rang = arbre ? arbre->SonAnnuaire().RangDe(personne) : std::nullopt;
    return rang ? std::optional(static_cast<int>(*rang)) : std::nullopt;
}

std::optional<int> AccessibleVue::RangDeLaSelection() const
{
    return vue.Document().arbre ? RangDe(vue.Document().arbre->selection) : std::nullopt;
}

int AccessibleVue::childCount() const
{
    const Arbre *arbre = vue.Document().arbre;
    return arbre ? static_cast<int>(arbre->SonAnnuaire().Nombre()) : 0;
}

QAccessibleInterface *AccessibleVue::child(int rang) const
{
    const Arbre *arbre = vue.Document().arbre;
    const Personne *personne =
        arbre && rang >= 0 ? arbre->SonAnnuaire().DeRang(static_cast<std::size_t>(rang)) : nullptr;
    if (!personne)
        return nullptr;
    QAccessible::Id &id = enfants[{rang, personne->numero}];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new AccessiblePersonne(vue, rang, personne->numero));
    return QAccessible::accessibleInterface(id);
}

int AccessibleVue::indexOfChild(const QAccessibleInterface *enfant) const
{
    const auto *personne = dynamic_cast<const AccessiblePersonne *>(enfant);
    return personne ? RangDe(personne->SaPersonne()).value_or(-1) : -1;
}

QAccessibleInterface *AccessibleVue::childAt(int x, int y) const
{
    const QPoint ici = vue.mapFromGlobal(QPoint(x, y));
    const std::optional<int> rang = vue.visibleRegion().contains(ici) ? RangDe(vue.PersonneA(ici)) : std::nullopt;
    return rang ? child(*rang) : nullptr;
}

QAccessibleInterface *AccessibleVue::focusChild() const
{
    const std::optional<int> rang = vue.hasFocus() ? RangDeLaSelection() : std::nullopt;
    return rang ? child(*rang) : QAccessibleWidget::focusChild();
}

QString AccessibleVue::text(QAccessible::Text genre) const
{
    if (genre != QAccessible::Name)
        return QAccessibleWidget::text(genre);
    const Arbre *arbre = vue.Document().arbre;
    const QString titre = arbre ? arbre->infoArbre->titrearbre : QString();
    return titre.isEmpty() ? QStringLiteral("Arbre généalogique") : QStringLiteral("Arbre généalogique : ") + titre;
}

void AccessibleVue::Annonce(QAccessible::Event evenement, std::optional<int> rang) const
{
    QAccessibleEvent annonce(&vue, evenement);
    if (rang)
        annonce.setChild(*rang);
    QAccessible::updateAccessibility(&annonce);
}

void AccessibleVue::AnnonceLaSelection()
{
    const std::optional<int> rang = RangDeLaSelection();
    if (selectionAnnoncee && selectionAnnoncee != rang)
        Annonce(QAccessible::SelectionRemove, selectionAnnoncee);
    selectionAnnoncee = rang;
    Annonce(rang ? QAccessible::SelectionAdd : QAccessible::Selection, rang);
    AnnonceLaPersonneActive();
}

void AccessibleVue::AnnonceLaPersonneActive()
{
    if (vue.hasFocus())
        Annonce(QAccessible::Focus, RangDeLaSelection());
}

void AccessibleVue::AnnonceLesTextes()
{
    if (const std::optional<int> rang = RangDeLaSelection())
        Annonce(QAccessible::NameChanged, rang);
}

namespace {

QAccessibleInterface *Fabrique(const QString &classe, QObject *objet)
{
    auto *vue = classe == u"arbView" ? qobject_cast<arbView *>(objet) : nullptr;
    return vue ? new AccessibleVue(*vue) : nullptr;
}

/// None where no assistive tool listens.
AccessibleVue *AccessibleDe(arbView &vue)
{
    return QAccessible::isActive() ? dynamic_cast<AccessibleVue *>(QAccessible::queryAccessibleInterface(&vue))
                                   : nullptr;
}

}  // namespace

void RendAccessible()
{
    QAccessible::installFactory(Fabrique);
}

void AnnonceLaSelection(arbView &vue)
{
    if (AccessibleVue *accessible = AccessibleDe(vue))
        accessible->AnnonceLaSelection();
}

void AnnonceLaPersonneActive(arbView &vue)
{
    if (AccessibleVue *accessible = AccessibleDe(vue))
        accessible->AnnonceLaPersonneActive();
}

void AnnonceLesTextes(arbView &vue)
{
    if (AccessibleVue *accessible = AccessibleDe(vue))
        accessible->AnnonceLesTextes();
}

#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QObject>

#include <optional>
#include <utility>

class Personne;
class arbView;

/// The chart as assistive tools see it: a list of the persons of the tree, in the order of their numbers. A person becomes an
/// object when one asks for it, and is freed when other persons come into the tree.
class AccessibleVue : public QAccessibleWidget
{
public:
    explicit AccessibleVue(arbView &uneVue);
    ~AccessibleVue() override;
    Q_DISABLE_COPY_MOVE(AccessibleVue)

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface *child(int rang) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *enfant) const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface *focusChild() const override;
    /// The tree's title, in a few words.
    [[nodiscard]] QString text(QAccessible::Text genre) const override;

    /// Tells that another person is selected, and has the keyboard where the chart has it.
    void AnnonceLaSelection();
    /// Tells that the selected person has the keyboard.
    void AnnonceLaPersonneActive();
    /// Tells that the selected person may have another name.
    void AnnonceLesTextes();

private:
    using Place = std::pair<int, quint64>;  ///< in the list, with the number that the person there has

    [[nodiscard]] std::optional<int> RangDe(const Personne *personne) const;
    [[nodiscard]] std::optional<int> RangDeLaSelection() const;
    void Annonce(QAccessible::Event evenement, std::optional<int> rang) const;
    void Libere();

    arbView &vue;
    mutable QHash<Place, QAccessible::Id> enfants;
    std::optional<int> selectionAnnoncee;
    QObject contexte;  ///< of what is heard of the chart
};

/// Has assistive tools see charts so, from now on.
void RendAccessible();
/// What the chart tells them: see above. Nothing when there are none.
void AnnonceLaSelection(arbView &vue);
void AnnonceLaPersonneActive(arbView &vue);
void AnnonceLesTextes(arbView &vue);

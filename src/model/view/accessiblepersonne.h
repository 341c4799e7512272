#pragma once

#include <QAccessible>
#include <QPointer>

class Personne;
class arbView;

/// A person of the chart as assistive tools see it: name and number, dates and places, the box on the screen, whether it is
/// selected; it can be selected, and its context menu shown. Valid as long as somebody of its number is in the tree.
class AccessiblePersonne : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    /// \a unRang: place in the list.
    AccessiblePersonne(arbView &uneVue, int unRang, quint64 unNumero);

    /// None when it has left the tree.
    [[nodiscard]] Personne *SaPersonne() const;

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QWindow *window() const override;
    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] QAccessibleInterface *child(int rang) const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *enfant) const override;
    [[nodiscard]] QString text(QAccessible::Text genre) const override;
    void setText(QAccessible::Text genre, const QString &texte) override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType genre) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString &action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString &action) const override;

private:
    QPointer<arbView> vue;
    int rang;
    quint64 numero;
};

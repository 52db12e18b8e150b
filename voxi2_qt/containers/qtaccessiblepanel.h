#pragma once

#include <QAccessibleWidget>

namespace VOXI {

class QtGroupBox2;

/// What assistive programs see of a container with a peer: what they see of Qt's, but that they
/// read what is in it as its layout shows it, and not in the order in which it was made.
class QtAccessiblePanel : public QAccessibleWidget
{
public:
    QtAccessiblePanel(QWidget* panel, QAccessible::Role role);

    /// For all containers from now on; called by their constructors.
    static void install();

    QAccessible::Role role() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

protected:
    QWidgetList children() const;
};

/// The same of a group box, which goes by its title and may be a check box.
class QtAccessibleGroupBox final : public QtAccessiblePanel
{
public:
    explicit QtAccessibleGroupBox(QtGroupBox2* box);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QString text(QAccessible::Text kind) const override;
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override;

private:
    QtGroupBox2& box() const;
};

} // namespace VOXI

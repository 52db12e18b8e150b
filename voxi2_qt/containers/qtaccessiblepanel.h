#pragma once

#include <QAccessibleWidget>

QT_BEGIN_NAMESPACE
class QGroupBox;
QT_END_NAMESPACE

namespace VOXI {

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

/// The same of a group box, which goes by its title.
class QtAccessibleGroupBox final : public QtAccessiblePanel
{
public:
    explicit QtAccessibleGroupBox(QGroupBox* box);

    QString text(QAccessible::Text kind) const override;
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override;
};

} // namespace VOXI

#pragma once

#include <QAccessibleWidget>

QT_BEGIN_NAMESPACE
class QAbstractButton;
QT_END_NAMESPACE

namespace VOXI {

/// What assistive programs see of a button with a peer: what they see of Qt's, but that whatever
/// they can do to it is a click. Qt's toggles a checkable one without, which those that hear clicks
/// do not notice, and offers nothing at all for a tool button that would show its menu at once and
/// has none.
class QtAccessibleButton final : public QAccessibleWidget
{
public:
    explicit QtAccessibleButton(QAbstractButton* button);

    /// For all buttons from now on; called by their constructors.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QAccessible::Role role() const override;
    QRect rect() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    QAbstractButton& button() const;
    bool isSplit() const;
};

} // namespace VOXI

#pragma once

#include <QAccessibleWidget>

namespace VOXI {

class QtComboBox2;

/// What assistive programs see of a combo box: what they see of Qt's, but that whatever they select
/// in its list is chosen, open or not. Qt's would only mark it there.
class QtAccessibleComboBox final : public QAccessibleWidget
{
public:
    explicit QtAccessibleComboBox(QtComboBox2* box);

    /// For all combo boxes from now on; called by their constructors.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    QtComboBox2& box() const;
};

} // namespace VOXI

#pragma once

#include <QAccessibleWidget>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace VOXI {

/// What assistive programs see of a text: what they see of Qt's labels, and the text itself, so
/// that a name which it was given does not hide it and each change of it is told.
class QtAccessibleText final : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit QtAccessibleText(QLabel* label);

    /// For all `QtText2` from now on; called by their constructors.
    static void install();
    /// What is read of a label; empty while nobody is there to whom a change could be told.
    static QString heard(const QLabel& label);
    /// Tells what has become of what was `heard` before.
    static void tellChange(QLabel& label, const QString& former);

    using QAccessibleWidget::text;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override;

    // The text: there is no cursor in it, and none of it is selected for assistive programs.
    QString text(int start, int end) const override;
    int characterCount() const override;
    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return -1; }
    void setCursorPosition(int) override {}
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int* start, int* end) const override;

private:
    const QLabel& label() const;
};

} // namespace VOXI

#include "qtaccessibletext.h"

#include "../kernel/qtaccessfactory.h"
#include "../kernel/qtaccesskey.h"
#include "voxi2_qt/controls/qttext2.h"

#include <QLabel>
#include <QTextDocumentFragment>

#include <algorithm>

namespace VOXI {

namespace {

QAccessibleInterface* create(const QString&, QObject* object)
{
    auto* const text = qobject_cast<QtText2*>(object);
    return text ? new QtAccessibleText(text) : nullptr;
}

QString readable(const QLabel& label)
{
    if (label.textFormat() == Qt::RichText)
        return QTextDocumentFragment::fromHtml(label.text()).toPlainText();
    return label.buddy() ? withoutAccessKey(label.text()) : label.text();
}

/// How many letters the two have in common at their beginning.
qsizetype commonBegin(const QString& one, const QString& other)
{
    return std::ranges::mismatch(one, other).in1 - one.begin();
}

} // namespace

QtAccessibleText::QtAccessibleText(QLabel* label)
    : QAccessibleWidget(label, QAccessible::StaticText)
{}

void QtAccessibleText::install() { static const QtAccessFactory<&create> s_installed; }

QString QtAccessibleText::heard(const QLabel& label)
{
    return QAccessible::isActive() ? readable(label) : QString();
}

void QtAccessibleText::tellChange(QLabel& label, const QString& former)
{
    if (!QAccessible::isActive())
        return;
    const QString now = readable(label);
    const qsizetype same = commonBegin(former, now);
    if (same == former.size() && same == now.size())
        return;
    QAccessibleTextUpdateEvent event(&label, static_cast<int>(same), former.mid(same),
                                     now.mid(same));
    QAccessible::updateAccessibility(&event);
}

QString QtAccessibleText::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name && label().accessibleName().isEmpty()
               ? readable(label())
               : QAccessibleWidget::text(kind);
}

QAccessible::State QtAccessibleText::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.selectableText = label().textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard);
    return state;
}

void* QtAccessibleText::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : QAccessibleWidget::interface_cast(type);
}

QList<QPair<QAccessibleInterface*, QAccessible::Relation>> QtAccessibleText::relations(
    QAccessible::Relation match) const
{
    auto all = QAccessibleWidget::relations(match);
    if ((match & QAccessible::Labelled) && label().buddy())
        all.append({QAccessible::queryAccessibleInterface(label().buddy()), QAccessible::Labelled});
    return all;
}

// The text ----------------------------------------------------------------------------------------

QString QtAccessibleText::text(int start, int end) const
{
    const QString all = readable(label());
    return all.mid(std::max(start, 0), end < 0 ? -1 : std::max(end - std::max(start, 0), 0));
}

int QtAccessibleText::characterCount() const { return static_cast<int>(readable(label()).size()); }

void QtAccessibleText::selection(int, int* start, int* end) const { *start = *end = 0; }

/// Nearer than the whole text nobody knows it.
QRect QtAccessibleText::characterRect(int offset) const
{
    return offset >= 0 && offset < characterCount() ? rect() : QRect();
}

QString QtAccessibleText::attributes(int, int* start, int* end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

// Helpers -----------------------------------------------------------------------------------------

const QLabel& QtAccessibleText::label() const { return *static_cast<QLabel*>(widget()); }

} // namespace VOXI

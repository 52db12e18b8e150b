#include "qtaccessiblepanel.h"

#include "../kernel/qtaccessfactory.h"
#include "../kernel/qtaccesskey.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/containers/qtframe2.h"
#include "voxi2_qt/containers/qtgroupbox2.h"

#include <QBoxLayout>
#include <QFocusFrame>
#include <QGridLayout>
#include <QMenu>
#include <QSet>
#include <QSplitter>

#include <algorithm>
#include <tuple>
#include <vector>

namespace VOXI {

namespace {

/// Asked for the object's own class first, then for each that this derives from: where Qt knows
/// more of one that lies between, it has been asked before.
QAccessibleInterface* create(const QString& name, QObject* object)
{
    auto* const widget = qobject_cast<QWidget*>(object);
    const auto* const peer = peerOf(object);
    if (peer && name == QLatin1String("QDialog"))
        return new QtAccessiblePanel(widget, QAccessible::Dialog);
    if (peer && name == QLatin1String("QSplitter"))
        return new QtAccessiblePanel(widget, QAccessible::Splitter);
    if (!widget || !dynamic_cast<const QtContainer2*>(peer))
        return nullptr;
    if (auto* const box = qobject_cast<QtGroupBox2*>(widget);
        box && name == QLatin1String("QGroupBox"))
        return new QtAccessibleGroupBox(box);
    if (name == QLatin1String("QFrame"))
        return new QtAccessiblePanel(widget, QAccessible::Border);
    return name == QLatin1String("QWidget") ? new QtAccessiblePanel(widget, QAccessible::Client)
                                            : nullptr;
}

/// As it is read: row by row, or from the end that the direction of a box begins with.
QList<QLayoutItem*> itemsOf(const QLayout& layout)
{
    QList<QLayoutItem*> items;
    for (int i = 0; i < layout.count(); ++i)
        items.append(layout.itemAt(i));
    if (const auto* const grid = qobject_cast<const QGridLayout*>(&layout)) {
        std::vector<std::tuple<int, int, QLayoutItem*>> places;
        for (int i = 0; i < items.size(); ++i) {
            int row = 0, column = 0, rows = 0, columns = 0;
            grid->getItemPosition(i, &row, &column, &rows, &columns);
            places.emplace_back(row, column, items[i]);
        }
        std::ranges::stable_sort(places, [](const auto& one, const auto& other) {
            return std::tie(std::get<0>(one), std::get<1>(one))
                   < std::tie(std::get<0>(other), std::get<1>(other));
        });
        std::ranges::transform(places, items.begin(),
                               [](const auto& place) { return std::get<2>(place); });
    }
    const auto* const box = qobject_cast<const QBoxLayout*>(&layout);
    if (box
        && (box->direction() == QBoxLayout::RightToLeft
            || box->direction() == QBoxLayout::BottomToTop))
        std::ranges::reverse(items);
    return items;
}

void collect(const QLayout& layout, QWidgetList& found)
{
    for (QLayoutItem* const item : itemsOf(layout)) {
        if (QWidget* const widget = item->widget())
            found.append(widget);
        else if (const QLayout* const inner = item->layout())
            collect(*inner, found);
    }
}

/// What Qt shows of a widget's children; the rest of them is seen elsewhere, or an ornament.
bool isRead(const QWidget& child)
{
    return !child.isWindow() && !qobject_cast<const QMenu*>(&child)
           && !qobject_cast<const QFocusFrame*>(&child)
           && child.objectName() != QLatin1String("qt_rubberband");
}

} // namespace

QtAccessiblePanel::QtAccessiblePanel(QWidget* panel, QAccessible::Role role)
    : QAccessibleWidget(panel, role)
{}

void QtAccessiblePanel::install() { static const QtAccessFactory<&create> s_installed; }

/// A frame that the program paints is more than a border.
QAccessible::Role QtAccessiblePanel::role() const
{
    const auto* const frame = dynamic_cast<const QtFrame2*>(widget());
    return frame && frame->isPainted() ? QAccessible::Canvas : QAccessibleWidget::role();
}

int QtAccessiblePanel::childCount() const { return static_cast<int>(children().size()); }

QAccessibleInterface* QtAccessiblePanel::child(int index) const
{
    return QAccessible::queryAccessibleInterface(children().value(index));
}

int QtAccessiblePanel::indexOfChild(const QAccessibleInterface* child) const
{
    return child ? static_cast<int>(children().indexOf(qobject_cast<QWidget*>(child->object())))
                 : -1;
}

/// What no layout places comes last, as it was made.
QWidgetList QtAccessiblePanel::children() const
{
    QWidgetList placed;
    if (const QLayout* const layout = widget()->layout())
        collect(*layout, placed);
    if (auto* const splitter = qobject_cast<QSplitter*>(widget())) {
        for (int i = 0; i < splitter->count(); ++i) {
            placed.append(splitter->handle(i));
            placed.append(splitter->widget(i));
        }
    }
    const QSet<QWidget*> known(placed.begin(), placed.end());
    placed.removeIf(
        [this](const QWidget* each) { return each->parentWidget() != widget() || !isRead(*each); });
    for (QObject* const each : widget()->children()) {
        auto* const child = qobject_cast<QWidget*>(each);
        if (child && isRead(*child) && !known.contains(child))
            placed.append(child);
    }
    return placed;
}

// Group boxes -------------------------------------------------------------------------------------

QtAccessibleGroupBox::QtAccessibleGroupBox(QtGroupBox2* box)
    : QtAccessiblePanel(box, QAccessible::Grouping)
{}

QAccessible::Role QtAccessibleGroupBox::role() const
{
    return box().isCheckable() ? QAccessible::CheckBox : QAccessible::Grouping;
}

QAccessible::State QtAccessibleGroupBox::state() const
{
    QAccessible::State state = QtAccessiblePanel::state();
    state.checkable = box().isCheckable();
    state.checked = state.checkable && box().isChecked();
    return state;
}

QStringList QtAccessibleGroupBox::actionNames() const
{
    QStringList names = QtAccessiblePanel::actionNames();
    if (box().isCheckable() && box().isEnabled())
        names.prepend(toggleAction());
    return names;
}

void QtAccessibleGroupBox::doAction(const QString& name)
{
    if (name != toggleAction()) {
        QtAccessiblePanel::doAction(name);
        return;
    }
    // As for a click: Qt goes through what is in the group.
    const QtReportHold hold;
    if (box().isCheckable())
        box().doimToggle();
}

QString QtAccessibleGroupBox::text(QAccessible::Text kind) const
{
    const QString own = QtAccessiblePanel::text(kind);
    const QString title = box().title();
    if (own.isEmpty() && kind == QAccessible::Name)
        return withoutAccessKey(title);
    return own.isEmpty() && kind == QAccessible::Accelerator ? accessKeyOf(title) : own;
}

QList<QPair<QAccessibleInterface*, QAccessible::Relation>> QtAccessibleGroupBox::relations(
    QAccessible::Relation match) const
{
    auto all = QtAccessiblePanel::relations(match);
    if ((match & QAccessible::Labelled) && !box().title().isEmpty()) {
        for (int i = 0; i < childCount(); ++i)
            all.append({child(i), QAccessible::Labelled});
    }
    return all;
}

QtGroupBox2& QtAccessibleGroupBox::box() const { return *static_cast<QtGroupBox2*>(object()); }

} // namespace VOXI

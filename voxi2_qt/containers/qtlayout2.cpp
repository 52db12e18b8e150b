#include "voxi2_qt/containers/qtlayout2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qttakeout.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QEvent>
#include <QHash>
#include <QLayout>
#include <QSpacerItem>
#include <QWidget>

namespace VOXI {

namespace {

using E = VXLayout2Emitters;
using P = QtLayout2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::addWidget, &P::doAddWidget>(),
    TROV::row<&E::addSpacer, &P::doAddSpacer>(),
    TROV::row<&E::invalidate, &P::doInvalidate>(),
    TROV::row<&E::refresh, &P::doRefresh>(),
    TROV::row<&E::removeWidget, &P::doRemoveWidget>(),
    TROV::row<&E::setEnabled, &P::doSetEnabled>(),
    TROV::row<&E::setMargins, &P::doSetMargins>(),
    TROV::row<&E::setSpacing, &P::doSetSpacing>(),
    TROV::row<&E::isEnabled, &P::doIsEnabled>(),
    TROV::row<&E::getMargins, &P::doGetMargins>(),
    TROV::row<&E::getSpacing, &P::doGetSpacing>(),
    TROV::row<&E::refuses, &P::doRefuses>(),
    TROV::row<&E::setAlignment, &P::doSetAlignment>(),
    TROV::row<&E::getAlignment, &P::doGetAlignment>(),
    TROV::row<&E::count, &P::doCount>(),
    TROV::row<&E::getItemAt, &P::doGetItemAt>(),
    TROV::row<&E::getItemIndex, &P::doGetItemIndex>());
// clang-format on

/// Whether none of the layout's widgets is, or holds, the one that the layout shall fill.
bool canLieIn(const QLayout& layout, const QWidget& target)
{
    for (int i = 0; i < layout.count(); ++i) {
        if (const QWidget* child = layout.itemAt(i)->widget(); child && isWithin(child, &target))
            return false;
    }
    return true;
}

} // namespace

/// Takes items out of a layout that fills no widget when they end or move elsewhere: else it is the
/// widget around them that tells a layout.
class QtLayout2::ItemWatch : public QObject
{
public:
    explicit ItemWatch(QLayout* layout) : QObject(layout), m_layout(layout) {}

    void add(QWidget* item)
    {
        if (m_items.contains(item)) {
            m_layout->removeWidget(item); // it moves to its new place
            return;
        }
        m_items.insert(item, item);
        item->installEventFilter(this);
        connect(item, &QObject::destroyed, this, &ItemWatch::remove);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ParentChange)
            remove(watched);
        return false;
    }

private:
    void remove(QObject* item)
    {
        item->removeEventFilter(this);
        item->disconnect(this);
        QWidget* const widget = m_items.take(item); // only an address where it is going
        if (!m_layout->parentWidget())
            m_layout->removeWidget(widget);
    }

    QLayout* m_layout;
    QHash<QObject*, QWidget*> m_items;
};

QWidget* QtLayout2::freeWidget(const VXObject* layout, QWidget* parent)
{
    if (!parent || !parent->layout())
        return parent;
    const auto why = [] {
        return std::string(Reason::HasLayout) + "; this one lies nowhere until addLayout takes it";
    };
    ignored(layout, why, CallPlace()); // it is being made
    return nullptr;
}

QtLayout2::QtLayout2(VXLayout2* object, VXLayout2Emitters* emitters)
    : QtPeerLevel(object, emitters, s_requests)
{}

// Requests ----------------------------------------------------------------------------------------

void QtLayout2::doSetParent(VXObject* widget)
{
    if (doRefuses(widget)) {
        ignored(*this, Reason::HasLayout);
        return;
    }
    withWidgetOf(widget, [this](QWidget* target) {
        if (!target->layout()) {
            for (int i = 0; i < layout()->count(); ++i) {
                if (QWidget* child = layout()->itemAt(i)->widget())
                    takeOutFor(target, child);
            }
            target->setLayout(layout()); // takes it from the widget that holds it now
        }
        doRefresh();
    });
}

void QtLayout2::doAddWidget(VXObject* widget, Alignment alignment)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!prepareFor(child))
            return;
        layout()->addWidget(child);
        // Asking the layout for the widget's item would look through all those before it.
        if (QLayoutItem* item = layout()->itemAt(layout()->count() - 1))
            item->setAlignment(VX2Qt(alignment));
        forgetStray(child);
        layout()->invalidate();
    });
}

void QtLayout2::doAddSpacer(Size<int> size, int expanding)
{
    const QSizePolicy::Policy policy = expanding ? QSizePolicy::Expanding : QSizePolicy::Fixed;
    layout()->addItem(new QSpacerItem(size.width, size.height, policy, policy));
    layout()->invalidate();
}

void QtLayout2::doInvalidate() { layout()->invalidate(); }
void QtLayout2::doRefresh() { layout()->activate(); }

void QtLayout2::doRemoveWidget(VXObject* widget)
{
    withWidgetOf(widget, [&](QWidget* child) {
        if (!child || layout()->indexOf(child) < 0) {
            ignored(*this, Reason::NotInThis);
            return;
        }
        layout()->removeWidget(child);
        layout()->invalidate();
    });
}

void QtLayout2::doSetEnabled(bool enabled) { layout()->setEnabled(enabled); }

void QtLayout2::doSetMargins(VXRect<int> margins)
{
    layout()->setContentsMargins(toQMargins(margins));
}

void QtLayout2::doSetSpacing(int spacing) { layout()->setSpacing(bounded(spacing)); }
bool QtLayout2::doIsEnabled() { return layout()->isEnabled(); }
VXRect<int> QtLayout2::doGetMargins() { return toVXMargins(layout()->contentsMargins()); }
int QtLayout2::doGetSpacing() { return layout()->spacing(); }

bool QtLayout2::doRefuses(VXObject* widget)
{
    bool refuses = true;
    withWidgetOf(widget, [&](QWidget* target) {
        const QLayout* const present = target ? target->layout() : nullptr;
        refuses = !target || (present && present != layout()) || !canLieIn(*layout(), *target);
    });
    return refuses;
}

void QtLayout2::doSetAlignment(VXObject* item, Alignment alignment)
{
    if (QLayoutItem* const found = itemOf(item)) {
        found->setAlignment(VX2Qt(alignment));
        layout()->invalidate();
    } else if (!item || lookup(item)) {
        ignored(*this, Reason::NotInThis);
    }
}

Alignment QtLayout2::doGetAlignment(VXObject* item)
{
    const QLayoutItem* const found = itemOf(item);
    return found ? Qt2VX(found->alignment()) : Alignment();
}

int QtLayout2::doCount() { return layout()->count(); }

VXObject2* QtLayout2::doGetItemAt(int index)
{
    QLayoutItem* const item =
        index >= 0 && index < layout()->count() ? layout()->itemAt(index) : nullptr;
    if (!item)
        return nullptr;
    if (const QWidget* const widget = item->widget())
        return abstractObjectOf<VXObject2>(widget);
    return abstractObjectOf<VXObject2>(item->layout());
}

int QtLayout2::doGetItemIndex(VXObject* item)
{
    int index = -1;
    withPeerOf<GuiObject>(item, [&](GuiObject* peer) {
        if (const QWidget* const widget = qWidgetOf(peer))
            index = layout()->indexOf(widget);
        else if (const QLayout* const inner = asQLayout(peer))
            index = layout()->indexOf(inner);
    });
    return index;
}

// Helpers -----------------------------------------------------------------------------------------

QLayout* QtLayout2::layout() const noexcept { return static_cast<QLayout*>(asQObject()); }
QLayout* QtLayout2::asQLayout(GuiObject* peer) { return qobject_cast<QLayout*>(qObjectOf(peer)); }

QLayoutItem* QtLayout2::itemOf(VXObject* item)
{
    const int index = doGetItemIndex(item);
    return index < 0 ? nullptr : layout()->itemAt(index);
}

bool QtLayout2::prepareFor(QWidget* child, CallPlace where)
{
    QLayout* const self = layout();
    if (!canHold(*this, self->parentWidget(), child, where))
        return false;
    takeOutFor(self->parentWidget(), child);
    if (!self->parentWidget()) {
        if (!m_watch)
            m_watch = new ItemWatch(self);
        m_watch->add(child);
    }
    return true;
}

void QtLayout2::forgetStray(QWidget* child)
{
    const QWidget* const target = layout()->parentWidget();
    if (child && target && child->parentWidget() != target)
        layout()->removeWidget(child);
}

} // namespace VOXI

// The gallery worked by the keyboard alone.

#include "gallerysupport.h"
#include "support/realinput.h"
#include "support/watchdog.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QPushButton>
#include <QWindow>

#include <set>

namespace VOXI {
namespace {

constexpr int MostLinks = 30;
constexpr int MostRead = 200;

/// Sees a window get the release of a key.
class Arrival : public QObject
{
public:
    Arrival() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        m_isThere =
            m_isThere || (event->type() == QEvent::KeyRelease && qobject_cast<QWindow*>(object));
        return false;
    }

    bool m_isThere = false;
};

class GalleryKeys : public GalleryTest
{
protected:
    static void press(Qt::Key key) { QTest::keyClick(window().windowHandle(), key); }

    /// Waits until it has arrived, which takes more than a turn of the loop on a busy machine. Not
    /// for what opens a dialog, which keeps it from the window.
    static void go(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        Arrival arrival;
        QTest::keyClick(window().windowHandle(), key, modifiers);
        EXPECT_TRUE(waitFor([&] { return arrival.m_isThere; }, Patience));
    }

    /// To the next one. Where Tab means something else, as in a text or between links, it takes
    /// Ctrl as well, or some more of it.
    static void goOn()
    {
        const QWidget* const former = QApplication::focusWidget();
        go(Qt::Key_Tab);
        if (QApplication::focusWidget() == former)
            go(Qt::Key_Tab, Qt::ControlModifier);
        for (int i = 0; i < MostLinks && QApplication::focusWidget() == former; ++i)
            go(Qt::Key_Tab);
        // The engine of web pages gives the focus back when it likes.
        if (former && former->inherits("QQuickWidget")) {
            EXPECT_TRUE(waitFor([&] { return QApplication::focusWidget() != former; }, Patience));
        }
    }

    /// What Tab comes by on its way through the page, each once. At each it must be seen.
    static std::vector<QPointer<QWidget>> stops()
    {
        std::vector<QPointer<QWidget>> all;
        std::set<const QWidget*> known;
        QImage focused;
        bool isToBeSeen = false;
        window().findChild<QWidget*>(QStringLiteral("pages"))->setFocus();
        for (;;) {
            const QPointer<QWidget> former = all.empty() ? nullptr : all.back();
            goOn();
            QWidget* const focus = QApplication::focusWidget();
            const bool isInside = focus && page().isAncestorOf(focus);
            if (former && isInside && isToBeSeen) {
                EXPECT_NE(pictureOf(former), focused) << nameOf(former) << " shows no focus";
            }
            if (!known.insert(focus).second || (former && !isInside))
                break;
            if (isInside) {
                all.emplace_back(focus);
                focused = pictureOf(focus);
                isToBeSeen = showsFocus(*focus);
            }
        }
        return all;
    }

    /// Not where there is nothing that could show it, or the style draws no difference.
    static bool showsFocus(const QWidget& widget)
    {
        const auto* const button = qobject_cast<const QPushButton*>(&widget);
        const auto* const view = qobject_cast<const QAbstractItemView*>(&widget);
        if (qobject_cast<const QAbstractScrollArea*>(&widget))
            return view ? view->currentIndex().isValid()
                        : widget.property("readOnly").isValid()
                              && !widget.property("readOnly").toBool();
        return !(button && button->isDefault()) && !widget.inherits("VOXI::QtHGScene2")
               && !widget.inherits("QQuickWidget");
    }

    static QImage pictureOf(QWidget* widget)
    {
        QApplication::processEvents();
        return controlOf(widget)->grab().toImage();
    }

    /// How assistive programs come by what is in the page, which is how it is read.
    static void read(QAccessibleInterface* from, std::vector<const QObject*>& order)
    {
        for (int i = 0; i < from->childCount() && i < MostRead; ++i) {
            QAccessibleInterface* const child = from->child(i);
            if (!child || !child->object())
                continue;
            order.push_back(child->object());
            read(child, order);
        }
    }

    /// Goes through the group that the focus is in by the arrows, and back to where it was.
    static void addGroup(std::set<const QWidget*>& reached)
    {
        const auto* const first = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        if (!first || !first->autoExclusive())
            return;
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left}) {
            for (const QWidget* last = nullptr; last != QApplication::focusWidget();) {
                last = QApplication::focusWidget();
                reached.insert(last);
                go(key);
            }
        }
    }
};

TEST_F(GalleryKeys, reachAllThatTheMouseCanUse)
{
    const Watchdog watchdog(std::chrono::seconds(120), "keys");
    const Closing closing;
    for (const std::string& name : gallery::pageNames()) {
        SCOPED_TRACE(name);
        show(name);
        const auto controls = this->controls();
        const auto stops = this->stops();
        std::vector<const QObject*> order;
        read(QAccessible::queryAccessibleInterface(&page()), order);
        std::set<const QWidget*> reached;
        auto last = order.begin();
        for (const auto& stop : stops) {
            if (!stop)
                continue;
            const auto place = std::ranges::find(order, controlOf(stop));
            if (controlOf(stop) == stop) { // and no part of one
                EXPECT_GE(place, last) << nameOf(stop) << " comes too late";
                last = place;
            }
            reached.insert(controlOf(stop));
            stop->setFocus();
            addGroup(reached);
        }
        for (const auto& each : controls) {
            const auto* const button = qobject_cast<QAbstractButton*>(each);
            const bool hasKey = button && !button->shortcut().isEmpty();
            EXPECT_TRUE(!each || reached.contains(each) || hasKey)
                << nameOf(each) << " is not reached, the last is "
                << nameOf(stops.empty() ? nullptr : stops.back().data());
        }
    }
}

TEST_F(GalleryKeys, operateWhatTheyReach)
{
    const Watchdog watchdog(std::chrono::seconds(120), "keys");
    Closing closing;
    for (const std::string& name : gallery::pageNames()) {
        SCOPED_TRACE(name);
        show(name);
        // What opens at a click of the right button opens at the menu key, too.
        for (QWidget* const each : page().findChildren<QWidget*>()) {
            const auto* const widget = abstractObjectOf<VXWidget2>(each);
            if (!widget || !each->isVisible() || !widget->isEventConsumed(WidgetEvent::ContextMenu))
                continue;
            each->setFocus(Qt::TabFocusReason);
            EXPECT_TRUE(each->hasFocus()) << nameOf(each);
            closing.hasClosed();
            // As the platform sends it for the key, which not each one knows.
            QContextMenuEvent asked(QContextMenuEvent::Keyboard, each->rect().center(),
                                    each->mapToGlobal(each->rect().center()));
            QCoreApplication::sendEvent(QApplication::focusWidget(), &asked);
            EXPECT_TRUE(waitFor([&] { return closing.hasClosed(); })) << nameOf(each);
        }
        for (const auto& each : controls()) {
            if (!each || !each->isVisible() || !each->isEnabled() || each->focusProxy())
                continue;
            const Uses uses(each);
            const std::string called = nameOf(each);
            if (!uses.isKnown() || each->property("readOnly").toBool())
                continue;
            each->setFocus(Qt::TabFocusReason);
            closing.hasClosed();
            if (uses.isText()) {
                press(Qt::Key_Home);
                press(Qt::Key_2);
            } else if (uses.isChoice()) {
                press(Qt::Key_Down);
                press(Qt::Key_Up);
            } else if (uses.isRange()) {
                press(Qt::Key_Up);
                press(Qt::Key_Down);
                press(Qt::Key_Return);
            } else {
                press(Qt::Key_Space);
            }
            EXPECT_TRUE(waitFor([&] { return uses.count() > 0 || closing.hasClosed(); }))
                << called << " is not operated";
        }
        closeOthers();
    }
}

} // namespace
} // namespace VOXI

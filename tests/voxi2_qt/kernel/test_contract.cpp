// What every kind of object with a peer keeps to, whatever else it does.

#include "kinds.h"

#include <QPointer>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace VOXI {
namespace {

/// The requests of an object, table by table, found without knowing its kind.
class Requests
{
public:
    explicit Requests(VXObject2& object)
    {
        const TROV::detail::TableHead* table = object.objectEmitters()->m_binding->m_tables;
        for (; table; table = table->m_base) {
            const auto* operations = table->m_operations.load();
            m_isBound = m_isBound && operations;
            for (std::size_t i = 0; operations && i < operations->m_count; ++i)
                // The emitters are the bytes behind the head of their table.
                m_all.push_back(reinterpret_cast<const TROV::EmitterBase*>(
                    reinterpret_cast<const char*>(table + 1) + i));
        }
    }

    /// Whether every table has operations.
    bool isBound() const { return m_isBound; }

    /// The different numbers of connections that the requests have.
    std::set<int> connections() const
    {
        std::set<int> numbers;
        for (const TROV::EmitterBase* request : m_all)
            numbers.insert(request->numberOfConnections());
        return numbers;
    }

private:
    std::vector<const TROV::EmitterBase*> m_all;
    bool m_isBound = true;
};

class Contract : public testing::TestWithParam<Kind>
{
protected:
    ~Contract() override
    {
        if (VXObject::isObjectValid(m_id))
            delete m_object;
        runDeletions();
    }

    VXWidget2* widget() const { return dynamic_cast<VXWidget2*>(m_object); }

    /// The abstract object may live on; its peer is not to be found and does not answer.
    void expectCutOff() const
    {
        EXPECT_EQ(lookup(m_id), nullptr);
        if (!VXObject::isObjectValid(m_id))
            return;
        EXPECT_EQ(lookup(m_object), nullptr);
        EXPECT_EQ(m_requests.connections(), std::set<int>{0});
        EXPECT_EQ(m_object->peerParent(), nullptr);
        EXPECT_TRUE(m_object->peerChildren().empty());
    }

    VXWindow2 m_window;
    VXPanel2* m_parent = new VXPanel2(&m_window);
    VXObject2* m_object = GetParam().m_make(m_parent);
    const unsigned m_id = m_object->id();
    const Requests m_requests{*m_object};
    QPointer<QObject> m_qt{qObjectOf(lookup(m_object))};
};

TEST_P(Contract, isTheQtObjectAndBindsEveryRequest)
{
    EXPECT_EQ(m_object->kind(), GetParam().m_name);
    ASSERT_FALSE(m_qt.isNull());
    EXPECT_TRUE(m_qt->metaObject()->inherits(GetParam().m_qtClass));
    const QtObject2* const peer = peerOf(m_qt);
    ASSERT_NE(peer, nullptr);
    EXPECT_EQ(peer->getUID(), m_id);
    EXPECT_EQ(peer->getHandle(), m_object);
    EXPECT_EQ(peer->asQWidget() != nullptr, widget() != nullptr);
    EXPECT_TRUE(m_requests.isBound());
    EXPECT_EQ(m_requests.connections(), std::set<int>{1});
    EXPECT_EQ(GetParam().m_request(*VXFactory2::current()).numberOfConnections(), 1);
}

TEST_P(Contract, honoursWhatEveryWidgetIsAsked)
{
    if (!widget())
        GTEST_SKIP() << "no widget";
    VXWidget2& abstract = *widget();
    QWidget* const shown = qt(abstract);
    abstract.setObjectName("named");
    EXPECT_EQ(shown->objectName(), QStringLiteral("named"));
    EXPECT_EQ(abstract.objectName(), "named");
    abstract.setEnabled(false);
    EXPECT_FALSE(shown->isEnabled());
    EXPECT_FALSE(abstract.isEnabled());
    abstract.setEnabled(true);
    abstract.setToolTip(L"tip \u20ac");
    EXPECT_EQ(shown->toolTip(), QStringLiteral("tip \u20ac"));
    EXPECT_EQ(abstract.toolTipU(), L"tip \u20ac");
    abstract.setMinimumSize({20, 10});
    EXPECT_EQ(shown->minimumSize(), QSize(20, 10));
    abstract.setPosition({3, 4, 50, 40});
    EXPECT_EQ(shown->geometry(), QRect(3, 4, 50, 40));
    EXPECT_EQ(abstract.position(), (VXRect<int>{3, 4, 50, 40}));
    abstract.setFocusPolicy(FocusPolicy::Click);
    EXPECT_EQ(shown->focusPolicy(), Qt::ClickFocus);
    abstract.setCursor(CursorShape::Cross);
    EXPECT_EQ(shown->cursor().shape(), Qt::CrossCursor);
    abstract.setAcceptDrops(true);
    EXPECT_TRUE(shown->acceptDrops());
    abstract.setColor(ColorRole::Background, Color(10, 20, 30));
    EXPECT_EQ(shown->palette().color(QPalette::Active, shown->backgroundRole()),
              QColor(10, 20, 30));
    abstract.setHighlight(true, Color(1, 2, 3));
    EXPECT_TRUE(abstract.isHighlighted());
    abstract.show();
    EXPECT_FALSE(shown->isHidden());
    abstract.hide();
    EXPECT_TRUE(shown->isHidden());
    abstract.setParent(&m_window);
    EXPECT_EQ(shown->parentWidget(), qt(m_window));
    EXPECT_EQ(abstract.peerParent(), &m_window);
}

TEST_P(Contract, tellsItsRoleAndNameToAssistiveTechnology)
{
    if (!widget()) {
        EXPECT_EQ(GetParam().m_role, QAccessible::NoRole);
        return;
    }
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(m_qt);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), GetParam().m_role);
    widget()->setAccessibleName(L"spoken");
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("spoken"));
}

TEST_P(Contract, goesWithItsAbstractObject)
{
    m_object->destroy();
    EXPECT_FALSE(VXObject::isObjectValid(m_id));
    expectCutOff();
    EXPECT_FALSE(m_qt.isNull());
    runDeletions();
    EXPECT_TRUE(m_qt.isNull());
}

TEST_P(Contract, isWholeWhenItsEndIsTold) { EXPECT_TRUE(GetParam().m_endsWhole()); }

TEST_P(Contract, goesWhenTheFactoryIsTold)
{
    VXFactory2::current()->destroyObject(m_id);
    expectCutOff();
    EXPECT_FALSE(m_qt.isNull());
    runDeletions();
    EXPECT_TRUE(m_qt.isNull());
    EXPECT_TRUE(VXObject::isObjectValid(m_object));
    VXFactory2::current()->destroyObject(m_id);
}

TEST_P(Contract, goesWithItsQtParent)
{
    // What has no Qt parent is deleted by itself.
    delete (m_qt->parent() ? m_qt->parent() : m_qt.data());
    EXPECT_TRUE(m_qt.isNull());
    EXPECT_TRUE(VXObject::isObjectValid(m_object));
    expectCutOff();
    VXFactory2::current()->destroyObject(m_id);
}

TEST_P(Contract, goesWithItsQtParentAfterItWasToldToGo)
{
    QObject* const parent = m_qt->parent();
    m_object->destroy();
    delete parent;
    runDeletions();
    EXPECT_TRUE(m_qt.isNull());
}

// Echoes
// -------------------------------------------------------------------------------------------

/// Notes every event of a widget that could be an echo. The pointer that comes to be over a widget
/// or not, and the focus that leaves it, are news; so is where the window system puts a window.
class Ear : public TROV::Listener
{
public:
    explicit Ear(VXWidget2& widget)
    {
        hear("closing", widget.closing());
        hear("contextMenuRequested", widget.contextMenuRequested());
        hear("dragEntered", widget.dragEntered());
        hear("dropped", widget.dropped());
        hear("focusGained", widget.focusGained());
        hear("shown", widget.shown());
        hear("hidden", widget.hidden());
        hear("keyPressed", widget.keyPressed());
        hear("keyReleased", widget.keyReleased());
        hear("mousePressed", widget.mousePressed());
        hear("mouseReleased", widget.mouseReleased());
        hear("mouseMoved", widget.mouseMoved());
        if (!qt(widget)->isWindow()) {
            hear("moved", widget.moved());
            hear("resized", widget.resized());
        }
        hear("dragDetected", widget.dragDetected());
        if (auto* button = dynamic_cast<VXAbstractButton2*>(&widget)) {
            hear("clicked", button->clicked());
            hear("toggled", button->toggled());
        }
    }

    /// What was heard since the last call.
    std::string take() { return std::exchange(m_heard, {}); }

private:
    template <class Signal>
    void hear(const char* name, const Signal& signal)
    {
        signal.connect(this, [this, name] { m_heard += std::string(name) + " "; });
    }

    std::string m_heard;
};

void setButtonProperties(VXAbstractButton2& button)
{
    button.setLabel("a long label that asks for room");
    button.setCheckable(true);
    button.setChecked(true);
    button.setChecked(false);
    button.setExclusive(true);
    button.setIcon(Icon());
}

void setWindowProperties(VXAbstractWindow2& window)
{
    window.setTitle("title[*]");
    window.setModified(true);
    window.setIcon(Icon());
    window.setWindowState(WindowState::Maximized);
    window.setWindowState({});
    window.setWindowFlags(window.windowFlags());
}

/// Has something done and notes under that name what was reported of it.
using Attempt = std::function<void(const char* what, const std::function<void()>& act)>;

void setGeometry(VXWidget2& abstract, const Attempt& attempt)
{
    attempt("resize", [&] { abstract.resize({80, 30}); });
    attempt("moveTo", [&] { abstract.moveTo({7, 9}); });
    attempt("setPosition", [&] { abstract.setPosition({1, 2, 90, 40}); });
    attempt("setMinimumSize", [&] { abstract.setMinimumSize({120, 60}); });
    attempt("setMaximumSize", [&] { abstract.setMaximumSize({130, 70}); });
    attempt("setFixedSize", [&] { abstract.setFixedSize({125, 65}); });
    attempt("setFont", [&] { abstract.setFont(VXFont("DejaVu Sans", 30)); });
    attempt("adjustSize", [&] {
        abstract.setMinimumSize({0, 0});
        abstract.setMaximumSize({500, 500});
        abstract.adjustSize();
    });
    attempt("setContentsMargins",
            [&] { abstract.setContentsMargins(VXRect<int>::margins(1, 2, 3, 4)); });
    attempt("restoreGeometry", [&] { abstract.restoreGeometry(abstract.saveGeometry()); });
}

TEST_P(Contract, neverReportsWhatTheProgramDid)
{
    if (!widget())
        GTEST_SKIP() << "no widget";
    VXWidget2& abstract = *widget();
    m_window.resize({300, 200});
    m_window.setCentralWidget(m_parent);
    m_window.show();
    abstract.show();
    turn();
    Ear ear(abstract);
    std::string faults;
    const Attempt attempt = [&](const char* what, const std::function<void()>& act) {
        act();
        turn();
        if (const std::string heard = ear.take(); !heard.empty())
            faults += std::string(what) + " was reported as " + heard + "\n";
    };
    attempt("hide", [&] { abstract.hide(); });
    attempt("show", [&] { abstract.show(); });
    attempt("setVisible", [&] {
        abstract.setVisible(false);
        abstract.setVisible(true);
    });
    attempt("raise", [&] { abstract.raise(); });
    attempt("lower", [&] { abstract.lower(); });
    attempt("setActiveWindow", [&] { abstract.setActiveWindow(); });
    setGeometry(abstract, attempt);
    attempt("looks", [&] {
        abstract.setColor(ColorRole::Background, Color(1, 2, 3));
        abstract.setCursor(CursorShape::Wait);
        abstract.unsetCursor();
        abstract.setToolTip("tip");
        abstract.setHighlight(true);
        abstract.setAccessibleName(L"name");
        abstract.refresh();
        abstract.update();
    });
    attempt("setEnabled", [&] {
        abstract.setEnabled(false);
        abstract.setEnabled(true);
    });
    attempt("setFocus", [&] {
        abstract.setFocusPolicy(FocusPolicy::Strong);
        abstract.setFocus();
    });
    if (auto* button = dynamic_cast<VXAbstractButton2*>(&abstract))
        attempt("button", [&] { setButtonProperties(*button); });
    if (auto* window = dynamic_cast<VXAbstractWindow2*>(&abstract))
        attempt("window", [&] { setWindowProperties(*window); });
    EXPECT_EQ(faults, "");

    // Others are still reported.
    qt(abstract)->resize(qt(abstract)->size() + QSize(5, 5));
    qt(abstract)->hide();
    turn();
    EXPECT_NE(ear.take().find("hidden"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(AllKinds, Contract, testing::ValuesIn(allKinds()),
                         [](const auto& test) { return std::string(test.param.m_name); });

TEST(Kinds, areAllThatTheFactoryServes)
{
    VXFactory2& factory = *VXFactory2::current();
    std::set<const void*> tested{&factory.destroyObject, &factory.createDragManager2,
                                 &factory.createClipboard2};
    for (const Kind& each : allKinds())
        tested.insert(&each.m_request(factory));
    // The requests lie one behind the other, all of one size.
    const auto* const first = reinterpret_cast<const char*>(&factory.createAction2);
    const auto* const last = reinterpret_cast<const char*>(&factory.destroyObject);
    int requests = 0;
    for (const char* at = first; at <= last; at += sizeof(factory.destroyObject), ++requests) {
        const auto* request = reinterpret_cast<const TROV::EmitterBase*>(at);
        EXPECT_LE(request->numberOfConnections(), 1);
        if (request->numberOfConnections() > 0) {
            EXPECT_TRUE(tested.count(request)) << "request " << requests << " is not in the list";
        }
    }
    EXPECT_EQ(requests, 53);
}

} // namespace
} // namespace VOXI

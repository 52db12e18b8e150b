// What every kind of object with a peer keeps to, whatever else it does.

#include "kinds.h"
#include "support/waitfor.h"

#include <QPointer>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <thread>
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
        for (const Kind::Setting& setting : GetParam().m_settings) {
            setting.m_set(*m_object);
            EXPECT_FALSE(setting.m_isSet(*m_object)) << setting.m_name;
        }
        for (const Kind::Reference& reference : GetParam().m_references) {
            reference.m_set(*m_object, reference.m_make(m_object));
            EXPECT_EQ(reference.m_get(*m_object), nullptr) << reference.m_name;
        }
    }

    /// Shows the window and the object in it.
    void showInWindow()
    {
        m_window.resize({300, 200});
        m_window.setCentralWidget(m_parent);
        m_window.show();
        if (widget())
            widget()->show();
        turn();
    }

    VXWindow2 m_window;
    VXPanel2* m_parent = new VXPanel2(&m_window);
    VXObject2* m_object = GetParam().m_make(m_parent);
    unsigned m_id = m_object->id();
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
    abstract.setEnabled(false);
    EXPECT_FALSE(shown->isEnabled());
    EXPECT_FALSE(abstract.isEnabled());
    abstract.setEnabled(true);
    abstract.setMinimumSize({20, 10});
    EXPECT_EQ(shown->minimumSize(), QSize(20, 10));
    abstract.setPosition({3, 4, 50, 40});
    EXPECT_EQ(shown->geometry(), QRect(3, 4, 50, 40));
    EXPECT_EQ(abstract.position(), (VXRect<int>{3, 4, 50, 40}));
    abstract.setCursor(CursorShape::Cross);
    EXPECT_EQ(shown->cursor().shape(), Qt::CrossCursor);
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

TEST_P(Contract, servesOtherThreadsAndEndsOnThem)
{
    std::string faults;
    std::atomic<bool> done{false};
    std::thread worker([&] {
        for (const Kind::Setting& setting : GetParam().m_settings) {
            setting.m_set(*m_object);
            if (!setting.m_isSet(*m_object))
                faults += setting.m_name + std::string(" ");
        }
        delete m_object;
        done = true;
    });
    EXPECT_TRUE(waitFor([&] { return done.load(); }));
    worker.join();
    EXPECT_EQ(faults, "");
    EXPECT_TRUE(waitFor([&] { return m_qt.isNull(); }));
    expectCutOff();
}

TEST_P(Contract, letsGoOfWhatItRefersTo)
{
    for (const Kind::Reference& reference : GetParam().m_references) {
        SCOPED_TRACE(reference.m_name);
        VXObject2* const gone = reference.m_make(m_object);
        delete gone;
        runDeletions();
        VXObject2* const first = reference.m_make(m_object);
        reference.m_set(*m_object, first);
        EXPECT_EQ(reference.m_get(*m_object), first);
        if (!VXObject::isObjectValid(gone)) // something else may lie there by now
            reference.m_set(*m_object, gone);
        EXPECT_EQ(reference.m_get(*m_object), first);
        delete first;
        EXPECT_EQ(reference.m_get(*m_object), nullptr);
        runDeletions();
        EXPECT_EQ(reference.m_get(*m_object), nullptr);
    }
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

// Echoes ------------------------------------------------------------------------------------------

/// Notes every event of an object that could be an echo. The pointer that comes to be over a widget
/// or not, and the focus that leaves it, are news; so is where the window system puts a window.
class Ear : public TROV::Listener
{
public:
    explicit Ear(VXObject2& object)
    {
        const auto* const widget = dynamic_cast<VXWidget2*>(&object);
        for (const Kind::Event& event : Contract::GetParam().m_events) {
            const std::string name = event.m_name;
            if (!(widget && qt(*widget)->isWindow() && (name == "moved" || name == "resized")))
                event.m_connect(object, *this, [this, name] { m_heard += name + " "; });
        }
    }

    /// What was heard since the last call.
    std::string take() { return std::exchange(m_heard, {}); }

private:
    std::string m_heard;
};

/// Has something done and notes under that name what was reported of it.
using Attempt = std::function<void(const char* what, const std::function<void()>& act)>;

void changeWidget(VXWidget2& abstract, const Attempt& attempt)
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
        abstract.setMaximumSize({1500, 1500});
        abstract.adjustSize();
    });
    attempt("setContentsMargins",
            [&] { abstract.setContentsMargins(VXRect<int>::margins(1, 2, 3, 4)); });
    attempt("restoreGeometry", [&] { abstract.restoreGeometry(abstract.saveGeometry()); });
    attempt("hide", [&] { abstract.hide(); });
    attempt("show", [&] { abstract.show(); });
    attempt("setVisible", [&] {
        abstract.setVisible(false);
        abstract.setVisible(true);
    });
    attempt("raise", [&] { abstract.raise(); });
    attempt("lower", [&] { abstract.lower(); });
    attempt("setActiveWindow", [&] { abstract.setActiveWindow(); });
    attempt("looks", [&] {
        abstract.setColor(ColorRole::Background, Color(1, 2, 3));
        abstract.setCursor(CursorShape::Wait);
        abstract.unsetCursor();
        abstract.setHighlight(true);
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
}

TEST_P(Contract, neverReportsWhatTheProgramDid)
{
    showInWindow();
    Ear ear(*m_object);
    std::string faults;
    const Attempt attempt = [&](const char* what, const std::function<void()>& act) {
        act();
        turn();
        if (const std::string heard = ear.take(); !heard.empty())
            faults += std::string(what) + " was reported as " + heard + "\n";
    };
    if (widget())
        changeWidget(*widget(), attempt);
    for (const Kind::Setting& setting : GetParam().m_settings) {
        attempt(setting.m_name, [&] { setting.m_set(*m_object); });
        EXPECT_TRUE(setting.m_isSet(*m_object)) << setting.m_name;
    }
    for (const Kind::Reference& reference : GetParam().m_references) {
        VXObject2* const other = reference.m_make(m_object);
        attempt(reference.m_name, [&] { reference.m_set(*m_object, other); });
        attempt(reference.m_name, [&] {
            delete other;
            runDeletions();
        });
    }
    EXPECT_EQ(faults, "");

    // The user's is still reported.
    for (const Kind::Event& event : GetParam().m_events) {
        if (!event.m_causeAsUser)
            continue;
        if (widget())
            widget()->show();
        turn();
        TROV::Listener listener;
        int heard = 0;
        event.m_connect(*m_object, listener, [&] { ++heard; });
        event.m_causeAsUser(*m_object);
        turn();
        EXPECT_EQ(heard, 1) << event.m_name;
    }
}

TEST_P(Contract, mayEndInTheHandlersOfItsEvents)
{
    for (const Kind::Event& event : GetParam().m_events) {
        if (!event.m_causeAsUser)
            continue;
        SCOPED_TRACE(event.m_name);
        if (!VXObject::isObjectValid(m_id)) {
            m_object = GetParam().m_make(m_parent);
            m_id = m_object->id();
            m_qt = qObjectOf(lookup(m_object));
        }
        showInWindow();
        TROV::Listener listener;
        event.m_connect(*m_object, listener, [&] { delete m_object; });
        event.m_causeAsUser(*m_object);
        turn();
        EXPECT_FALSE(VXObject::isObjectValid(m_id));
        runDeletions();
        EXPECT_TRUE(m_qt.isNull());
    }
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
    EXPECT_EQ(requests, 55);
}

} // namespace
} // namespace VOXI

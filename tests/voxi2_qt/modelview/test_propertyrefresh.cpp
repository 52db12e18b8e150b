// Refreshing, which goes through two threads, and properties in the hands of others.

#include "propertysupport.h"
#include "support/reportederrors.h"
#include "support/worker.h"
#include "trov/thread.h"

#include <atomic>
#include <future>
#include <random>
#include <stdexcept>
#include <thread>

namespace VOXI {
namespace {

/// The thread that a host fetches its data on.
struct DataThread : TROV::Worker
{
    DataThread()
    {
        run([] { TROV::Thread::getCurrentThread()->setName("KESTRA"); });
    }
};

class PropertyRefresh : public PropertyBrowserTest
{
protected:
    AskedProperty& addAsked(std::wstring text = L"text")
    {
        auto* const made = new AskedProperty([text] { return text; }, &m_owner);
        m_browser->addProperty(made);
        return *made;
    }
};

TEST_F(PropertyRefresh, dataComeOnTheirThreadAndTextsOnTheToolkits)
{
    DataThread data;
    std::atomic<TROV::Thread*> refreshedOn{nullptr};
    std::atomic<TROV::Thread*> readOn{nullptr};
    std::atomic<int> value{1};
    AskedProperty asked([&] {
        readOn = TROV::Thread::getCurrentThread();
        return std::to_wstring(value);
    });
    asked.m_refresh = [&] {
        refreshedOn = TROV::Thread::getCurrentThread();
        ++value;
    };
    m_browser->addProperty(&asked);
    VXSimpleProperty2* const pulled = add("pulled", any(1));
    pulled->setSource([&] {
        EXPECT_EQ(value, 2); // in the order in which they were made
        return any(7);
    });
    VXSimpleProperty2* const failing = add("failing", any(1));
    failing->setSource([]() -> any { throw std::runtime_error("no data"); });
    TROV::ReportedErrors errors;
    m_browser->refresh();
    EXPECT_TRUE(waitFor([&] { return shown() == "asked=2 pulled=7 failing=1"; }));
    EXPECT_EQ(refreshedOn, data.thread());
    EXPECT_EQ(readOn, TROV::Thread::getCurrentThread());
    EXPECT_EQ(errors.take(), std::vector<std::string>{"no data"});
    m_browser->clear();
}

TEST_F(PropertyRefresh, withoutThatThreadTheToolkitsFetchesThem)
{
    std::atomic<int> refreshed{0};
    addAsked().m_refresh = [&] { ++refreshed; };
    m_browser->refresh();
    EXPECT_EQ(refreshed, 1);
    {
        DataThread data;
        std::atomic<bool> isThere{false};
        AskedProperty& asked = addAsked();
        asked.m_refresh = [&] { isThere = TROV::Thread::getCurrentThread() == data.thread(); };
        m_browser->refresh();
        EXPECT_TRUE(waitFor([&] { return refreshed == 2 && isThere; }));
        delete &asked;
    }
    m_browser->refresh(); // the thread has ended
    EXPECT_EQ(refreshed, 3);
    TROV::Worker other;
    other.run([&] { m_browser->refresh(); });
    EXPECT_TRUE(waitFor([&] { return refreshed == 4; }));
}

TEST_F(PropertyRefresh, whatIsAskedMeanwhileFollowsOnce)
{
    DataThread data;
    std::promise<void> begun;
    std::promise<void> free;
    std::atomic<int> count{0};
    AskedProperty& asked = addAsked();
    asked.m_refresh = [&] {
        if (++count == 1)
            begun.set_value();
    };
    data.thread()->post([&] { free.get_future().wait(); });
    for (int i = 0; i < 100; ++i)
        m_browser->refresh();
    free.set_value();
    begun.get_future().wait();
    EXPECT_TRUE(waitFor([&] { return count == 2; }));
    data.run([] {});
    turn();
    data.run([] {});
    turn();
    EXPECT_EQ(count, 2);
    // Dropped with its thread, it does not stand in the way of the next one.
    std::promise<void> held;
    data.thread()->post([&] { held.get_future().wait(); });
    m_browser->refresh();
    std::thread release([&] { held.set_value(); });
    data.stop();
    release.join();
    const int before = count;
    m_browser->refresh();
    EXPECT_GT(count, before);
}

TEST_F(PropertyRefresh, onePropertyThatAsksAgainEachTimeHoldsNobodyUp)
{
    int count = 0;
    addAsked().m_refresh = [&] {
        if (++count < 50)
            m_browser->refresh();
    };
    m_browser->refresh();
    EXPECT_LT(count, 50);
    EXPECT_TRUE(waitFor([&] { return count == 50; }));
}

TEST_F(PropertyRefresh, whatIsFetchedMayEndAnything)
{
    AskedProperty& first = addAsked();
    AskedProperty& second = addAsked();
    first.m_refresh = [&] { delete &second; };
    m_browser->refresh();
    EXPECT_EQ(shown(), "asked=text");
    first.m_refresh = [&] { m_browser->clear(); };
    m_browser->refresh();
    EXPECT_EQ(shown(), "");
    AskedProperty& third = addAsked();
    third.m_refresh = [&] {
        delete m_browser;
        delete &third;
    };
    m_browser->refresh();
    runDeletions();
    EXPECT_FALSE(m_handle.isValid());
}

/// Threads that do all there is to do, while the user edits.
TEST_F(PropertyRefresh, anyThreadMayDoAnythingAtAnyTime)
{
    DataThread data;
    std::atomic<bool> goesOn{true};
    const auto work = [&](unsigned seed) {
        std::minstd_rand random(seed);
        std::vector<VXHandle<VXSimpleProperty2>> mine;
        while (goesOn) {
            const std::size_t at = mine.empty() ? 0 : random() % mine.size();
            switch (random() % 8) {
            case 0:
            case 1:
                mine.emplace_back(new VXSimpleProperty2("name", any(int(random() % 100))));
                m_handle->addProperty(mine.back().get(), mine[at].get());
                m_handle->addProperty(mine.back().get());
                mine.back()->setSource([] { return any(5); });
                break;
            case 2:
                if (!mine.empty())
                    mine[at]->setValue(int(random() % 100));
                break;
            case 3:
                m_handle->refresh();
                break;
            case 4:
                m_handle->setSort(random() % 2 ? VXSimplePropertyComparator2::byName() : nullptr);
                break;
            case 5:
                m_handle->setFilter(random() % 2 ? "5" : "");
                break;
            case 6:
                if (mine.size() > 20 || random() % 4 == 0)
                    for (const auto& each : std::exchange(mine, {}))
                        each->destroy();
                break;
            default:
                if (!mine.empty()) {
                    m_handle->edit(mine[at].get());
                    m_handle->isExpanded(mine[at].get());
                }
                break;
            }
        }
        for (const auto& each : mine)
            each->destroy();
    };
    m_browser->setEditorFactory(nullptr);
    std::thread first(work, 1u);
    std::thread second(work, 2u);
    for (int i = 0; i < 300; ++i) {
        turn();
        if (i % 50 == 49)
            m_browser->clear();
    }
    m_browser->destroy();
    turn();
    goesOn = false;
    std::atomic<int> joined{0};
    std::thread joiner([&] {
        first.join();
        second.join();
        joined = 1;
    });
    EXPECT_TRUE(waitFor([&] { return joined == 1; }));
    joiner.join();
}

} // namespace
} // namespace VOXI

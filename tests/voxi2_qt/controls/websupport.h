#pragma once

#include "../kernel/toolkit.h"
#include "support/watchedtest.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxwebbrowser2.h"
#include "voxi2/kernel/vxhandle.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace VOXI {

/// A web browser that is shown, and a program that answers for its pages.
class WebTest : public WatchedTest, public TROV::Listener
{
protected:
    static constexpr auto Patience = std::chrono::seconds(10);

    WebTest()
    {
        m_window.resize({500, 400});
        m_window.setCentralWidget(m_browser);
        m_window.show();
        m_browser->contentRequested().connect(this, [this](const VXWebContentEvent2& event) {
            m_asked.push_back(event.address());
            if (const auto page = m_pages.find(event.address()); page != m_pages.end())
                event.answer(page->second);
        });
        m_browser->loadEnded().connect(this, [this](const VXWebLoadEndEvent2& event) {
            ++m_loads;
            m_isComplete = event.isComplete();
        });
    }
    ~WebTest() override
    {
        if (m_handle.isValid())
            delete m_browser;
        runDeletions();
    }

    /// Without the pauses of the usual one: the engine takes some dozen turns of the loop for
    /// whatever a page needs.
    template <class Predicate>
    static bool waitFor(Predicate&& predicate, std::chrono::milliseconds limit = Patience)
    {
        const QDeadlineTimer end(limit);
        QTimer turns; // the predicate may come to hold by another thread
        turns.start(std::chrono::milliseconds(20));
        while (!predicate()) {
            if (end.hasExpired())
                return false;
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        return true;
    }

    /// Whether the next load that `act` causes is complete.
    bool loads(const std::function<void()>& act)
    {
        const int former = m_loads;
        act();
        EXPECT_TRUE(waitFor([&] { return m_loads > former; }));
        return m_isComplete;
    }
    bool goes(const AnyText& address)
    {
        return loads([&] { m_browser->setAddress(address); });
    }
    bool shows(const AnyText& html)
    {
        m_pages[L"app://x/shown"] = WebContent(html);
        return goes("app://x/shown");
    }

    std::wstring value(const AnyText& script) const { return m_browser->evaluate(script).value; }

    /// Whether the script comes to give that.
    bool comesToGive(const AnyText& script, const std::wstring& wanted) const
    {
        return waitFor([&] { return value(script) == wanted; });
    }

    static bool isLoaded(const char* library)
    {
        QFile maps(QStringLiteral("/proc/self/maps"));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
    }

    VXWindow2 m_window;
    VXWebBrowser2* m_browser = new VXWebBrowser2(&m_window);
    VXHandle<VXWebBrowser2> m_handle{m_browser};
    std::map<std::wstring, WebContent> m_pages;
    std::vector<std::wstring> m_asked;
    int m_loads = 0;
    bool m_isComplete = false;
};

} // namespace VOXI

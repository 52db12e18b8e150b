#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/kernel/vxhandle.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

/// A thread that writes into a log, as a server at work does.
class Server
{
public:
    explicit Server(VXEditArea2* log) : m_log(log), m_thread([this] { run(); }) {}
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server()
    {
        m_isEnding = true;
        m_thread.join();
    }

    std::atomic<bool> m_isBusy = false;

private:
    void run()
    {
        for (int i = 1; !m_isEnding; ++i) {
            const char* const level = i % 50 == 0 ? "error: " : i % 9 == 0 ? "warning: " : "";
            m_log->append(std::to_string(i) + "  " + level + "request from 10.0.0."
                          + std::to_string(i * 37 % 250) + " served in " + std::to_string(i % 17)
                          + " ms");
            std::this_thread::sleep_for(std::chrono::microseconds(m_isBusy ? 50 : 200'000));
        }
    }

    const VXHandle<VXEditArea2> m_log; // which may end before the thread does
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

/// Warnings and errors stand out.
void color(const VXEditAreaColoringEvent2& event)
{
    std::vector<TextSpan> spans;
    const auto mark = [&](const std::wstring& word, Color color) {
        for (std::size_t at = event.text().find(word); at != std::wstring::npos;
             at = event.text().find(word, at + 1))
            spans.push_back({{int(at), int(word.size())}, {.color = color, .isBold = true}});
    };
    mark(L"warning:", Color(180, 110, 0));
    mark(L"error:", BadColor);
    event.answer(spans);
}

VXWidget2* create(VXObject2* parent, EventLog& events)
{
    const Box page = column(parent);
    auto* log = new VXEditArea2(page.panel);
    log->setAccessibleName("Log");
    log->setObjectName("log");
    log->setReadOnly(true);
    log->setUndoEnabled(false);
    log->setMaximumLineCount(100'000);
    log->setLineNumbersVisible(true);
    log->setWrap(TextWrap::None);
    log->setPlaceholder("nothing has happened yet");
    log->coloringWanted().connect(log, &color);
    page.layout->addWidget(log, 1);

    const auto server = std::make_shared<Server>(log);
    events.keep(server);
    const Box line = row(page);
    auto* what = new VXEdit2(line.panel);
    what->setAccessibleName("Search");
    what->setPlaceholder("find");
    line.layout->addWidget(what);
    const auto find = [=, &events](bool isBackward) {
        if (!log->find({.text = what->textU(), .isBackward = isBackward}))
            events.add("not found");
    };
    what->returnPressed().connect(log, [find] { find(false); });
    command(line, "Up", [find] { find(true); });
    command(line, "Down", [find] { find(false); });
    command(line, "To the end", [log] { log->setTopLine(log->lineCount()); });
    command(line, "Clear", [log] { log->setText(""); });
    auto* busy = new VXCheckBox2("20 000 lines a second", line.panel);
    busy->setObjectName("busy");
    busy->toggled().connect(
        log, [server](const VXButtonToggleEvent2& event) { server->m_isBusy = event.isChecked(); });
    line.layout->addWidget(busy);
    line.layout->addStretch();
    return page.panel;
}

} // namespace

Page logViewerPage()
{
    return {"logviewer", "Log viewer",
            "A thread writes, and the last line stays in sight until somebody scrolls up.",
            &create};
}

} // namespace gallery

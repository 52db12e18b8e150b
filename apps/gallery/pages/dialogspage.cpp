#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxcolordialog2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxfiledialog2.h"
#include "voxi2/containers/vxfontdialog2.h"
#include "voxi2/containers/vxinput2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/containers/vxprogressdialog2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/kernel/vxhandle.h"

#include <chrono>
#include <memory>
#include <optional>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

const char* nameOf(MessageAnswer answer)
{
    switch (answer) {
    case MessageAnswer::Yes:
        return "Yes";
    case MessageAnswer::No:
        return "No";
    case MessageAnswer::Save:
        return "Save";
    case MessageAnswer::Discard:
        return "Discard";
    case MessageAnswer::Cancel:
        return "Cancel";
    default:
        return "another answer";
    }
}

std::string names(const std::vector<std::filesystem::path>& files)
{
    std::string result;
    for (const auto& file : files)
        result += (result.empty() ? "" : ", ") + narrowFromWide(wideFromUtf8(file.native()));
    return result.empty() ? "nothing" : result;
}

/// A row of buttons, each of which does something.
class Buttons
{
public:
    Buttons(const Box& page, const std::string& title) : m_row(titledRow(page, title)) {}
    ~Buttons() { m_row.layout->addStretch(); }

    template <class Act>
    void add(const std::string& text, Act act)
    {
        command(m_row, text, act)->setFocusPolicy(FocusPolicy::Strong);
    }

private:
    Box m_row;
};

/// Puts a dialog together: a question, a check box and three ways out.
VXDialog2* makeDialog(VXObject2* parent, EventLog& log, const std::string& name)
{
    auto* const dialog = new VXDialog2("Print", parent);
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    rows->setMargins({12, 12, 12, 12});
    rows->addWidget(heading(dialog, "Print the page?"));
    rows->addWidget(new VXText2("Return prints, Escape asks and cancels.", dialog));
    auto* const stay = new VXCheckBox2("Refuse to be dismissed", dialog);
    rows->addWidget(stay);
    auto* const ways = new VXBoxLayout2(rows);
    rows->addLayout(ways);
    ways->addStretch();
    const std::pair<const char*, int> buttons[] = {
        {"Print", VXDialog2::Accepted}, {"Preview", 2}, {"Cancel", VXDialog2::Rejected}};
    for (const auto& [text, result] : buttons) {
        VXButton2* each = button(dialog, text, name + " " + text);
        dialog->setButtonResult(each, result);
        if (result == VXDialog2::Accepted)
            dialog->setDefaultButton(each);
        ways->addWidget(each);
    }
    dialog->closing().connect(&log, [&log, name, stay](const VXCloseEvent2& event) {
        log.add(name + ": may it close?");
        if (stay->isChecked())
            event.refuse();
    });
    dialog->finished().connect(&log, [&log, name](const VXDialogEvent2& event) {
        log.add(name + ": finished with " + std::to_string(event.result()));
    });
    return dialog;
}

void addDialogs(const Box& page, EventLog& log)
{
    Buttons buttons(page, "A dialog");
    VXDialog2* const opened = makeDialog(page.panel, log, "opened dialog");
    buttons.add("Open", [opened] { opened->open(); });
    VXDialog2* const executed = makeDialog(page.panel, log, "executed dialog");
    buttons.add("Execute", [&log, executed] {
        log.add("exec() returned " + std::to_string(executed->exec()));
    });
    VXDialog2* const shown = makeDialog(page.panel, log, "shown dialog");
    buttons.add("Show without blocking", [shown] { shown->show(); });
}

void addMessages(const Box& page, EventLog& log)
{
    VXPanel2* const parent = page.panel;
    Buttons buttons(page, "A message");
    buttons.add("Inform", [parent] { VXMessage2::inform(parent, "The page has been printed."); });
    buttons.add("Ask", [&log, parent] {
        log.add(std::string("answered ") + nameOf(VXMessage2::ask(parent, "Print it again?")));
    });
    buttons.add("Warn, called back", [&log, parent] {
        VXMessage2{.text = "The document has been changed.",
                   .details = "Do you want to save it before it is closed?",
                   .answers = MessageAnswer::Save | MessageAnswer::Discard | MessageAnswer::Cancel,
                   .kind = MessageKind::Warning}
            .open(parent, [&log](MessageAnswer answer) {
                log.add(std::string("called back with ") + nameOf(answer));
            });
    });
    // The worker waits; nothing else does. What it holds ends with the page.
    const auto worker = std::make_shared<std::jthread>();
    log.keep(worker);
    const VXHandle<VXPanel2> owner(parent);
    TROV::Thread* const here = TROV::Thread::getCurrentThread();
    const auto busy = std::make_shared<bool>(false);
    buttons.add("Ask from a worker", [&log, worker, owner, here, busy] {
        if (std::exchange(*busy, true))
            return;
        *worker = std::jthread([&log, owner, here, busy] {
            const VXObjectDataLocker lock; // given up as soon as `ask` waits
            const MessageAnswer answer = VXMessage2::ask(owner.get(), "May the worker go on?");
            here->post([&log, busy, answer] {
                *busy = false;
                log.add(std::string("the worker heard ") + nameOf(answer));
            });
        });
    });
}

/// What has been chosen, or that nothing has.
template <class Value, class Say>
void tell(EventLog& log, const std::optional<Value>& value, Say say)
{
    log.add(value ? "chosen: " + say(*value) : std::string("cancelled"));
}

void addMoreMessages(const Box& page, EventLog& log)
{
    VXPanel2* const parent = page.panel;
    Buttons buttons(page, "More messages");
    buttons.add("Error", [parent] {
        std::string lines;
        for (int line = 1; line <= 60; ++line)
            lines += "Page " + std::to_string(line) + " could not be printed.\n";
        VXMessage2::error(parent, "Printing has failed.", lines);
    });
    const auto again = std::make_shared<bool>(true);
    buttons.add("With a box to check", [&log, parent, again] {
        if (!*again)
            return log.add("not shown again");
        VXMessage2{.text = "Pages are printed on both sides.",
                   .kind = MessageKind::Information,
                   .option = "Do not show this again",
                   .optionTold = [again](bool isChecked) { *again = !isChecked; }}
            .exec(parent);
    });
    buttons.add("About", [parent] {
        VXMessage2::about(parent, "Gallery", "Shows what the toolkit can do.");
    });
    buttons.add("Progress", [&log, parent] {
        const auto task = TROV::Task::run(
            &log,
            [](TROV::TaskContext& context) {
                constexpr int Steps = 300;
                for (int step = 0; step < Steps; ++step) {
                    context.throwIfCancelled();
                    context.setProgress(double(step) / Steps, "Page " + std::to_string(step + 1));
                    std::this_thread::sleep_for(std::chrono::milliseconds(10));
                }
            },
            [&log](TROV::TaskOutcome<void>& outcome) {
                log.add(outcome.isCancelled() ? "printing was cancelled" : "printed");
            });
        VXProgressDialog2::follow(task, parent, "Printing", std::chrono::milliseconds(100));
    });
}

void addChoices(const Box& page, EventLog& log)
{
    VXPanel2* const parent = page.panel;
    const auto wide = [](const std::wstring& text) { return narrowFromWide(text); };
    Buttons buttons(page, "Choosing");
    buttons.add("A text", [&log, parent, wide] {
        tell(log, VXInput2::askText(parent, "&Name of the page:", "Page 1"), wide);
    });
    buttons.add("One of a list", [&log, parent, wide] {
        tell(log, VXInput2::askChoice(parent, "&Sort by:", {L"name", L"date", L"size"}, "date"),
             wide);
    });
    buttons.add("A number", [&log, parent] {
        tell(log, VXInput2::askNumber(parent, "&Copies:", 1, 1, 99),
             [](int copies) { return std::to_string(copies); });
    });
    buttons.add("A colour", [&log, parent] {
        tell(log, VXColorDialog2::ask(parent, PadColor, true), [](const Color& color) {
            return std::to_string(color.red()) + ", " + std::to_string(color.green()) + ", "
                   + std::to_string(color.blue());
        });
    });
    buttons.add("A font", [&log, parent] {
        tell(log, VXFontDialog2::ask(parent, parent->font()),
             [](const VXFont& font) { return font.family(); });
    });
}

void addFiles(const Box& page, EventLog& log)
{
    VXPanel2* const parent = page.panel;
    const std::vector<FileFilter> filters = {
        {"Pictures", {"*.png", "*.jpg", "*.svg"}}, {"Texts", {"*.txt", "*.md"}}, {"All files", {}}};
    Buttons buttons(page, "Files");
    buttons.add("Open one", [=, &log] {
        log.add("chosen: " + names({VXFileDialog2::openFile(parent, "Open", {}, filters)}));
    });
    buttons.add("Open several", [=, &log] {
        log.add("chosen: " + names(VXFileDialog2::openFiles(parent, "Open", {}, filters)));
    });
    buttons.add("Directory", [=, &log] {
        log.add("chosen: " + names({VXFileDialog2::chooseDirectory(parent, "Directory")}));
    });
    auto* const save = new VXFileDialog2(parent);
    save->setTitle("Save");
    save->setMode(FileDialogMode::SaveFile);
    save->setDefaultSuffix("txt");
    save->setFilters(filters);
    save->setSelectedFilter(1);
    save->filesChosen().connect(&log, [&log](const VXFileDialogEvent2& event) {
        log.add("chosen to save: " + names(event.files()));
    });
    buttons.add("Save, not waiting", [save] { save->open(); });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    addDialogs(page, log);
    addMessages(page, log);
    addMoreMessages(page, log);
    addChoices(page, log);
    addFiles(page, log);

    page.layout->addWidget(new VXText2("A dialog may also be a part of a page:", page.panel));
    const Frame pad = frame(page.panel, PaperColor);
    VXDialog2* const part = makeDialog(page.panel, log, "embedded dialog");
    pad.inside.layout->addWidget(part);
    part->show();
    part->finished().connect(part, [part] { part->show(); });
    page.layout->addWidget(pad.outside);
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page dialogsPage()
{
    return {"dialogs", "Dialogs",
            "Dialogs, messages and file dialogs, which end with a result. While one waits for the "
            "user, other windows' timers and worker threads go on.",
            &create};
}

} // namespace gallery

#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"

#include <algorithm>
#include <array>
#include <cwctype>
#include <future>
#include <map>
#include <memory>
#include <string>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

constexpr const char* Source = "// The first numbers that only one and they themselves divide.\n"
                               "#include <iostream>\n"
                               "\n"
                               "bool isPrime(int number)\n"
                               "{\n"
                               "    for (int i = 2; i * i <= number; ++i) {\n"
                               "        if (number % i == 0)\n"
                               "            return false; // i divides it\n"
                               "    }\n"
                               "    return number > 1;\n"
                               "}\n"
                               "\n"
                               "int main()\n"
                               "{\n"
                               "    for (int number = 0; number < 1000; ++number) {\n"
                               "        if (isPrime(number))\n"
                               "            std::cout << number << \" is prime\\n\";\n"
                               "    }\n"
                               "}\n";

/// What of a program's text is a comment, a string, a number or a word of the language.
std::vector<TextSpan> spansOf(const std::wstring& text)
{
    static const std::array<std::wstring, 10> words{L"bool", L"int",  L"for",   L"if",    L"return",
                                                    L"true", L"auto", L"false", L"const", L"while"};
    const auto endOf = [&text](std::size_t at, auto belongs) {
        while (at < text.size() && belongs(text[at]))
            ++at;
        return at;
    };
    const auto isWordPart = [](wchar_t c) { return std::iswalnum(std::wint_t(c)) || c == L'_'; };
    std::vector<TextSpan> spans;
    for (std::size_t at = 0, end = 0; at < text.size(); at = end) {
        TextStyle style;
        if (text.compare(at, 2, L"//") == 0 || text[at] == L'#') {
            end = endOf(at, [](wchar_t c) { return c != L'\n'; });
            style = {.color = GoodColor, .isItalic = text[at] == L'/'};
        } else if (text[at] == L'"') {
            end = endOf(at + 1, [](wchar_t c) { return c != L'"' && c != L'\n'; }) + 1;
            style = {.color = BadColor};
        } else if (isWordPart(text[at])) {
            end = endOf(at, isWordPart);
            const std::wstring word = text.substr(at, end - at);
            if (std::find(words.begin(), words.end(), word) != words.end())
                style = {.color = NoteColor, .isBold = true};
            else if (std::iswdigit(std::wint_t(text[at])))
                style = {.color = Color(190, 110, 20)};
        } else {
            end = at + 1;
        }
        if (style != TextStyle())
            spans.push_back({{int(at), int(end - at)}, style});
    }
    return spans;
}

/// A thread that colours a text, which may be typed in meanwhile.
class Painter
{
public:
    explicit Painter(VXEditArea2& area)
        : m_thread([this, &area] {
              area.coloringWanted().connect(&m_listener, [](const VXEditAreaColoringEvent2& event) {
                  event.answer(spansOf(event.text()));
              });
              m_loop.set_value(TROV::Thread::getCurrentThread());
              TROV::Thread::getCurrentThread()->exec();
              m_listener.disconnect();
          }),
          m_running(m_loop.get_future().get())
    {}
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;
    ~Painter()
    {
        m_running->quit();
        m_thread.join();
    }

private:
    TROV::Listener m_listener;
    std::promise<TROV::Thread*> m_loop;
    std::thread m_thread;
    TROV::Thread* m_running;
};

/// A line to search and replace by.
/// The words of the text that go on as the one at the cursor begins.
void suggestWords(const VXEditAreaSuggestEvent2& event)
{
    const std::wstring text = event.area()->textU();
    const std::wstring begun = event.area()->textOf(event.word());
    const auto isWordPart = [](wchar_t c) { return std::iswalnum(std::wint_t(c)) || c == L'_'; };
    std::map<std::wstring, int> words;
    for (auto at = text.begin(); at != text.end();) {
        const auto end = std::find_if_not(at, text.end(), isWordPart);
        if (const std::wstring word(at, end); word.size() > begun.size() && word.starts_with(begun))
            ++words[word];
        at = std::find_if(end, text.end(), isWordPart);
    }
    std::vector<TextSuggestion> suggestions;
    for (const auto& [word, times] : words)
        suggestions.push_back({.text = word, .detail = std::to_wstring(times) + L" times"});
    event.answer(suggestions);
}

void addSearch(const Box& page, VXEditArea2* area, EventLog& log)
{
    const Box line = row(page);
    auto* what = new VXEdit2(line.panel);
    auto* with = new VXEdit2(line.panel);
    auto* whole = new VXCheckBox2("Words", line.panel);
    auto* expression = new VXCheckBox2("Expression", line.panel);
    what->setObjectName("what");
    what->setPlaceholder("find");
    what->setAccessibleName("Find");
    with->setPlaceholder("replace with");
    with->setAccessibleName("Replace with");
    for (VXWidget2* widget : std::initializer_list<VXWidget2*>{what, with, whole, expression})
        line.layout->addWidget(widget);
    const auto search = [=] {
        return TextSearch{.text = what->textU(),
                          .wholeWords = whole->isChecked(),
                          .isExpression = expression->isChecked()};
    };
    const auto find = [=, &log] {
        if (!area->find(search()))
            log.add("not found");
    };
    what->returnPressed().connect(area, find);
    command(line, "Find", find);
    command(line, "Replace", [=] { area->replaceFound(search(), with->textU()); });
    command(line, "All", [=, &log] {
        log.add(std::to_string(area->replaceAll(search(), with->textU())) + " replaced");
    });
    line.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent);
    auto* area = new VXEditArea2(Source, page.panel);
    area->setObjectName("source");
    area->setAccessibleName("Source");
    area->setFont(VXFont("monospace"));
    area->setWrap(TextWrap::None);
    area->setTabWidth(4);
    area->setLineNumbersVisible(true);
    area->setMarksVisible(true);
    area->setCurrentLineHighlighted(true);
    area->setMark({.uid = 1, .line = 6, .toolTip = L"stop here"});
    page.layout->addWidget(area, 1);
    addSearch(page, area, log);

    area->marginClicked().connect(area, [](const VXEditAreaMarginEvent2& event) {
        if (event.markUid() != 0)
            event.area()->removeMark(event.markUid());
        else
            event.area()->setMark({.uid = unsigned(event.line()) + 100, .line = event.line()});
    });
    area->textEdited().connect(&log, [&log](const VXEditAreaTextEvent2& event) {
        log.add("at " + std::to_string(event.position()) + ": " + std::to_string(event.removed())
                + " removed, " + std::to_string(event.added().size()) + " added");
    });
    area->setSuggestionLength(2);
    area->suggestionsWanted().connect(area, &suggestWords);
    area->suggestionTaken().connect(&log, [&log](const VXEditAreaSuggestionEvent2& event) {
        log.add("suggestion " + std::to_string(event.index()) + " taken");
    });
    log.keep(std::make_shared<Painter>(*area));
    return page.panel;
}

} // namespace

Page textsPage()
{
    return {
        "texts", "Texts",
        "A program's text, coloured by a thread of its own. Click beside a line to mark it. Words "
        "that are begun are completed; Ctrl+Space offers all of them.",
        &create};
}

} // namespace gallery

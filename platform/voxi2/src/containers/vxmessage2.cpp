#include "voxi2/containers/vxmessage2.h"

#include "openmessages.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <memory>

namespace VOXI {

namespace {

struct Answer
{
    MessageAnswer m_answer;
    LibraryText m_label;
};

/// In the order of the buttons.
constexpr Answer s_answers[] = {
    {MessageAnswer::Yes, "&Yes"},
    {MessageAnswer::YesToAll, "Yes to &All"},
    {MessageAnswer::Ok, "&OK"},
    {MessageAnswer::Save, "&Save"},
    {MessageAnswer::SaveAll, "Save A&ll"},
    {MessageAnswer::Retry, "&Retry"},
    {MessageAnswer::Ignore, "&Ignore"},
    {MessageAnswer::Discard, "&Discard"},
    {MessageAnswer::No, "&No"},
    {MessageAnswer::NoToAll, "No &to All"},
    {MessageAnswer::Abort, "A&bort"},
    {MessageAnswer::Close, "&Close"},
    {MessageAnswer::Cancel, "Cancel"},
};

struct Sign
{
    LibraryText m_title;
    const wchar_t* m_sign;
    Color m_color;
};

/// In the order of the kinds; what is none looks plain.
const Sign& signOf(MessageKind kind)
{
    static const Sign signs[] = {
        {"Message", L"", Color(0, 0, 0)},        {"Information", L"i", Color(46, 110, 190)},
        {"Question", L"?", Color(46, 110, 190)}, {"Warning", L"!", Color(214, 130, 20)},
        {"Error", L"\xd7", Color(196, 44, 44)},
    };
    const auto index = static_cast<std::size_t>(kind);
    return signs[index < std::size(signs) ? index : 0];
}

/// A box that is filled by its layout, without margins.
struct Box
{
    explicit Box(VXObject2* parent, Direction direction = Direction::LeftToRight)
        : m_panel(new VXPanel2(parent)),
          m_layout(new VXBoxLayout2(m_panel, direction))
    {
        m_layout->setMargins({0, 0, 0, 0});
    }

    VXPanel2* m_panel;
    VXBoxLayout2* m_layout;
};

void addSign(const Box& row, const Sign& sign)
{
    constexpr int Side = 40;
    if (!*sign.m_sign)
        return;
    const Box square(row.m_panel);
    square.m_panel->setFixedSize({Side, Side});
    square.m_panel->setColor(ColorRole::Background, sign.m_color);
    auto* const text = new VXText2(square.m_panel);
    text->setText(sign.m_sign);
    text->setFont(VXFont(std::string(), 22, VXFont::Bold));
    text->setAlignment(AlignmentFlag::Center);
    text->setColor(ColorRole::Foreground, Color(255, 255, 255));
    square.m_layout->addWidget(text);
    row.m_layout->addWidget(square.m_panel, 0, AlignmentFlag::Top);
}

constexpr std::size_t LongLine = 70; // in characters; longer ones are broken

/// How much room a text takes, in characters.
struct Extent
{
    explicit Extent(const std::wstring& text)
    {
        for (std::size_t start = 0; start <= text.size();) {
            const std::size_t end = std::min(text.find(L'\n', start), text.size());
            m_longestLine = std::max(m_longestLine, end - start);
            m_lines += 1 + (end - start) / LongLine;
            start = end + 1;
        }
        std::size_t word = 0;
        for (const wchar_t each : text) {
            word = each == L' ' || each == L'\n' || each == L'\t' ? 0 : word + 1;
            m_longestWord = std::max(m_longestWord, word);
        }
    }

    std::size_t m_lines = 0;
    std::size_t m_longestLine = 0;
    std::size_t m_longestWord = 0;
};

void addText(const Box& column, const std::wstring& text, const char* name, bool scrolls)
{
    // Short lines stay as they are; long ones are broken.
    constexpr int Width = 420;
    auto* const result = new VXText2(column.m_panel);
    result->setObjectName(name);
    result->setText(text);
    result->setSelectable(true);
    const bool isLong = Extent(text).m_longestLine > LongLine;
    result->setWordWrap(isLong || scrolls);
    if (isLong && !scrolls)
        result->setMinimumSize({Width, -1});
    column.m_layout->addWidget(result);
}

/// The texts; in a view that scrolls if they might not find room on a small screen.
void addTexts(const Box& row, const std::wstring& text, const std::wstring& details)
{
    constexpr std::size_t ManyLines = 20;
    constexpr Size<int> ViewSize{480, 300};
    const Extent extent(text);
    const Extent more(details);
    const bool isTall = extent.m_lines + more.m_lines > ManyLines;
    const bool scrolls = isTall || std::max(extent.m_longestWord, more.m_longestWord) > LongLine;
    auto* const view = scrolls ? new VXScrollView2(row.m_panel) : nullptr;
    const Box texts(view ? static_cast<VXWidget2*>(view) : row.m_panel, Direction::TopToBottom);
    addText(texts, text, "text", scrolls);
    if (!details.empty())
        addText(texts, details, "details", scrolls);
    if (!view) {
        row.m_layout->addWidget(texts.m_panel, 1, AlignmentFlag::VCenter);
        return;
    }
    view->setWidget(texts.m_panel);
    // It may be as narrow as the view, which a bar on its right makes narrower.
    texts.m_panel->setSizePolicy(Policy::Preferred, Policy::Preferred);
    view->setMinimumSize({ViewSize.width, isTall ? ViewSize.height : -1});
    row.m_layout->addWidget(view, 1);
}

/// Gives the dialog a button for each answer; returns the one of `wanted`, or else the first.
VXButton2* addButtons(VXDialog2* dialog, const Box& row, VXFlags<MessageAnswer> answers,
                      MessageAnswer wanted, const std::map<MessageAnswer, KeptText>& labels)
{
    row.m_layout->addStretch();
    VXButton2* chosen = nullptr;
    for (const Answer& each : s_answers) {
        if (!answers.testFlag(each.m_answer))
            continue;
        auto* const button = new VXButton2(row.m_panel);
        const auto own = labels.find(each.m_answer);
        button->setLabel(own == labels.end() ? KeptText(translated(each.m_label)) : own->second);
        dialog->setButtonResult(button, static_cast<int>(each.m_answer));
        row.m_layout->addWidget(button);
        if (!chosen || each.m_answer == wanted)
            chosen = button;
    }
    return chosen;
}

MessageAnswer execKind(MessageKind kind, VXObject2* parent, const AnyText& text,
                       VXFlags<MessageAnswer> answers, MessageAnswer defaultAnswer)
{
    const VXMessage2 message{
        .text = text, .answers = answers, .defaultAnswer = defaultAnswer, .kind = kind};
    return message.exec(parent);
}

} // namespace

VXFlags<MessageAnswer> VXMessage2::offered() const
{
    VXFlags<MessageAnswer> result;
    for (const Answer& each : s_answers) {
        if (answers.testFlag(each.m_answer))
            result |= each.m_answer;
    }
    return result ? result : VXFlags<MessageAnswer>(MessageAnswer::Ok);
}

MessageAnswer VXMessage2::answerOfEscape() const
{
    if (escapeAnswer != MessageAnswer::None)
        return escapeAnswer;
    const VXFlags<MessageAnswer> choice = offered();
    if (choice.testFlag(MessageAnswer::Cancel))
        return MessageAnswer::Cancel;
    const unsigned bits = choice.toInt();
    if ((bits & (bits - 1)) == 0)
        return static_cast<MessageAnswer>(bits);
    for (const MessageAnswer each :
         {MessageAnswer::No, MessageAnswer::Close, MessageAnswer::Abort}) {
        if (choice.testFlag(each))
            return each;
    }
    return MessageAnswer::None;
}

VXHandle<VXDialog2> VXMessage2::make(VXObject2* parent) const
{
    // A worker waits for each part, and the parent may end meanwhile: then the dialog does, too.
    const VXObjectDataLocker lock;
    const VXObject2::BuildScope scope;
    if (parent && !VXObject::isObjectValid(parent))
        return {};
    return build(parent);
}

VXDialog2* VXMessage2::build(VXObject2* parent) const
{
    constexpr int Gap = 14;
    const Sign& sign = signOf(kind);
    auto* const dialog = new VXDialog2(parent);
    dialog->setTitle(AnyText(title).isEmpty() ? KeptText(translated(sign.m_title)) : title);
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    rows->setSpacing(Gap);

    const Box message(dialog);
    message.m_layout->setSpacing(Gap);
    addSign(message, sign);
    addTexts(message, AnyText(text).toWide(), AnyText(details).toWide());
    rows->addWidget(message.m_panel, 1);

    const Box buttons(dialog);
    VXButton2* const chosen = addButtons(dialog, buttons, offered(), defaultAnswer, labels);
    rows->addWidget(buttons.m_panel);
    if (answerOfEscape() == MessageAnswer::None) {
        dialog->closing().connect(
            dialog, [](const VXCloseEvent2& event) { event.refuse(); }, dialog->servingThread());
    }
    dialog->setDefaultButton(chosen);
    chosen->setFocus();
    return dialog;
}

MessageAnswer VXMessage2::exec(VXObject2* parent) const
{
    const MessageAnswer escape = answerOfEscape();
    const VXHandle<VXDialog2> dialog = make(parent);
    const int result = dialog->exec();
    dialog->destroy();
    return result == VXDialog2::Rejected ? escape : static_cast<MessageAnswer>(result);
}

void VXMessage2::open(VXObject2* parent, std::function<void(MessageAnswer)> answered) const
{
    const MessageAnswer escape = answerOfEscape();
    const VXHandle<VXDialog2> handle = make(parent);
    // The thread that calls need not run a loop.
    TROV::Thread* const thread = handle->servingThread();
    if (!thread) {
        handle->destroy();
        answered(escape);
        return;
    }
    const auto open = std::make_shared<OpenMessage>(handle, std::move(answered), escape, thread);
    handle.with([&](VXDialog2& dialog) {
        dialog.finished().connect(
            &dialog,
            [handle, open](const VXDialogEvent2& event) {
                // This closure goes with the dialog.
                // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
                const auto question = open;
                const int result = event.result();
                handle->destroy();
                question->answer(result);
            },
            thread);
        dialog.open();
    });
    // It may have been taken down meanwhile by its own thread, which did not know of this one.
    if (handle.with([](const VXDialog2& dialog) { return !dialog.servingThread(); })) {
        handle->destroy();
        open->answer(VXDialog2::Rejected);
    }
}

void VXMessage2::inform(VXObject2* parent, const AnyText& text)
{
    VXMessage2{.text = text, .kind = MessageKind::Information}.exec(parent);
}

MessageAnswer VXMessage2::ask(VXObject2* parent, const AnyText& text,
                              VXFlags<MessageAnswer> answers, MessageAnswer defaultAnswer)
{
    return execKind(MessageKind::Question, parent, text, answers, defaultAnswer);
}

MessageAnswer VXMessage2::warn(VXObject2* parent, const AnyText& text,
                               VXFlags<MessageAnswer> answers, MessageAnswer defaultAnswer)
{
    return execKind(MessageKind::Warning, parent, text, answers, defaultAnswer);
}

} // namespace VOXI

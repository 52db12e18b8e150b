#include "voxi2/containers/vxmessage2.h"

#include "opendialogs.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxbuttonrow2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

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

void addText(const Box& column, const std::wstring& text, const char* name, std::size_t maxLines)
{
    constexpr Size<int> ViewSize{480, 220};
    constexpr int Width = 420;
    const Extent extent(text);
    const bool isTall = extent.m_lines > maxLines;
    const bool scrolls = isTall || extent.m_longestWord > LongLine;
    auto* const view = scrolls ? new VXScrollView2(column.m_panel) : nullptr;
    const Box room(view ? static_cast<VXWidget2*>(view) : column.m_panel, Direction::TopToBottom);
    auto* const result = new VXText2(room.m_panel);
    result->setObjectName(name);
    result->setText(text);
    result->setSelectable(true);
    // Short lines stay as they are; long ones are broken.
    const bool isLong = extent.m_longestLine > LongLine;
    result->setWordWrap(isLong || scrolls);
    room.m_layout->addWidget(result);
    if (!view) {
        if (isLong)
            result->setMinimumSize({Width, -1});
        column.m_layout->addWidget(room.m_panel);
        return;
    }
    view->setWidget(room.m_panel);
    // It may be as narrow as the view, which a bar on its right makes narrower.
    room.m_panel->setSizePolicy(Policy::Preferred, Policy::Preferred);
    view->setMinimumSize({ViewSize.width, isTall ? ViewSize.height : -1});
    column.m_layout->addWidget(view, 1);
}

/// The texts; each in a view that scrolls if it might not find room on a small screen.
void addTexts(const Box& column, const std::wstring& text, const std::wstring& details)
{
    constexpr std::size_t ManyLines = 20;
    constexpr std::size_t FewLines = 12;
    addText(column, text, "text", ManyLines);
    if (!details.empty())
        addText(column, details, "details", ManyLines - std::min(Extent(text).m_lines, FewLines));
}

/// Gives the dialog a button for each answer; returns the one of `wanted`, or else the first.
VXButton2* addButtons(VXDialog2* dialog, VXBoxLayout2& rows, VXFlags<MessageAnswer> answers,
                      MessageAnswer wanted, const std::map<MessageAnswer, KeptText>& labels)
{
    auto* const row = new VXButtonRow2(dialog, answers);
    rows.addWidget(row);
    VXButton2* chosen = row->button(wanted);
    for (unsigned bit = 1; bit <= static_cast<unsigned>(MessageAnswer::Open); bit *= 2) {
        const auto answer = static_cast<MessageAnswer>(bit);
        VXButton2* const button = row->button(answer);
        if (!button)
            continue;
        if (const auto own = labels.find(answer); own != labels.end())
            button->setLabel(own->second);
        dialog->setButtonResult(button, static_cast<int>(answer));
        if (!chosen)
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

/// What has been made for a message.
struct BuiltMessage
{
    VXHandle<VXDialog2> m_dialog;
    VXHandle<VXCheckBox2> m_option{};

    /// The user has answered.
    void tellOption(const std::function<void(bool)>& told) const
    {
        if (told && m_option.isValid())
            told(m_option->isChecked());
    }
};

VXFlags<MessageAnswer> VXMessage2::offered() const
{
    constexpr unsigned All = 2 * static_cast<unsigned>(MessageAnswer::Open) - 1;
    const unsigned bits = answers.toInt() & All;
    return bits ? VXFlags<MessageAnswer>::fromInt(bits) : VXFlags<MessageAnswer>(MessageAnswer::Ok);
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

BuiltMessage VXMessage2::make(VXObject2* parent) const
{
    // A worker waits for each part, and the parent may end meanwhile: then the dialog does, too.
    const VXObjectDataLocker lock;
    const VXObject2::BuildScope scope;
    if (parent && !VXObject::isObjectValid(parent))
        return {};
    return build(parent);
}

BuiltMessage VXMessage2::build(VXObject2* parent) const
{
    constexpr int Gap = 14;
    const Sign& sign = signOf(kind);
    auto* const dialog = new VXDialog2(parent);
    dialog->setTitle(AnyText(title).isEmpty() ? KeptText(translated(sign.m_title)) : title);
    auto* const rows = new VXBoxLayout2(dialog, Direction::TopToBottom);
    rows->setSpacing(Gap);

    const Box message(dialog);
    message.m_layout->setSpacing(Gap);
    if (picture.isNull())
        addSign(message, sign);
    else
        message.m_layout->addWidget(new VXImage2(picture, message.m_panel), 0, AlignmentFlag::Top);
    const Box texts(message.m_panel, Direction::TopToBottom);
    addTexts(texts, AnyText(text).toWide(), AnyText(details).toWide());
    VXCheckBox2* box = nullptr;
    if (!AnyText(option).isEmpty()) {
        box = new VXCheckBox2(option, texts.m_panel);
        box->setChecked(isOptionChecked);
        texts.m_layout->addWidget(box);
    }
    message.m_layout->addWidget(texts.m_panel, 1);
    rows->addWidget(message.m_panel, 1);

    VXButton2* const chosen = addButtons(dialog, *rows, offered(), defaultAnswer, labels);
    if (answerOfEscape() == MessageAnswer::None) {
        dialog->closing().connect(
            dialog, [](const VXCloseEvent2& event) { event.refuse(); }, dialog->servingThread());
    }
    dialog->setDefaultButton(chosen);
    chosen->setFocus();
    return {dialog, box};
}

MessageAnswer VXMessage2::exec(VXObject2* parent) const
{
    const MessageAnswer escape = answerOfEscape();
    const BuiltMessage built = make(parent);
    const int result = built.m_dialog->exec();
    built.tellOption(optionTold);
    built.m_dialog->destroy();
    return result == VXDialog2::Rejected ? escape : static_cast<MessageAnswer>(result);
}

void VXMessage2::open(VXObject2* parent, std::function<void(MessageAnswer)> answered) const
{
    const BuiltMessage built = make(parent);
    openDialog(
        built.m_dialog, [built, told = optionTold] { built.tellOption(told); },
        [answered = std::move(answered), escape = answerOfEscape()](int result) {
            answered(result == VXDialog2::Rejected ? escape : static_cast<MessageAnswer>(result));
        });
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

void VXMessage2::error(VXObject2* parent, const AnyText& text, const AnyText& details)
{
    VXMessage2{.text = text, .details = details, .kind = MessageKind::Error}.exec(parent);
}

void VXMessage2::about(VXObject2* parent, const AnyText& name, const AnyText& text,
                       const Pixmap& picture)
{
    VXMessage2{.text = name, .details = text, .title = name, .picture = picture}.exec(parent);
}

} // namespace VOXI

#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxlistbox2.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi_util/vxlazydata.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace gallery {

using namespace VOXI;

namespace {

constexpr std::size_t LineLength = 16;
constexpr std::size_t MostShown = 8 * LineLength;

/// Sixteen bytes a line, in digits and as characters.
std::string dump(const ByteArray& bytes)
{
    std::string text = std::to_string(bytes.size()) + " bytes";
    const std::size_t end = std::min(bytes.size(), MostShown);
    for (std::size_t at = 0; at < end; at += LineLength) {
        const std::string line = bytes.bytes().substr(at, LineLength);
        std::string digits = ByteArray(line).toHex();
        for (std::size_t i = digits.size(); i > 2; i -= 2)
            digits.insert(i - 2, " ");
        digits.resize(3 * LineLength + 2, ' ');
        text += '\n' + digits;
        for (const char c : line)
            text += std::isprint(static_cast<unsigned char>(c)) ? c : '.';
    }
    return text + (end < bytes.size() ? "\n..." : "");
}

std::string describe(const any& value)
{
    if (const auto* const bytes = std::any_cast<ByteArray>(&value))
        return dump(*bytes);
    if (const auto* const pixmap = std::any_cast<Pixmap>(&value))
        return "a picture of " + std::to_string(pixmap->width()) + " by "
               + std::to_string(pixmap->height()) + " pixels";
    return value.has_value() ? "a value of this program" : "nothing";
}

/// What lies in a place: its formats, and the bytes of the one that is chosen.
class Viewer
{
public:
    Viewer(const Box& page, ClipboardPlace place) : m_place(place)
    {
        const Box line = row(page, 10);
        m_formats = new VXListBox2(line.panel);
        m_formats->setFixedSize({230, 170});
        m_formats->setAccessibleName("Formats");
        const Frame paper = frame(line.panel, PaperColor);
        m_bytes = new VXText2(paper.inside.panel);
        m_bytes->setAlignment(AlignmentFlag::Left | AlignmentFlag::Top);
        m_bytes->setSelectable(true);
        m_bytes->setSizePolicy(Policy::Ignored, Policy::Preferred);
        VXFont font = m_bytes->font();
        font.setFamily("DejaVu Sans Mono");
        m_bytes->setFont(font);
        paper.inside.layout->addWidget(m_bytes);
        paper.inside.layout->addStretch();
        line.layout->addWidget(m_formats);
        line.layout->addWidget(paper.outside, 1);
        m_formats->selectionChanged().connect(m_bytes, [*this] { showBytes(); });
    }

    void show() const
    {
        m_formats->removeItems();
        const auto formats = VXClipboard2::instance()->formats(m_place);
        m_formats->addItems(VXStringList(formats.begin(), formats.end()));
        // What is no MIME type is for the window system.
        const auto first = std::find_if(formats.begin(), formats.end(), [](const auto& format) {
            return format.find('/') != std::string::npos;
        });
        if (first != formats.end())
            m_formats->setCurrentRow(static_cast<int>(first - formats.begin()));
        showBytes();
    }

private:
    void showBytes() const
    {
        const int row = m_formats->currentRow();
        m_bytes->setText(row < 0 ? std::string("empty")
                                 : describe(VXClipboard2::instance()->data(
                                     StringID(m_formats->itemAt(row)), m_place)));
    }

    ClipboardPlace m_place;
    VXListBox2* m_formats = nullptr;
    VXText2* m_bytes = nullptr;
};

VXMimeData2 manyFormats()
{
    VXMimeData2 data;
    data.setText(L"Copied from the gallery \u2713");
    data.setHtml(L"Copied from the <b>gallery</b>");
    data.setUris({"https://www.example.org/", "file:///tmp"});
    data.setData("application/x-gallery", ByteArray(std::string("any\0byte\xff", 9)));
    data.setColor(GoodColor);
    return data;
}

void addCommands(const Box& page, const Viewer& viewer, EventLog& log)
{
    VXClipboard2* const clipboard = VXClipboard2::instance();
    const Box line = row(page);
    command(line, "Copy many formats", [=] {
        clipboard->setMimeData(manyFormats());
        viewer.show();
    });
    command(line, "Copy what is made later", [=, &log] {
        VXMimeData2 data;
        data.setData("text/plain", VXLazyData([&log] {
                         log.add("clipboard: somebody pastes");
                         return any(std::string("made when it was pasted"));
                     }));
        clipboard->setMimeData(data);
        log.add("clipboard: nothing is made yet");
    });
    command(line, "Clear", [=] { clipboard->clear(); });
    line.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    VXClipboard2* const clipboard = VXClipboard2::instance();
    page.layout->addWidget(heading(page.panel, "Clipboard"));
    const Viewer viewer(page, ClipboardPlace::Clipboard);
    addCommands(page, viewer, log);
    clipboard->changed().connect(page.panel, [=, &log](const VXClipboardEvent2& event) {
        log.add("clipboard: change " + std::to_string(event.change()) + ", "
                + std::to_string(event.formats().size()) + " formats");
        clipboard->sync(event.change());
        viewer.show();
    });
    viewer.show();
    if (clipboard->hasSelection()) {
        page.layout->addWidget(heading(page.panel, "What is selected at the moment"));
        const Viewer selected(page, ClipboardPlace::Selection);
        clipboard->selectionChanged().connect(page.panel, [selected] { selected.show(); });
        selected.show();
    }
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page clipboardPage()
{
    return {
        "clipboard", "Clipboard",
        "Every format that lies on the clipboard, with its bytes; changes by other programs are "
        "announced.",
        create};
}

} // namespace gallery

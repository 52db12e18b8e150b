#include "../eventlog.h"
#include "../eventtext.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi_util/icon.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace gallery {

using namespace VOXI;

namespace {

constexpr int CardWidth = 170;
constexpr int PictureSize = 48;

/// A disc whose colour changes from corner to corner.
Pixmap picture()
{
    std::vector<std::uint32_t> pixels;
    pixels.reserve(PictureSize * PictureSize);
    constexpr int radius = PictureSize / 2;
    for (int y = 0; y < PictureSize; ++y) {
        for (int x = 0; x < PictureSize; ++x) {
            const int dx = x - radius;
            const int dy = y - radius;
            const bool inside = dx * dx + dy * dy < radius * radius;
            const Color color(x * 5, 90, y * 5, inside ? 255 : 0);
            pixels.push_back(color.rgba());
        }
    }
    return Pixmap(PictureSize, PictureSize, std::move(pixels));
}

/// What the page shows of a drag, and which actions its sources allow.
struct Status
{
    VXText2* m_proposed;
    VXText2* m_accepted;
    VXText2* m_performed;
    VXFlags<DropAction> m_allowed = DropAction::Copy | DropAction::Move;
};
using StatusPtr = std::shared_ptr<Status>;

Frame card(const Box& parent, const std::string& title, const std::string& hint, Color fill)
{
    const Frame result = frame(parent.panel, fill);
    result.outside->setMinimumSize({CardWidth, 78});
    result.inside.layout->addWidget(heading(result.inside.panel, title));
    auto* const text = new VXText2(hint, result.inside.panel);
    text->setWordWrap(true);
    result.inside.layout->addWidget(text);
    result.inside.panel->setObjectName(title);
    result.inside.layout->addStretch();
    parent.layout->addWidget(result.outside, 1);
    return result;
}

/// A panel that data can be dragged from.
void addSource(const Box& parent, const std::string& title, const std::string& hint,
               const VXMimeData2& data, const Pixmap& pixmap, const StatusPtr& status)
{
    VXPanel2* source = card(parent, title, hint, PadColor).inside.panel;
    source->setCursor(CursorShape::OpenHand);
    source->dragDetected().connect(source, [source, data, pixmap, status] {
        VXDrag2 drag;
        drag.source = source;
        drag.mimeData = data;
        drag.actions = status->m_allowed;
        drag.pixmap = pixmap;
        VXDragManager2::instance()->startDrag(drag);
    });
}

using Welcome = std::function<bool(const VXDragEvent2&)>;
using Take = std::function<void(const VXMimeData2&)>;

/// Lets drags over the target be decided by `welcome` and hands dropped data to `take`.
void makeTarget(VXPanel2* target, const Welcome& welcome, const Take& take, const StatusPtr& status,
                EventLog& log)
{
    auto* delegate = new VXDragDelegate2(target);
    const auto decide = [target, welcome, status](const VXDragEvent2& drag) {
        const bool good = welcome(drag);
        if (good)
            drag.acceptProposed();
        else
            drag.ignore();
        // A target that refused does not hear when the drag goes away, so it gets no mark.
        target->setHighlight(good, GoodColor);
        status->m_proposed->setText(text(drag.proposedAction()) + " of "
                                    + text(drag.possibleActions()));
        status->m_accepted->setText(text(drag.acceptedAction()));
    };
    delegate->entered().connect(delegate, decide);
    delegate->moved().connect(delegate, decide);
    delegate->left().connect(delegate, [target] { target->setHighlight(false); });
    delegate->dropped().connect(delegate, [target, decide, take, &log](const VXDragEvent2& drag) {
        decide(drag);
        target->setHighlight(false);
        take(drag.mimeData());
        log.add(target->objectName() + ":" + describe(drag));
    });
    target->setAcceptDrops(true);
    target->setDragDelegate(delegate);
}

Welcome hasFormat(const std::string& beginning)
{
    return [beginning](const VXDragEvent2& drag) {
        for (const StringID format : drag.formats()) {
            if (format.getString().rfind(beginning, 0) == 0)
                return true;
        }
        return false;
    };
}

/// The first line, shortened.
std::wstring excerpt(const std::wstring& text)
{
    constexpr std::size_t length = 22;
    const std::wstring line = text.substr(0, text.find(L'\n'));
    return line.size() > length ? line.substr(0, length) + L"..." : line;
}

void addSources(const Box& page, const StatusPtr& status)
{
    const Pixmap disc = picture();
    VXMimeData2 words;
    words.setText(L"Dragged from the gallery");
    VXMimeData2 image;
    image.setImage(disc);
    VXMimeData2 links;
    links.setUris({"https://www.example.org/", "file:///tmp"});

    page.layout->addWidget(heading(page.panel, "Drag from here"));
    const Box line = row(page, 10);
    addSource(line, "Text", "\"Dragged from the gallery\"", words, Pixmap(), status);
    addSource(line, "Picture", "shown at the pointer", image, disc, status);
    addSource(line, "Addresses", "two of them", links, Pixmap(), status);
    alternatives(page, "Sources allow", {"copy", "move", "copy or move"}, 2,
                 [status](std::size_t i) {
                     status->m_allowed = VXFlags<DropAction>::fromInt(static_cast<unsigned>(i + 1));
                 });
}

void addTargets(const Box& page, const StatusPtr& status, EventLog& log)
{
    page.layout->addWidget(heading(page.panel, "Drop here"));
    const Box line = row(page, 10);
    const Frame forText = card(line, "Takes text", "from any program", PaperColor);
    auto* got = new VXText2("nothing yet", forText.inside.panel);
    got->setObjectName("got-text");
    forText.inside.layout->insertWidget(got, 2);
    makeTarget(
        forText.inside.panel, hasFormat("text/plain"),
        [got](const VXMimeData2& data) { got->setText(excerpt(data.text())); }, status, log);

    const Frame forImage = card(line, "Takes pictures", "from any program", PaperColor);
    auto* shown = new VXImage2(forImage.inside.panel);
    shown->setScaleEnabled(true);
    shown->setFixedSize({24, 24});
    auto* extent = new VXText2("nothing yet", forImage.inside.panel);
    extent->setObjectName("got-picture");
    forImage.inside.layout->insertWidget(shown, 2, 0, AlignmentFlag::Left | AlignmentFlag::VCenter);
    forImage.inside.layout->insertWidget(extent, 3);
    const Welcome isImage = hasFormat("application/x-voxi-image");
    makeTarget(
        forImage.inside.panel, isImage,
        [shown, extent](const VXMimeData2& data) {
            const Pixmap image = data.image();
            shown->setPixmap(image);
            extent->setText(std::to_string(image.width()) + " x " + std::to_string(image.height()));
        },
        status, log);

    const Frame closed = card(line, "Takes nothing", "whatever it is", PaperColor);
    makeTarget(
        closed.inside.panel, [](const VXDragEvent2&) { return false; }, [](const VXMimeData2&) {},
        status, log);
}

VXText2* statusLine(const Box& page, const std::string& title)
{
    const Box line = titledRow(page, title);
    auto* result = new VXText2("-", line.panel);
    result->setObjectName(title);
    line.layout->addWidget(result, 1);
    return result;
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    const auto status = std::make_shared<Status>();
    addSources(page, status);
    addTargets(page, status, log);
    status->m_proposed = statusLine(page, "Proposed");
    status->m_accepted = statusLine(page, "Accepted");
    status->m_performed = statusLine(page, "Performed");
    page.layout->addStretch();
    if (VXDragManager2* manager = VXDragManager2::instance()) {
        manager->finished().connect(&log, [status, &log](const VXDragFinishedEvent2& drag) {
            status->m_performed->setText(text(drag.action()));
            log.add("drag finished: " + text(drag.action()));
        });
    }
    return page.panel;
}

} // namespace

Page dragDropPage()
{
    return {"dragdrop", "Drag and drop",
            "Drag with the left button, within this window or to and from other programs; Shift "
            "and Control choose the action.",
            &create};
}

} // namespace gallery

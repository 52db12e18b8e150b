#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxhyperlink2.h"

namespace gallery {

using namespace VOXI;

namespace {

VXHyperLink2* addLink(const Box& page, const char* text, EventLog& log)
{
    auto* const link = new VXHyperLink2(text, page.panel);
    link->setObjectName(text);
    page.layout->addWidget(link, 0, AlignmentFlag::Left);
    link->clicked().connect(&log, [&log](const VXHyperLinkEvent2& event) {
        log.add("followed: " + event.link()->text());
    });
    return link;
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    page.layout->addWidget(heading(page.panel, "With the colours that links have"));
    addLink(page, "The first chapter", log);
    addLink(page, "The second chapter", log);
    page.layout->addWidget(heading(page.panel, "With colours of its own"));
    VXHyperLink2* const green = addLink(page, "Turns grey when it was followed", log);
    green->setLinkColor(LinkMode::Normal, GoodColor);
    green->setLinkColor(LinkMode::Hovered, Color(52, 180, 96));
    green->setLinkColor(LinkMode::Visited, Color(120, 120, 120));
    const Box line = row(page);
    command(line, "Follow it", [green] { green->imitateClick(); });
    line.layout->addStretch();
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page linksPage()
{
    return {
        "links", "Links",
        "Texts to be clicked, or reached by the Tab key and followed by Return. Whether one was "
        "followed shows when the pointer has left it.",
        create};
}

} // namespace gallery

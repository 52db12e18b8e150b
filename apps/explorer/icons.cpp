#include "icons.h"

#include "voxi_util/bytearray.h"
#include "voxi_util/pixmap.h"

#include <array>
#include <string>
#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

/// On 24 by 24 units; a word with a dollar stands for what `expanded` puts in its place.
struct Drawing
{
    Picture picture;
    const char* shapes;
};

constexpr std::array Drawings{
    Drawing{Picture::Program, "<g $blue>$drum</g><circle cx='16' cy='16' r='4' fill='#fff' "
                              "stroke='#b7791f' stroke-width='2'/><path $amber d='M19 19l3.5 "
                              "3.5'/>"},
    Drawing{Picture::Open, "<path $amber d='M3 19V5h6l2 3h9v3M3 19l3.5-8H22l-3.5 8z'/>"},
    Drawing{Picture::Sample, "<g $ink>$drum</g>"},
    Drawing{Picture::Table, "<path $ink d='M3 4h18v16H3zM3 9.5h18M3 14.8h18M10 9.5V20'/>"},
    Drawing{Picture::View, "<path $ink d='M2 12c5-8.5 15-8.5 20 0-5 8.5-15 8.5-20 0z'/>"
                           "<circle $blue cx='12' cy='12' r='3'/>"},
    Drawing{Picture::Column, "<path $ink d='M9 3h6v18H9zM3 6v12M21 6v12'/>"},
    Drawing{Picture::Key, "<circle $amber cx='8' cy='8' r='4.5'/>"
                          "<path $amber d='M11.5 11.5L20 20M16.5 16.5l3-3'/>"},
    Drawing{Picture::Index, "<path $ink d='M4 6h3M4 12h3M4 18h3M11 6h9M11 12h9M11 18h9'/>"},
    Drawing{Picture::Trigger, "<path $amber d='M13 2L5 14h6l-1 8 9-13h-6z'/>"},
    Drawing{Picture::Commit, "<path $green d='M4 12.5l5.5 5.5L20 6.5'/>"},
    Drawing{Picture::RollBack, "<path $red d='M8 4L3.5 8.5 8 13M4 8.5h10a6 6 0 0 1 0 12H8'/>"},
    Drawing{Picture::AddRow, "$sheet<path $green d='M18.5 15v7M15 18.5h7'/>"},
    Drawing{Picture::RemoveRow, "$sheet<path $red d='M15 18.5h7'/>"},
    Drawing{Picture::SetNull, "<circle $ink cx='12' cy='12' r='8.5'/><path $ink d='M6 18L18 6'/>"},
    Drawing{Picture::Run, "<path $green d='M7 4l12.5 8L7 20z'/>"},
    Drawing{Picture::Stop, "<path $red d='M6 6h12v12H6z'/>"},
    Drawing{Picture::Export, "$tray<path $blue d='M12 15V3M7.5 7L12 2.8 16.5 7'/>"},
    Drawing{Picture::Import, "$tray<path $blue d='M12 3v12M7.5 10.8L12 15l4.5-4.2'/>"},
    Drawing{Picture::Reload, "<path $blue d='M20 11a8 8 0 1 0-1.5 6M20 4v7h-7'/>"},
    Drawing{Picture::Refused, "<circle cx='12' cy='12' r='10' fill='#c0392b'/>"
                              "<path d='M12 6v7.5M12 17v.5' fill='none' stroke='#fff' "
                              "stroke-width='3' stroke-linecap='round'/>"}};

std::string pen(const char* color)
{
    return std::string("fill='none' stroke-width='2' stroke-linecap='round' "
                       "stroke-linejoin='round' stroke='")
           + color + "'";
}

std::string expanded(std::string shapes)
{
    const std::pair<std::string, std::string> words[] = {
        {"$drum", "<ellipse cx='12' cy='5.5' rx='8' ry='3'/><path d='M4 5.5v13c0 1.7 3.6 3 8 3s8-"
                  "1.3 8-3v-13M4 12c0 1.7 3.6 3 8 3s8-1.3 8-3'/>"},
        {"$sheet", "<path $ink d='M3 4h18v8M3 4v16h9M3 9.5h18M10 9.5V20M3 14.8h9'/>"},
        {"$tray", "<path $ink d='M4 14v6h16v-6'/>"},
        {"$ink", pen("#4a5260")},
        {"$blue", pen("#2563b0")},
        {"$green", pen("#23904f")},
        {"$red", pen("#c0392b")},
        {"$amber", pen("#b7791f")}};
    for (const auto& [word, meaning] : words) {
        for (auto at = shapes.find(word); at != std::string::npos; at = shapes.find(word))
            shapes.replace(at, word.size(), meaning);
    }
    return shapes;
}

} // namespace

Icon icon(Picture picture)
{
    for (const Drawing& drawing : Drawings) {
        if (drawing.picture == picture)
            return Icon::fromPixmap(Pixmap::fromData(
                ByteArray("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24' width='24' "
                          "height='24'>"
                          + expanded(drawing.shapes) + "</svg>")));
    }
    return {};
}

} // namespace explorer

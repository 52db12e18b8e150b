#pragma once

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi_util/color.h"
#include "voxi_util/icon.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace gallery {

// The gallery's colours. Ink is for what has a fill of the gallery's below it; the three that
// follow can be read on light and dark backgrounds.
inline constexpr VOXI::Color FrameColor{168, 174, 184};
inline constexpr VOXI::Color PaperColor{252, 252, 250};
inline constexpr VOXI::Color PadColor{214, 228, 244};
inline constexpr VOXI::Color InkColor{32, 36, 44};
inline constexpr VOXI::Color GoodColor{36, 150, 72};
inline constexpr VOXI::Color BadColor{216, 64, 64};
inline constexpr VOXI::Color NoteColor{58, 124, 214};

/// Eight rows of eight dots each, drawn four times as large.
using Dots = std::array<std::uint8_t, 8>;
VOXI::Icon icon(const Dots& dots, std::uint32_t rgba = 0x687484ff);

/// A layout without margins, and the panel that its widgets are in.
struct Box
{
    VOXI::VXPanel2* panel;
    VOXI::VXBoxLayout2* layout;
    VOXI::VXText2* title = nullptr; ///< of a row that begins with one
};
/// A row at the end of the layout.
Box row(const Box& outer, int spacing = 6);
// In a panel of their own, which they fill.
Box row(VOXI::VXObject2* parent, int spacing = 6);
Box column(VOXI::VXObject2* parent, int spacing = 6);

/// A column inside a thin frame, filled with a colour; children go into `inside`.
struct Frame
{
    VOXI::VXPanel2* outside;
    Box inside;
};
Frame frame(VOXI::VXObject2* parent, VOXI::Color fill);

/// A bold line; `pointSize` 0 is that of other texts.
VOXI::VXText2* heading(VOXI::VXObject2* parent, const std::string& text, int pointSize = 0);
VOXI::VXButton2* button(VOXI::VXObject2* parent, const std::string& text,
                        const std::string& objectName);

/// Adds a button that does something to others: a click leaves the keyboard focus where it is, the
/// Tab key comes to it. Its text is its object name, too.
VOXI::VXButton2* command(const Box& line, const std::string& text, std::function<void()> act);

/// Has the Tab key come to it after all others of the page, for what was made first and lies last.
void comesLast(const Box& page, VOXI::VXWidget2* widget);
/// Has it framed while it has the keyboard focus, for what shows nothing of that itself.
void frameFocus(VOXI::VXWidget2* widget);

/// Adds a row of alternatives, of which `chosen` is checked at first. Clicking one calls `choose`
/// with its index, and so does going through them by the arrow keys. A click leaves the keyboard
/// focus where it is.
void alternatives(const Box& outer, const std::string& title,
                  const std::vector<std::string>& labels, std::size_t chosen,
                  std::function<void(std::size_t)> choose);

/// The width of the titles in front of rows, so that what follows is aligned, with letters of 9
/// points.
inline constexpr int TitleWidth = 130;
/// A row at the end of the layout that begins with a title. What is in front of one field is to be
/// its buddy, so that the field is read by that name.
Box titledRow(const Box& outer, const std::string& title);

} // namespace gallery

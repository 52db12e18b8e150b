#pragma once

namespace VOXI {

class VXSplitter2;

/// The user moves a handle of a splitter; one event for each step.
class VXSplitterMoveEvent2
{
public:
    VXSplitterMoveEvent2(VXSplitter2* splitter, int index, int position) noexcept
        : m_splitter(splitter),
          m_index(index),
          m_position(position)
    {}

    VXSplitter2* splitter() const noexcept { return m_splitter; }
    /// The position of the widget that the handle stands before.
    int index() const noexcept { return m_index; }
    /// How far the handle is from the splitter's left or upper edge, in pixels.
    int position() const noexcept { return m_position; }

private:
    VXSplitter2* m_splitter;
    int m_index;
    int m_position;
};

} // namespace VOXI

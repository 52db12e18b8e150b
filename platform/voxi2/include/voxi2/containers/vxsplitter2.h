#pragma once

#include "voxi2/containers/vxsplitterevents2.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

#include <list>
#include <string>

namespace VOXI {

struct VXSplitter2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*, int)> addWidget{*this};
    TROV::Request<void(VXWidget2*, int, int)> insertWidget{*this};
    TROV::Request<void(VXWidget2*)> removeWidget{*this};
    TROV::Request<int(VXWidget2*)> getWidgetIndex{*this};
    TROV::Request<int()> count{*this};
    TROV::Request<void(VXWidget2*, bool)> setCollapsible{*this};
    TROV::Request<bool(VXWidget2*)> isCollapsible{*this};
    TROV::Request<void(int)> setHandleWidth{*this};
    TROV::Request<int()> getHandleWidth{*this};
    TROV::Request<void(Orientation)> setOrientation{*this};
    TROV::Request<Orientation()> getOrientation{*this};
    TROV::Request<void(std::list<int>)> setSizes{*this};
    TROV::Request<std::list<int>()> getSizes{*this};
    TROV::Request<std::string()> saveState{*this};
    TROV::Request<bool(std::string)> restoreState{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXSplitterMoveEvent2&)> handleMoved{*this};
};

/// Places widgets side by side, with handles between them that the user drags.
///
/// A splitter does not own the widgets that are added, but what is made with it as the parent
/// is added as well, at the end. Null and dead widgets are ignored where nothing else is said.
///
/// By keys F8 comes to the next handle around, the arrows, Home and End move it, Return leaves it
/// there and Escape puts it back; `handleMoved` says so.
class VOXI2_EXPORT VXSplitter2 : public VXWidget2
{
public:
    using ToolkitClass = VXSplitter2;

    explicit VXSplitter2(VXObject2* parent = nullptr,
                         Orientation orientation = Orientation::Horizontal);
    ~VXSplitter2() override;

    /// Appends the widget; one that is in the splitter already moves to the end. Room to spare goes
    /// to widgets in proportion to their stretch.
    void addWidget(VXWidget2* widget, int stretch = 0);
    /// The same at a position; -1, and any beyond the end, appends.
    void insertWidget(VXWidget2* widget, int index, int stretch = 0);
    /// Takes the widget out of the splitter: it stays alive, alone and hidden.
    void removeWidget(VXWidget2* widget);

    /// The widget's position from 0; -1 when it is not in the splitter.
    int widgetIndex(VXWidget2* widget) const;
    int count() const;

    /// Whether the user may make the widget vanish by dragging; null stands for all those that were
    /// not named.
    void setCollapsible(VXWidget2* widget, bool collapsible);
    bool isCollapsible(VXWidget2* widget) const;

    /// In pixels, 16 777 215 at most; 6 at first.
    void setHandleWidth(int width);
    int handleWidth() const;

    /// Horizontal: the widgets stand side by side.
    void setOrientation(Orientation orientation);
    Orientation orientation() const;

    /// The widgets' widths or heights from the first on, in pixels. They are scaled to the room
    /// that there is; 0 collapses a widget.
    void setSizes(const std::list<int>& sizes);
    std::list<int> sizes() const;

    /// Sizes and orientation as one line of printable text, for `restoreState` in a later run.
    std::string saveState() const;
    /// Gives the widgets the sizes that those at their positions had, in the room that there is.
    /// Text that did not come whole from `saveState` of a splitter is refused: the answer is false
    /// and nothing changes.
    bool restoreState(const std::string& state);

    // Events

    /// The user drags a handle; not sent for `setSizes`.
    TROV::Signal<void(const VXSplitterMoveEvent2&)> handleMoved() const
    {
        return m_emitters.handleMoved.signal();
    }

private:
    VXSplitter2Emitters m_emitters;
};

} // namespace VOXI

#pragma once

#include "voxi2/containers/vxstackevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXWidgetStack2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXWidget2*, int)> addWidget{*this};
    TROV::Request<void(VXWidget2*)> raiseWidget{*this};
    TROV::Request<void(int)> raiseWidgetWithID{*this};
    TROV::Request<void(VXWidget2*)> removeWidget{*this};
    TROV::Request<VXWidget2*()> getCurrentWidget{*this};
    TROV::Request<int()> getCurrentID{*this};
    TROV::Request<int(VXWidget2*)> getWidgetID{*this};
    TROV::Request<int()> count{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXStackEvent2&)> currentGone{*this};
};

/// Shows one of its widgets at a time, the first one added to begin with.
///
/// A stack does not own its widgets. Each has its position as its number, counted from 0. Null and
/// dead widgets are ignored, and so are numbers that no widget has.
class VOXI2_EXPORT VXWidgetStack2 : public VXWidget2
{
public:
    using ToolkitClass = VXWidgetStack2;

    explicit VXWidgetStack2(VXObject2* parent = nullptr);
    ~VXWidgetStack2() override;

    /// Puts the widget in at a position; -1, and any beyond the end, appends.
    void addWidget(VXWidget2* widget, int index = -1);
    /// Takes the widget out: it stays alive, hidden.
    void removeWidget(VXWidget2* widget);

    /// Shows the widget, which must have been added, in place of the one shown.
    void raiseWidget(VXWidget2* widget);
    /// The same by the widget's number.
    void raiseWidgetWithID(int id);

    /// The widget that is shown; null when there is none.
    VXWidget2* currentWidget() const;
    /// The number of the widget that is shown; -1 when there is none.
    int currentID() const;
    /// -1 when the widget is not in the stack.
    int widgetID(VXWidget2* widget) const;
    int count() const;

    // Events

    /// The widget that was shown has ended or been taken elsewhere, and its neighbour is shown
    /// instead. Not sent for what the stack is asked for: `raiseWidget`, `removeWidget` and so on.
    TROV::Signal<void(const VXStackEvent2&)> currentGone() const
    {
        return m_emitters.currentGone.signal();
    }

private:
    VXWidgetStack2Emitters m_emitters;
};

} // namespace VOXI

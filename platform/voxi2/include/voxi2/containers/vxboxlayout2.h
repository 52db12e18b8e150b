#pragma once

#include "voxi2/containers/vxlayout2.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/voxi2_export.h"

namespace VOXI {

struct VXBoxLayout2Emitters : TROV::EmittersTable<VXLayout2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXObject*, int, Alignment)> boxAddWidget{*this};
    TROV::Request<void(VXObject*, int, int, Alignment)> insertWidget{*this};
    TROV::Request<void(int, int, int)> insertSpacer{*this};
    TROV::Request<void(VXObject*, int)> setStretchFactor{*this};
    TROV::Request<void(VXObject*, int)> addLayout{*this};
    TROV::Request<bool(VXObject*)> refusesLayout{*this};
    TROV::Request<void(Direction)> setDirection{*this};
    TROV::Request<Direction()> getDirection{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Places widgets side by side, in one of four directions.
class VOXI2_EXPORT VXBoxLayout2 : public VXLayout2
{
public:
    using ToolkitClass = VXBoxLayout2;

    /// Lays out the inside of `parent`, if it is a widget without a layout.
    explicit VXBoxLayout2(VXObject2* parent = nullptr,
                          Direction direction = Direction::LeftToRight);
    ~VXBoxLayout2() override;

    /// Turns the row round, or into a column; a value that is none counts as left to right.
    void setDirection(Direction direction);
    Direction direction() const;

    using VXLayout2::addWidget;
    /// Appends the widget; room to spare goes to widgets in proportion to their stretch.
    void addWidget(VXObject* widget, int stretch, Alignment alignment = Alignment());
    /// The same at a position; -1, or one beyond the end, appends.
    void insertWidget(VXObject* widget, int index, int stretch = 0,
                      Alignment alignment = Alignment());
    /// Appends a layout, which belongs to this one from now on and lies in it until it ends; its
    /// widgets move into the widget around it. Ignored are null and dead ones, those that lie in
    /// a layout already or fill a widget, and circles: this layout, or the widget that it fills,
    /// must not lie in the other one. Elsewhere than on the toolkit's thread this waits for the
    /// answer.
    void addLayout(VXLayout2* layout, int stretch = 0);
    /// With a stretch other than 0 the room grows and `size` is not used.
    void insertSpacer(int index, int size, int stretch);
    /// Appends room that grows, in proportion to the stretches of the others.
    void addStretch(int stretch = 1);
    /// Appends room of that size.
    void addSpacing(int size);
    /// Changes the stretch of a widget of the layout; others are ignored.
    void setStretchFactor(VXObject* widget, int stretch);

private:
    VXBoxLayout2Emitters m_emitters;
};

} // namespace VOXI

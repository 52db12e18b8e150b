#pragma once

#include "voxi2/kernel/alignment.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"

namespace VOXI {

struct VXLayout2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXObject*, Alignment)> addWidget{*this};
    TROV::Request<void(Size<int>, int)> addSpacer{*this};
    TROV::Request<void()> invalidate{*this};
    TROV::Request<void()> refresh{*this};
    TROV::Request<void(VXObject*)> removeWidget{*this};
    TROV::Request<void(bool)> setEnabled{*this};
    TROV::Request<void(VXRect<int>)> setMargins{*this};
    TROV::Request<void(int)> setSpacing{*this};
    TROV::Request<bool()> isEnabled{*this};
    TROV::Request<VXRect<int>()> getMargins{*this};
    TROV::Request<int()> getSpacing{*this};
    TROV::Request<bool(VXObject*)> refuses{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

/// Places widgets inside another one.
///
/// A layout shows its widgets but does not own them; adding moves them into the widget that the
/// layout fills. Null and dead widgets are ignored. A window that was made with that widget as its
/// parent remains a window, and takes no room.
///
/// A `VXWindow2` is filled by its central widget, which is the layout's parent then; a window
/// without one gets a panel.
///
/// A layout may lie in another one, which owns it then; see `VXBoxLayout2::addLayout`. It is made
/// without a parent, with that layout as its parent, or with a widget that has a layout.
class VOXI2_EXPORT VXLayout2 : public VXObject2
{
public:
    ~VXLayout2() override;

    /// Moves the layout and its widgets into another widget, which owns it then. Nothing happens if
    /// that has a layout, or lies in one of the layout's widgets; for a layout that lies in another
    /// one; and for null, as a layout cannot stand without a widget once it has had one. Elsewhere
    /// than on the toolkit's thread this waits for the answer.
    void setParent(VXObject2* parent) override;

    /// Appends the widget; `alignment` empty: it fills its cell.
    void addWidget(VXObject* widget, Alignment alignment = Alignment());
    /// Takes the widget out of the layout; it stays where it is until moved.
    void removeWidget(VXObject* widget);
    /// Appends empty room of that size, which grows when `expanding`.
    void addSpacer(const Size<int>& size, bool expanding);

    /// Left, top, right, bottom; 32 767 at most.
    void setMargins(const VXRect<int>& margins);
    VXRect<int> margins() const;
    /// Between neighbours, 16 777 215 at most; -1 as an answer: the style decides.
    void setSpacing(int spacing);
    int spacing() const;

    /// While off, the layout does not place anything.
    void setEnabled(bool enabled);
    bool isEnabled() const;

    /// Lays out at once.
    void refresh();
    /// Lays out when the program is idle next.
    void invalidate();

protected:
    explicit VXLayout2(VXObject2* parent);

    /// Owns a layout that is to lie in this one. False if it cannot: it is dead, it lies in a
    /// layout already, or this one lies in it.
    bool takeLayout(VXLayout2* layout);

    VXLayout2Emitters m_emitters;

private:
    bool m_isNested = false; // guarded by the object lock
};

} // namespace VOXI

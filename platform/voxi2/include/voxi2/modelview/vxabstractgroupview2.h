#pragma once

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/modelview/cellinfo.h"
#include "voxi2/modelview/shownmodel.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"
#include "voxi2/modelview/vxgroupviewevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/geometry.h"

namespace VOXI {

struct VXAbstractGroupView2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(VXAbstractViewModel2*)> setViewModel{*this};
    TROV::Request<VXAbstractViewModel2*()> getViewModel{*this};
    TROV::Request<void(unsigned, bool)> setGroupFolded{*this};
    TROV::Request<bool(unsigned)> isGroupFolded{*this};
    TROV::Request<void()> foldAll{*this};
    TROV::Request<void()> unfoldAll{*this};
    TROV::Request<void(unsigned, bool)> setGroupFoldedAsUser{*this};
    TROV::Request<void(unsigned)> setCurrentRow{*this};
    TROV::Request<void(unsigned)> setCurrentRowAsUser{*this};
    TROV::Request<unsigned()> getCurrentRow{*this};
    TROV::Request<void(unsigned)> activate{*this};
    TROV::Request<void(unsigned)> scrollTo{*this};
    TROV::Request<unsigned(VXPoint<int>)> getRowAt{*this};
    TROV::Request<VXRect<int>(unsigned)> getRowRect{*this};
    TROV::Request<bool(unsigned)> isRowInSight{*this};
    TROV::Request<CellInfo(unsigned)> getRowInfo{*this};
    TROV::Request<void(Size<int>)> setIconSize{*this};
    TROV::Request<Size<int>()> getIconSize{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXGroupViewCurrentEvent2&)> currentChanged{*this};
    TROV::Event<void(const VXGroupViewActivateEvent2&)> activated{*this};
    TROV::Event<void(const VXGroupFoldEvent2&)> folded{*this};
    TROV::Event<void(const VXGroupUnfoldEvent2&)> unfolded{*this};
};

/// What shows a model as groups that fold: rows without a parent are groups, with a header each,
/// and the rows under them are what is in the groups. What lies deeper is not shown.
///
/// Of a row the view shows the first column: text, icon, tool tip, font and colours, one line that
/// is as high as the view's font and its icons ask for. Rows are named by the model's numbers;
/// those that the model does not know are ignored. Whether a group is folded stays with its number
/// whatever comes, goes or moves, as long as the group is there.
///
/// The current row is the one that the keys act on: of a group or in one. A group that folds takes
/// it over from what is in it.
class VOXI2_EXPORT VXAbstractGroupView2 : public VXWidget2
{
public:
    ~VXAbstractGroupView2() override;

    /// Null for none, as at first. A model may be shown by several views, and belongs to none.
    void setViewModel(VXAbstractViewModel2* model);
    /// Null also when the model has been destroyed.
    VXAbstractViewModel2* viewModel() const;

    void setGroupFolded(unsigned group, bool folded = true);
    /// False for what is no group of the model.
    bool isGroupFolded(unsigned group) const;
    /// All groups, and those that come later.
    void foldAll();
    /// The same; as at first.
    void unfoldAll();

    /// Unfolds the group that the row is in, without a report. 0 for none.
    void setCurrentRow(unsigned row);
    unsigned currentRow() const;

    /// Scrolls so that the row is in sight, and unfolds the group that it is in, without a report.
    void scrollTo(unsigned row);
    /// The row at a point of the widget, such as events of the pointer and of drags have; 0 where
    /// there is none.
    unsigned rowAt(VXPoint<int> position) const;
    /// Where the row is in the widget, of a group its header; empty where it is not shown.
    VXRect<int> rowRect(unsigned row) const;
    /// Whether at least a part of the row is in sight.
    bool isRowInSight(unsigned row) const;
    /// A row as it is drawn, for tests and tools; its rectangle is in the widget.
    CellInfo rowInfo(unsigned row) const;

    /// In pixels; one that is not set, as after an empty one, is the style's.
    void setIconSize(Size<int> size);
    Size<int> iconSize() const;

    // As if the user had done it: with events.
    void imitateFold(unsigned group);
    void imitateUnfold(unsigned group);
    void imitateSetCurrentRow(unsigned row);
    /// Of a row in a group, if it is enabled.
    void imitateActivate(unsigned row);

    // Events

    /// The user made another row the current one, or it became that because the current one was
    /// removed; not sent for `setCurrentRow`.
    TROV::Signal<void(const VXGroupViewCurrentEvent2&)> currentChanged() const
    {
        return m_emitters.currentChanged.signal();
    }
    /// The user wants what the row stands for.
    TROV::Signal<void(const VXGroupViewActivateEvent2&)> activated() const
    {
        return m_emitters.activated.signal();
    }
    /// The user folded a group; not sent for `setGroupFolded`.
    TROV::Signal<void(const VXGroupFoldEvent2&)> folded() const
    {
        return m_emitters.folded.signal();
    }
    /// The user unfolded a group: the time to add what is in it, if that is not there yet.
    TROV::Signal<void(const VXGroupUnfoldEvent2&)> unfolded() const
    {
        return m_emitters.unfolded.signal();
    }

protected:
    explicit VXAbstractGroupView2(VXObject2* parent);

    /// The emitters, after the view has learned what its model changed in this turn.
    template <class Emitters>
    const Emitters& current(const Emitters& emitters) const
    {
        m_model.flush();
        return emitters;
    }

    VXAbstractGroupView2Emitters m_emitters;

private:
    ShownModel m_model;
};

} // namespace VOXI

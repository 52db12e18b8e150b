#include "enumtable.h"
#include "voxi2_qt/kernel/qtenums.h"

namespace VOXI {

namespace {
// The first row of each table is what Qt uses unless it is told otherwise.

constexpr auto Triggers = enumTable<EditTrigger, QAbstractItemView::EditTrigger>({
    {EditTrigger::None, QAbstractItemView::NoEditTriggers},
    {EditTrigger::CurrentChanged, QAbstractItemView::CurrentChanged},
    {EditTrigger::DoubleClicked, QAbstractItemView::DoubleClicked},
    {EditTrigger::SelectedClicked, QAbstractItemView::SelectedClicked},
    {EditTrigger::EditKeyPressed, QAbstractItemView::EditKeyPressed},
    {EditTrigger::AnyKeyPressed, QAbstractItemView::AnyKeyPressed},
    {EditTrigger::All, QAbstractItemView::AllEditTriggers},
});

constexpr auto InsertPolicies = enumTable<ComboInsertPolicy, QComboBox::InsertPolicy>({
    {ComboInsertPolicy::AtBottom, QComboBox::InsertAtBottom},
    {ComboInsertPolicy::None, QComboBox::NoInsert},
    {ComboInsertPolicy::AtTop, QComboBox::InsertAtTop},
    {ComboInsertPolicy::AtCurrent, QComboBox::InsertAtCurrent},
    {ComboInsertPolicy::AfterCurrent, QComboBox::InsertAfterCurrent},
    {ComboInsertPolicy::BeforeCurrent, QComboBox::InsertBeforeCurrent},
    {ComboInsertPolicy::Alphabetically, QComboBox::InsertAlphabetically},
});

constexpr auto ResizeModes = enumTable<ColumnResizeMode, QHeaderView::ResizeMode>({
    {ColumnResizeMode::Interactive, QHeaderView::Interactive},
    {ColumnResizeMode::Stretch, QHeaderView::Stretch},
    {ColumnResizeMode::Fixed, QHeaderView::Fixed},
    {ColumnResizeMode::ResizeToContents, QHeaderView::ResizeToContents},
});

constexpr auto Behaviors = enumTable<SelectionBehavior, QAbstractItemView::SelectionBehavior>({
    {SelectionBehavior::Items, QAbstractItemView::SelectItems},
    {SelectionBehavior::Rows, QAbstractItemView::SelectRows},
    {SelectionBehavior::Columns, QAbstractItemView::SelectColumns},
});

constexpr auto Modes = enumTable<SelectionMode, QAbstractItemView::SelectionMode>({
    {SelectionMode::Single, QAbstractItemView::SingleSelection},
    {SelectionMode::None, QAbstractItemView::NoSelection},
    {SelectionMode::Multi, QAbstractItemView::MultiSelection},
    {SelectionMode::Extended, QAbstractItemView::ExtendedSelection},
    {SelectionMode::Contiguous, QAbstractItemView::ContiguousSelection},
});

constexpr auto ElideModes = enumTable<TextElideMode, Qt::TextElideMode>({
    {TextElideMode::Right, Qt::ElideRight},
    {TextElideMode::Left, Qt::ElideLeft},
    {TextElideMode::Middle, Qt::ElideMiddle},
    {TextElideMode::None, Qt::ElideNone},
});
} // namespace

QAbstractItemView::EditTriggers VX2Qt(VXFlags<EditTrigger> triggers) noexcept
{
    return Triggers.toQtFlags<QAbstractItemView::EditTriggers>(triggers);
}

VXFlags<EditTrigger> Qt2VX(QAbstractItemView::EditTriggers triggers) noexcept
{
    return Triggers.toVxFlags(triggers);
}

EditTrigger Qt2VX(QAbstractItemView::EditTrigger trigger) noexcept
{
    return Triggers.toVx(trigger);
}

QComboBox::InsertPolicy VX2Qt(ComboInsertPolicy policy) noexcept
{
    return InsertPolicies.toQt(policy);
}

ComboInsertPolicy Qt2VX(QComboBox::InsertPolicy policy) noexcept
{
    return InsertPolicies.toVx(policy);
}

QHeaderView::ResizeMode VX2Qt(ColumnResizeMode mode) noexcept { return ResizeModes.toQt(mode); }
ColumnResizeMode Qt2VX(QHeaderView::ResizeMode mode) noexcept { return ResizeModes.toVx(mode); }

QAbstractItemView::SelectionBehavior VX2Qt(SelectionBehavior behavior) noexcept
{
    return Behaviors.toQt(behavior);
}

SelectionBehavior Qt2VX(QAbstractItemView::SelectionBehavior behavior) noexcept
{
    return Behaviors.toVx(behavior);
}

QAbstractItemView::SelectionMode VX2Qt(SelectionMode mode) noexcept { return Modes.toQt(mode); }
SelectionMode Qt2VX(QAbstractItemView::SelectionMode mode) noexcept { return Modes.toVx(mode); }
Qt::TextElideMode VX2Qt(TextElideMode mode) noexcept { return ElideModes.toQt(mode); }
TextElideMode Qt2VX(Qt::TextElideMode mode) noexcept { return ElideModes.toVx(mode); }

} // namespace VOXI

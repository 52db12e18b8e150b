#include "voxi2/containers/vxformlayout2.h"

#include "voxi2/controls/vxtext2.h"

#include <algorithm>

namespace VOXI {

VXFormLayout2::VXFormLayout2(VXObject2* parent) : VXGridLayout2(parent) { setColStretch(1, 1); }
VXFormLayout2::~VXFormLayout2() { retire(); }

void VXFormLayout2::addRow(const AnyText& label, VXWidget2* field, int stretch)
{
    const VXObjectDataLocker lock;
    const BuildScope scope;
    if (!isObjectValid(field) || rowOf(field))
        return;
    const unsigned self = id();
    const VXHandle<VXWidget2> kept(field);
    auto* const text = new VXText2(label, this);
    auto* const note = new VXFieldNote2(kept, this);
    // While a worker waits for these, either may end.
    if (!isObjectValid(self))
        return;
    if (!kept.isValid()) {
        text->destroy();
        note->destroy();
        return;
    }
    m_rows.push_back({kept, text, note});
    field->destroyed().connect(this, &VXFormLayout2::dropRow, servingThread());
    text->setBuddy(field);
    const int row = takeRow(stretch);
    addWidget(text, row, 0);
    addWidget(note, row + 1, 1);
    addWidget(field, row, 1); // last: its handlers may do anything
}

void VXFormLayout2::addRow(VXWidget2* widget, int stretch)
{
    addWidget(widget, VXRect<int>::cell(takeRow(stretch), 0, 1, 2));
}

void VXFormLayout2::setValidationState(const VXWidget2* field, ValidationState state,
                                       const AnyText& message)
{
    const VXObjectDataLocker lock;
    if (VXFieldNote2* const own = note(field))
        own->setValidationState(state, message);
}

ValidationState VXFormLayout2::validationState(const VXWidget2* field) const
{
    const VXObjectDataLocker lock;
    const VXFieldNote2* const own = note(field);
    return own ? own->validationState() : ValidationState::None;
}

std::vector<VXWidget2*> VXFormLayout2::fields() const
{
    const VXObjectDataLocker lock;
    std::vector<VXWidget2*> result;
    for (const Row& row : m_rows) {
        if (VXWidget2* const field = row.m_field.get())
            result.push_back(field);
    }
    return result;
}

VXText2* VXFormLayout2::label(const VXWidget2* field) const
{
    const VXObjectDataLocker lock;
    const Row* const row = rowOf(field);
    return row ? row->m_label.get() : nullptr;
}

VXFieldNote2* VXFormLayout2::note(const VXWidget2* field) const
{
    const VXObjectDataLocker lock;
    const Row* const row = rowOf(field);
    return row ? row->m_note.get() : nullptr;
}

/// Null for what is dead, or none of its fields. Under the lock.
const VXFormLayout2::Row* VXFormLayout2::rowOf(const VXWidget2* field) const
{
    const auto found = std::ranges::find_if(
        m_rows, [field](const Row& row) { return field && row.m_field.get() == field; });
    return found == m_rows.end() ? nullptr : &*found;
}

/// Of the grid: the first of two, since a message may stand below.
int VXFormLayout2::takeRow(int stretch)
{
    const VXObjectDataLocker lock;
    const int row = m_nextRow;
    m_nextRow += 2;
    m_isStretched = m_isStretched || stretch > 0;
    setRowStretch(row, stretch);
    setRowStretch(m_nextRow, m_isStretched ? 0 : 1); // the one below all
    return row;
}

void VXFormLayout2::dropRow(unsigned field)
{
    const VXObjectDataLocker lock;
    const auto found =
        std::ranges::find(m_rows, field, [](const Row& row) { return row.m_field.id(); });
    if (found == m_rows.end())
        return;
    const Row row = *found;
    m_rows.erase(found);
    if (VXText2* const label = row.m_label.get())
        label->destroy();
    if (VXFieldNote2* const note = row.m_note.get())
        note->destroy();
}

} // namespace VOXI

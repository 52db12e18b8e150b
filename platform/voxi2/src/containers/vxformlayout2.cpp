#include "voxi2/containers/vxformlayout2.h"

#include "../kernel/notnull.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxtext2.h"

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

/// The rows of the grid that a row of the form has: for a label above, the field, the message.
constexpr int GridRows = 3;
constexpr const char* HasRow = "that has a row already";

/// A label without the sign of its mnemonic.
std::wstring spoken(const AnyText& label)
{
    std::wstring text = label.toWide();
    for (auto at = text.find(L'&'); at != std::wstring::npos; at = text.find(L'&', at + 1))
        text.erase(at, 1);
    return text;
}

/// The first widget in a layout, or in those that lie in it; 0 when there is none.
unsigned firstWidgetIn(const VXHandle<VXLayout2>& layout)
{
    const int count = layout.with([](const VXLayout2& alive) { return alive.count(); });
    for (int i = 0; i < count; ++i) {
        VXObject2* const item =
            layout.with([i](const VXLayout2& alive) { return alive.itemAt(i); });
        if (!VXObject::isObjectValid(item))
            continue;
        if (dynamic_cast<VXWidget2*>(item))
            return item->id();
        auto* const inner = dynamic_cast<VXLayout2*>(item);
        if (const unsigned found = inner ? firstWidgetIn(inner) : 0)
            return found;
    }
    return 0;
}

} // namespace

VXFormLayout2::VXFormLayout2(VXObject2* parent) : VXGridLayout2(parent) { setColStretch(1, 1); }
VXFormLayout2::~VXFormLayout2() { retire(); }

void VXFormLayout2::addRow(const AnyText& label, VXWidget2* field, int stretch)
{
    insertRow(-1, label, field, stretch);
}

void VXFormLayout2::addRow(VXWidget2* widget, int stretch) { insertRow(-1, widget, stretch); }

VXWidget2* VXFormLayout2::addRow(const AnyText& label, VXLayout2* layout, int stretch)
{
    return insertRow(-1, label, layout, stretch);
}

VXWidget2* VXFormLayout2::addRow(VXLayout2* layout, int stretch)
{
    return insertRow(-1, layout, stretch);
}

void VXFormLayout2::insertRow(int position, const AnyText& label, VXWidget2* field, int stretch)
{
    const VXObjectDataLocker lock;
    insertField(position, label, field, field, stretch);
}

void VXFormLayout2::insertField(int position, const AnyText& label, VXWidget2* field,
                                const VXHandle<VXWidget2>& buddy, int stretch, CallPlace where)
{
    const VXObjectDataLocker lock;
    const BuildScope scope;
    if (!canGetRow(field, where))
        return;
    const unsigned self = id();
    const VXHandle<VXWidget2> kept(field);
    auto* const text = new VXText2(label, this);
    auto* const note = new VXFieldNote2(kept, this);
    // While a worker waits for these, either may end, or get a row.
    if (!isObjectValid(self))
        return;
    if (!kept.isValid() || find(field)) {
        text->destroy();
        note->destroy();
        return;
    }
    text->setBuddy(buddy.isValid() ? buddy.get() : field);
    insert(position, {.m_field = kept, .m_label = text, .m_note = note, .m_stretch = stretch});
}

void VXFormLayout2::insertRow(int position, VXWidget2* widget, int stretch)
{
    const VXObjectDataLocker lock;
    if (canGetRow(widget))
        insert(position, {.m_field = widget, .m_stretch = stretch});
}

VXWidget2* VXFormLayout2::insertRow(int position, const AnyText& label, VXLayout2* layout,
                                    int stretch)
{
    const VXObjectDataLocker lock;
    const VXHandle<VXFormLayout2> self(this);
    const VXHandle<VXLayout2> kept(layout);
    const VXHandle<VXWidget2> panel = panelOf(layout);
    const unsigned first = panel.id() != 0 ? firstWidgetIn(kept) : 0;
    if (!self.isValid() || !panel.isValid())
        return nullptr;
    insertField(position, label, panel.get(), static_cast<VXWidget2*>(objectById(first)), stretch);
    panel.with([&](VXWidget2& around) { around.setAccessibleName(spoken(label)); });
    return self.isValid() ? panel.get() : nullptr;
}

VXWidget2* VXFormLayout2::insertRow(int position, VXLayout2* layout, int stretch)
{
    const VXObjectDataLocker lock;
    const VXHandle<VXFormLayout2> self(this);
    const VXHandle<VXWidget2> panel = panelOf(layout);
    if (self.isValid() && panel.isValid())
        insertRow(position, panel.get(), stretch);
    return self.isValid() ? panel.get() : nullptr;
}

void VXFormLayout2::removeRow(const VXWidget2* widget)
{
    const VXObjectDataLocker lock;
    const Row* const row = askedFor(widget);
    if (!row)
        return;
    const VXHandle<VXFormLayout2> self(this);
    const VXHandle<VXWidget2> kept = row->m_field;
    dropRow(kept.id());
    if (self.isValid() && kept.isValid())
        removeWidget(kept.get());
}

void VXFormLayout2::setRowVisible(const VXWidget2* widget, bool visible)
{
    const VXObjectDataLocker lock;
    Row* const row = askedFor(widget);
    if (!row)
        return;
    row->m_isVisible = visible;
    const Row shown = *row; // handlers may do anything
    shown.m_label.with([&](VXText2& label) { label.setVisible(visible); });
    shown.m_note.with([&](VXFieldNote2& note) {
        note.setVisible(visible && note.validationState() != ValidationState::None);
    });
    shown.m_field.with([&](VXWidget2& field) { field.setVisible(visible); });
}

bool VXFormLayout2::isRowVisible(const VXWidget2* widget) const
{
    const VXObjectDataLocker lock;
    const Row* const row = find(widget);
    return row && row->m_isVisible;
}

std::vector<VXWidget2*> VXFormLayout2::rows() const
{
    const VXObjectDataLocker lock;
    std::vector<VXWidget2*> result;
    for (const Row& row : m_rows) {
        if (VXWidget2* const field = row.m_field.get())
            result.push_back(field);
    }
    return result;
}

int VXFormLayout2::rowOf(const VXWidget2* widget) const
{
    const VXObjectDataLocker lock;
    const Row* const row = find(widget);
    return row ? static_cast<int>(row - m_rows.data()) : -1;
}

void VXFormLayout2::setLabelsAbove(bool above)
{
    const VXObjectDataLocker lock;
    m_areLabelsAbove = above;
    arrange(0);
}

bool VXFormLayout2::areLabelsAbove() const
{
    const VXObjectDataLocker lock;
    return m_areLabelsAbove;
}

void VXFormLayout2::setLabelAlignment(Alignment alignment)
{
    const VXObjectDataLocker lock;
    m_labelAlignment = alignment;
    arrange(0);
}

Alignment VXFormLayout2::labelAlignment() const
{
    const VXObjectDataLocker lock;
    return m_labelAlignment;
}

void VXFormLayout2::setLabel(const VXWidget2* field, const AnyText& label)
{
    const VXObjectDataLocker lock;
    if (!askedFor(field))
        return;
    if (VXText2* const text = this->label(field))
        text->setText(label);
    else
        ignored(this, "that row has no label");
}

void VXFormLayout2::setValidationState(const VXWidget2* field, ValidationState state,
                                       const AnyText& message)
{
    const VXObjectDataLocker lock;
    if (!askedFor(field))
        return;
    VXFieldNote2* const own = note(field);
    if (!own) {
        ignored(this, "that row has no label");
        return;
    }
    const VXHandle<VXFieldNote2> kept(own);
    const bool isHidden = !isRowVisible(field);
    own->setValidationState(state, message);
    if (isHidden)
        kept->hide();
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
        if (VXWidget2* const field = row.m_field.get(); field && row.m_label.id() != 0)
            result.push_back(field);
    }
    return result;
}

VXText2* VXFormLayout2::label(const VXWidget2* field) const
{
    const VXObjectDataLocker lock;
    const Row* const row = find(field);
    return row ? row->m_label.get() : nullptr;
}

VXFieldNote2* VXFormLayout2::note(const VXWidget2* field) const
{
    const VXObjectDataLocker lock;
    const Row* const row = find(field);
    return row ? row->m_note.get() : nullptr;
}

/// Null for what is dead, or has no row. Under the lock.
const VXFormLayout2::Row* VXFormLayout2::find(const VXWidget2* widget) const
{
    const auto found = std::ranges::find_if(
        m_rows, [widget](const Row& row) { return widget && row.m_field.get() == widget; });
    return found == m_rows.end() ? nullptr : &*found;
}

VXFormLayout2::Row* VXFormLayout2::find(const VXWidget2* widget)
{
    return const_cast<Row*>(std::as_const(*this).find(widget));
}

/// What a request is about; null where that has no row, which is told.
VXFormLayout2::Row* VXFormLayout2::askedFor(const VXWidget2* widget, CallPlace where)
{
    Row* const row = find(widget);
    if (!row && (!widget || isObjectValid(widget)))
        ignored(this, widget ? "that has no row here" : Reason::Null, where);
    return row;
}

bool VXFormLayout2::canGetRow(const VXWidget2* widget, CallPlace where) const
{
    if (isObjectValid(widget) && !find(widget))
        return true;
    if (!widget || isObjectValid(widget))
        ignored(this, widget ? HasRow : Reason::Null, where);
    return false;
}

/// A new widget that the layout fills, and that ends with it; null where it cannot.
VXWidget2* VXFormLayout2::panelOf(VXLayout2* layout, CallPlace where)
{
    const BuildScope scope;
    if (!isObjectValid(layout)) {
        if (!layout)
            ignored(this, Reason::Null, where);
        return nullptr;
    }
    for (const VXObject2* around = this; around; around = around->parent()) {
        if (around == layout) {
            ignored(this, Reason::HoldsThis, where);
            return nullptr;
        }
    }
    if (VXObject2* const around = layout->parent();
        around && around->parent() == this && find(dynamic_cast<VXWidget2*>(around))) {
        ignored(this, HasRow, where);
        return nullptr;
    }
    const VXHandle<VXFormLayout2> self(this);
    const VXHandle<VXLayout2> kept(layout);
    const VXHandle<VXPanel2> panel(new VXPanel2(this));
    // As if it lay in the form itself: a widget would give it margins of the style's.
    const auto margins = kept.with([](const VXLayout2& alive) { return alive.margins(); });
    // While a worker waits for these, the form may end.
    if (self.isValid())
        kept.with([&](VXLayout2& alive) { alive.setParent(panel.get()); });
    if (!self.isValid() || !panel.isValid() || !kept.isValid()
        || kept.get()->parent() != panel.get()) {
        panel->destroy();
        return nullptr;
    }
    kept.with([&](VXLayout2& alive) {
        alive.setMargins(margins);
        alive.destroyed().connect(panel.get(), &VXPanel2::destroy, servingThread());
    });
    return panel.get();
}

void VXFormLayout2::insert(int position, const Row& row)
{
    row.m_field.with([this](VXWidget2& field) {
        field.destroyed().connect(this, &VXFormLayout2::dropRow, servingThread());
    });
    const auto count = m_rows.size();
    const auto index = position < 0 ? count : std::min<std::size_t>(position, count);
    m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(index), row);
    arrange(index);
}

/// Puts the rows from that one on where they belong. Handlers of what is moved may change the form:
/// then what they began does the rest.
void VXFormLayout2::arrange(std::size_t from)
{
    const unsigned self = id();
    const unsigned own = ++m_arrangement;
    m_arranged = std::min(from, m_arranged);
    while (m_arranged < m_rows.size()) {
        place(static_cast<int>(m_arranged++));
        if (!isObjectValid(self) || m_arrangement != own)
            return;
    }
    const bool isStretched =
        std::ranges::any_of(m_rows, [](const Row& row) { return row.m_stretch > 0; });
    const int below = static_cast<int>(m_rows.size()) * GridRows;
    setRowStretch(below, isStretched ? 0 : 1);
    for (int row = below + 1; row <= below + GridRows; ++row) // one has been removed
        setRowStretch(row, 0);
}

void VXFormLayout2::place(int index)
{
    Row& row = m_rows[static_cast<std::size_t>(index)];
    const bool isNew = !std::exchange(row.m_isPlaced, true);
    const VXHandle<VXFormLayout2> self(this);
    const auto put = [self, isNew](auto handle, const VXRect<int>& cell) {
        if (!self.isValid() || !handle.isValid())
            return;
        // What the program has taken out of the layout stays where it is.
        if (isNew)
            self.get()->addWidget(handle.get(), cell);
        else
            self.get()->setCell(handle.get(), cell);
    };
    const int first = index * GridRows;
    const Row placed = row; // handlers may do anything from here on
    setRowStretch(first, 0);
    setRowStretch(first + 1, placed.m_stretch);
    setRowStretch(first + 2, 0);
    if (placed.m_label.id() == 0) {
        put(placed.m_field, VXRect<int>::cell(first + 1, 0, 1, 2));
        return;
    }
    put(placed.m_label,
        m_areLabelsAbove ? VXRect<int>::cell(first, 0, 1, 2) : VXRect<int>::cell(first + 1, 0));
    if (self.isValid())
        setAlignment(placed.m_label.get(), m_labelAlignment);
    const int column = m_areLabelsAbove ? 0 : 1;
    put(placed.m_note, VXRect<int>::cell(first + 2, column, 1, 2 - column));
    put(placed.m_field, VXRect<int>::cell(first + 1, column, 1, 2 - column));
}

void VXFormLayout2::dropRow(unsigned field)
{
    const VXObjectDataLocker lock;
    const auto found =
        std::ranges::find(m_rows, field, [](const Row& row) { return row.m_field.id(); });
    if (found == m_rows.end())
        return;
    const Row row = *found;
    const auto index = static_cast<std::size_t>(found - m_rows.begin());
    m_rows.erase(found);
    const VXHandle<VXFormLayout2> self(this);
    row.m_label.with([](VXText2& label) { label.destroy(); });
    row.m_note.with([](VXFieldNote2& note) { note.destroy(); });
    if (self.isValid())
        arrange(std::min(index, m_rows.size()));
}

} // namespace VOXI

#pragma once

#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/controls/vxfieldnote2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <cstddef>
#include <vector>

namespace VOXI {

class VXText2;

/// Places fields below each other, each with a label before it, and a message below it when there
/// is something to say of it.
///
///     auto* form = new VXFormLayout2(page);
///     form->addRow("&Name", edit);
///     form->setValidationState(edit, ValidationState::Error, "We need to call you something.");
///
/// It owns labels and messages, not the fields; the row of a field that ends, goes. Where they lie
/// in the grid is the form's own affair.
class VOXI2_EXPORT VXFormLayout2 : public VXGridLayout2
{
public:
    using ToolkitClass = VXFormLayout2;

    /// Lays out the inside of `parent`, if it is a widget without a layout.
    explicit VXFormLayout2(VXObject2* parent = nullptr);
    ~VXFormLayout2() override;

    // Rows. Null, dead widgets, and those that have a row are ignored.

    /// Appends a field, whose label gives it the focus by its mnemonic and is read as its name.
    /// Room to spare goes to rows in proportion to their stretch; where no row has one it stays
    /// below all.
    void addRow(const AnyText& label, VXWidget2* field, int stretch = 0);
    /// Appends a widget that takes the whole width, buttons for example.
    void addRow(VXWidget2* widget, int stretch = 0);
    /// The same with a layout: a path with a button behind it, for example. It moves into a widget
    /// of its own, which stands for it wherever a row is named, ends with it, and belongs to the
    /// form. Null, and nothing happens, for null and dead layouts, those inside another one, and
    /// those that the form lies in. The label's mnemonic goes to the first widget that is in it
    /// then; what is read before all of them is the label's text at that time.
    VXWidget2* addRow(const AnyText& label, VXLayout2* layout, int stretch = 0);
    VXWidget2* addRow(VXLayout2* layout, int stretch = 0);
    /// The same before the row at a position; -1, and any beyond the end, appends.
    void insertRow(int position, const AnyText& label, VXWidget2* field, int stretch = 0);
    void insertRow(int position, VXWidget2* widget, int stretch = 0);
    VXWidget2* insertRow(int position, const AnyText& label, VXLayout2* layout, int stretch = 0);
    VXWidget2* insertRow(int position, VXLayout2* layout, int stretch = 0);
    /// A plain `nullptr` is no field and no layout either: ignored as any null, whichever was
    /// meant.
    void addRow(const AnyText& label, std::nullptr_t, int = 0) { addRow(label, NoField); }
    void addRow(std::nullptr_t, int = 0) { addRow(NoField); }
    void insertRow(int position, const AnyText& label, std::nullptr_t, int = 0)
    {
        insertRow(position, label, NoField);
    }
    void insertRow(int position, std::nullptr_t, int = 0) { insertRow(position, NoField); }
    /// Takes a row out. Its label and message end; the field, or wide widget, stays where it is
    /// until moved.
    void removeRow(const VXWidget2* widget);

    /// Shows or hides a field together with its label and message.
    void setRowVisible(const VXWidget2* widget, bool visible);
    /// As last set by `setRowVisible`; false for what has no row.
    bool isRowVisible(const VXWidget2* widget) const;
    /// What stands in the rows, fields and wide widgets, from the first on.
    std::vector<VXWidget2*> rows() const;
    /// The row's position from 0; -1 for what has no row.
    int rowOf(const VXWidget2* widget) const;

    // Labels

    /// Whether labels stand above their fields, for narrow forms; before them by default.
    void setLabelsAbove(bool above);
    bool areLabelsAbove() const;
    /// Where the labels stand in their room, `AlignmentFlag::Right` for example; empty, as by
    /// default, they fill it.
    void setLabelAlignment(Alignment alignment);
    Alignment labelAlignment() const;
    /// Changes the text of a label.
    void setLabel(const VXWidget2* field, const AnyText& label);

    // What is thought of the fields

    /// Says what is thought of what stands in a field; see `VXFieldNote2`.
    void setValidationState(const VXWidget2* field, ValidationState state,
                            const AnyText& message = {});
    /// `None` for what is no field of the form, too.
    ValidationState validationState(const VXWidget2* field) const;

    /// The fields with a label that there are, in the order of their rows.
    std::vector<VXWidget2*> fields() const;
    /// Null when it is no field of the form.
    VXText2* label(const VXWidget2* field) const;
    VXFieldNote2* note(const VXWidget2* field) const;

private:
    static constexpr VXWidget2* NoField = nullptr;

    struct Row
    {
        VXHandle<VXWidget2> m_field;
        VXHandle<VXText2> m_label{};     ///< none for a wide one
        VXHandle<VXFieldNote2> m_note{}; ///< none for a wide one
        int m_stretch = 0;
        bool m_isVisible = true;
        bool m_isPlaced = false; ///< has been in the grid
    };

    const Row* find(const VXWidget2* widget) const;
    Row* find(const VXWidget2* widget);
    Row* askedFor(const VXWidget2* widget, CallPlace where = CallPlace::current());
    bool canGetRow(const VXWidget2* widget, CallPlace where = CallPlace::current()) const;
    VXWidget2* panelOf(VXLayout2* layout, CallPlace where = CallPlace::current());
    void insertField(int position, const AnyText& label, VXWidget2* field,
                     const VXHandle<VXWidget2>& buddy, int stretch,
                     CallPlace where = CallPlace::current());
    void insert(int position, const Row& row);
    void arrange(std::size_t from);
    void place(int index);
    void dropRow(unsigned field);

    // Guarded by the object lock
    std::vector<Row> m_rows;
    std::size_t m_arranged = 0; ///< how many rows are where they belong
    unsigned m_arrangement = 0; ///< the number of the last one
    Alignment m_labelAlignment;
    bool m_areLabelsAbove = false;
};

} // namespace VOXI

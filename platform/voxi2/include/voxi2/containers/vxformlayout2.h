#pragma once

#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/controls/vxfieldnote2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

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
/// It owns labels and messages, not the fields; the row of a field that ends, goes.
class VOXI2_EXPORT VXFormLayout2 : public VXGridLayout2
{
public:
    using ToolkitClass = VXFormLayout2;

    /// Lays out the inside of `parent`, if it is a widget without a layout.
    explicit VXFormLayout2(VXObject2* parent = nullptr);
    ~VXFormLayout2() override;

    /// Appends a field, whose label gives it the focus by its mnemonic and is read as its name.
    /// Null, dead ones, and those that have a row are ignored. Room to spare goes to rows in
    /// proportion to their stretch; where no row has one it stays below all.
    void addRow(const AnyText& label, VXWidget2* field, int stretch = 0);
    /// Appends a widget that takes the whole width, buttons for example.
    void addRow(VXWidget2* widget, int stretch = 0);

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
    struct Row
    {
        VXHandle<VXWidget2> m_field;
        VXHandle<VXText2> m_label;
        VXHandle<VXFieldNote2> m_note;
    };

    const Row* rowOf(const VXWidget2* field) const;
    int takeRow(int stretch);
    void dropRow(unsigned field);

    // Guarded by the object lock
    std::vector<Row> m_rows;
    int m_nextRow = 0;
    bool m_isStretched = false; ///< a row is
};

} // namespace VOXI

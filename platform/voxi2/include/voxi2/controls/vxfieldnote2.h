#pragma once

#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <string>

namespace VOXI {

class VXText2;

/// What is thought of what stands in a field.
enum class ValidationState { None, Good, Warning, Error };

/// Says below a field, or wherever it is put, whether what stands in the field is right: by a sign
/// in the state's colour and a message, by the field's highlight, and to assistive programs by the
/// field's accessible description.
///
/// It is hidden while there is nothing to say. The field may be any widget; its highlight and its
/// description belong to the note as long as that shows a state. In a `VXFormLayout2` each field
/// has one.
class VOXI2_EXPORT VXFieldNote2 : public VXPanel2
{
public:
    using ToolkitClass = VXFieldNote2;

    /// The parent is the owner, and need not be the field's. With a field that is null or has gone
    /// it shows no more than the message.
    explicit VXFieldNote2(VXHandle<VXWidget2> field = {}, VXObject2* parent = nullptr);
    ~VXFieldNote2() override;

    /// `None` hides the note. A message is a plain text, and may be empty.
    void setValidationState(ValidationState state, const AnyText& message = {});
    ValidationState validationState() const;
    /// The message last set.
    std::wstring message() const;

private:
    const VXHandle<VXWidget2> m_field;
    const std::wstring m_description; ///< that the field had
    VXText2* const m_sign;
    VXText2* const m_text;

    // Guarded by the object lock
    ValidationState m_state = ValidationState::None;
    std::wstring m_message;
};

} // namespace VOXI

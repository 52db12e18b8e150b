#pragma once

#include "voxi2/modelview/vxsimplepropertyeditorfactory2.h"
#include "voxi2/voxi2_export.h"

#include <functional>
#include <map>
#include <memory>

namespace VOXI {

/// Editors for all types of properties, made of the toolkit's own widgets.
///
/// A check box, a combo box, and a menu of flags change the property at once; what is typed counts
/// when the user is done. A whole number has a spin box where its range is one of `int`, otherwise
/// a line; other numbers have a line with two small buttons that step. Text of several lines is
/// edited in one, with `\n` for a line break, or in a dialog; texts of more than 32 767 characters
/// can only be read in a line. A colour is chosen from a palette or typed; a file is typed or
/// chosen in a dialog. Fonts, dates and the user's own types are typed.
///
/// One may serve several browsers.
class VOXI2_EXPORT VXStandardPropertyEditors2 : public VXSimplePropertyEditorFactory2
{
public:
    VXStandardPropertyEditors2();
    ~VXStandardPropertyEditors2() override;

    /// One for the whole process.
    static std::shared_ptr<VXStandardPropertyEditors2> shared();

    unsigned createEditor(VXSimplePropertyBrowser2& browser, VXSimpleProperty2& property) override;
    void commitEditor(VXSimpleProperty2& property, unsigned editor) override;
    void releaseEditor(unsigned editor) override;

private:
    using Commit = std::function<void(VXSimpleProperty2&)>;

    std::map<unsigned, Commit> m_commits; ///< by the editors' ids
};

} // namespace VOXI

#pragma once

#include "voxi2/voxi2_export.h"

namespace VOXI {

class VXSimpleProperty2;
class VXSimplePropertyBrowser2;

/// Makes the editors of a property browser. All of it is called on the toolkit's thread, mostly
/// under the object lock; it may end anything. What it throws goes to the thread's exception
/// handler, and nothing is edited then.
class VOXI2_EXPORT VXSimplePropertyEditorFactory2
{
public:
    VXSimplePropertyEditorFactory2() = default;
    VXSimplePropertyEditorFactory2(const VXSimplePropertyEditorFactory2&) = delete;
    VXSimplePropertyEditorFactory2& operator=(const VXSimplePropertyEditorFactory2&) = delete;
    virtual ~VXSimplePropertyEditorFactory2();

    /// Makes a widget that edits the property, best with the browser as its parent, and answers its
    /// id; 0 when the property is not to be edited.
    virtual unsigned createEditor(VXSimplePropertyBrowser2& browser,
                                  VXSimpleProperty2& property) = 0;

    /// The user is done with the editor: what it has goes into the property. Not called where he
    /// gives up. An editor may as well change the property while it is open.
    virtual void commitEditor(VXSimpleProperty2& property, unsigned editor);

    /// The editor has been closed, and is hidden by now; destroys it unless it is overridden.
    /// Called once for each editor, when the toolkit is through with it; the editor, the property
    /// or the browser may have ended.
    virtual void releaseEditor(unsigned editor);
};

} // namespace VOXI

#pragma once

#include "voxi2/kernel/vxhandle.h"

#include <optional>
#include <type_traits>

namespace VOXI {

/// Asks by a new dialog: sets it up with `prepare`, shows it and waits as `exec` does, and returns
/// what `answer` takes from it, both given its handle; nothing unless it was accepted.
template <class Dialog, class Prepare, class Answer>
auto askByDialog(VXObject2* parent, const AnyText& title, const Prepare& prepare,
                 const Answer& answer)
{
    VXHandle<Dialog> dialog;
    {
        // While a worker waits for the peer the parent may end, and the dialog with it.
        const VXObjectDataLocker lock;
        const VXObject2::BuildScope scope;
        if (!parent || VXObject::isObjectValid(parent))
            dialog = new Dialog(parent);
    }
    if (!title.isEmpty())
        dialog->setTitle(title);
    prepare(dialog);
    std::optional<std::invoke_result_t<Answer, const VXHandle<Dialog>&>> result;
    if (dialog->exec() == Dialog::Accepted)
        result = answer(dialog);
    dialog->destroy();
    return result;
}

} // namespace VOXI

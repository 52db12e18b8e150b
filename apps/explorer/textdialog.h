#pragma once

#include "voxi2/kernel/vxobject2.h"

#include <functional>
#include <string>

namespace explorer {

/// A dialog for a text of many lines.
struct TextDialog
{
    /// Shows it and returns; `accepted` gets the text if the user keeps it.
    static void open(VOXI::VXObject2* parent, const std::string& title, const std::wstring& text,
                     std::function<void(const std::wstring&)> accepted);
};

} // namespace explorer

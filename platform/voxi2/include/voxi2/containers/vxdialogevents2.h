#pragma once

#include "voxi2/kernel/vxevent2.h"

#include <filesystem>
#include <vector>

namespace VOXI {

class VXAbstractDialog2;
class VXFileDialog2;

/// The user has ended a dialog.
class VXDialogEvent2 : public VXEvent2<VXAbstractDialog2, int>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractDialog2* dialog() const noexcept { return sender(); }
    int result() const noexcept { return value(); }
    /// Whether the result is `VXAbstractDialog2::Accepted`.
    bool isAccepted() const noexcept { return result() == 1; }
};

/// The user has chosen files.
class VXFileDialogEvent2 : public VXEvent2<VXFileDialog2, std::vector<std::filesystem::path>>
{
public:
    using VXEvent2::VXEvent2;
    VXFileDialog2* dialog() const noexcept { return sender(); }
    /// Absolute; never empty.
    const std::vector<std::filesystem::path>& files() const noexcept { return value(); }
};

/// The user looks at a file or directory, or goes to one.
class VXFilePathEvent2 : public VXEvent2<VXFileDialog2, std::filesystem::path>
{
public:
    using VXEvent2::VXEvent2;
    VXFileDialog2* dialog() const noexcept { return sender(); }
    /// Absolute; empty when nothing is selected any more.
    const std::filesystem::path& path() const noexcept { return value(); }
};

} // namespace VOXI

#pragma once

#include <filesystem>
#include <utility>
#include <vector>

namespace VOXI {

class VXAbstractDialog2;
class VXFileDialog2;

/// The user has ended a dialog.
class VXDialogEvent2
{
public:
    VXDialogEvent2(VXAbstractDialog2* dialog, int result) noexcept
        : m_dialog(dialog),
          m_result(result)
    {}

    VXAbstractDialog2* dialog() const noexcept { return m_dialog; }
    int result() const noexcept { return m_result; }
    /// Whether the result is `VXAbstractDialog2::Accepted`.
    bool isAccepted() const noexcept { return m_result == 1; }

private:
    VXAbstractDialog2* m_dialog;
    int m_result;
};

/// The user has chosen files.
class VXFileDialogEvent2
{
public:
    VXFileDialogEvent2(VXFileDialog2* dialog, std::vector<std::filesystem::path> files)
        : m_dialog(dialog),
          m_files(std::move(files))
    {}

    VXFileDialog2* dialog() const noexcept { return m_dialog; }
    /// Absolute; never empty.
    const std::vector<std::filesystem::path>& files() const noexcept { return m_files; }

private:
    VXFileDialog2* m_dialog;
    std::vector<std::filesystem::path> m_files;
};

} // namespace VOXI

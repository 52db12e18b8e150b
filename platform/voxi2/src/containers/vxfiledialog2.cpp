#include "voxi2/containers/vxfiledialog2.h"

#include "askbydialog.h"

#include <atomic>
#include <system_error>

namespace VOXI {

namespace {

std::atomic<bool> s_isNativeByDefault{false};

} // namespace

VXFileDialog2::VXFileDialog2(VXObject2* parent)
    : VXAbstractDialog2(parent),
      m_emitters(VXAbstractDialog2::m_emitters)
{
    // Back ends give all dialogs the same flags, whatever is asked for here.
    createPeer(&VXFactory2::createFileDialog2, this, &m_emitters, parent, 0u);
    if (s_isNativeByDefault)
        setNative(true);
}

VXFileDialog2::~VXFileDialog2() { retire(); }

// Asking at once ----------------------------------------------------------------------------------

namespace {

using Dialog = VXHandle<VXFileDialog2>;

/// Shows a new dialog that `prepare` has set up, and returns what was chosen.
template <class Prepare>
std::vector<VXFileDialog2::Path> choose(VXObject2* parent, FileDialogMode mode,
                                        const AnyText& title, const Prepare& prepare)
{
    const auto prepareAll = [&](const Dialog& dialog) {
        dialog->setMode(mode);
        prepare(dialog);
    };
    const auto files = askByDialog<VXFileDialog2>(
        parent, title, prepareAll, [](const Dialog& dialog) { return dialog->selectedFiles(); });
    return files.value_or(std::vector<VXFileDialog2::Path>());
}

VXFileDialog2::Path first(const std::vector<VXFileDialog2::Path>& files)
{
    return files.empty() ? VXFileDialog2::Path() : files.front();
}

} // namespace

VXFileDialog2::Path VXFileDialog2::openFile(VXObject2* parent, const AnyText& title,
                                            const Path& directory,
                                            const std::vector<FileFilter>& filters)
{
    return first(choose(parent, FileDialogMode::OpenFile, title, [&](const Dialog& dialog) {
        dialog->setDirectory(directory);
        dialog->setFilters(filters);
    }));
}

std::vector<VXFileDialog2::Path> VXFileDialog2::openFiles(VXObject2* parent, const AnyText& title,
                                                          const Path& directory,
                                                          const std::vector<FileFilter>& filters)
{
    return choose(parent, FileDialogMode::OpenFiles, title, [&](const Dialog& dialog) {
        dialog->setDirectory(directory);
        dialog->setFilters(filters);
    });
}

VXFileDialog2::Path VXFileDialog2::saveFile(VXObject2* parent, const AnyText& title,
                                            const Path& file,
                                            const std::vector<FileFilter>& filters,
                                            const AnyText& defaultSuffix)
{
    return first(choose(parent, FileDialogMode::SaveFile, title, [&](const Dialog& dialog) {
        dialog->setFilters(filters);
        dialog->setDefaultSuffix(defaultSuffix);
        std::error_code error;
        if (std::filesystem::is_directory(file, error))
            dialog->setDirectory(file);
        else
            dialog->selectFile(file);
    }));
}

VXFileDialog2::Path VXFileDialog2::chooseDirectory(VXObject2* parent, const AnyText& title,
                                                   const Path& directory)
{
    return first(choose(parent, FileDialogMode::Directory, title,
                        [&](const Dialog& dialog) { dialog->setDirectory(directory); }));
}

// Requests ----------------------------------------------------------------------------------------

void VXFileDialog2::setMode(FileDialogMode mode) { m_emitters.setMode(mode); }
FileDialogMode VXFileDialog2::mode() const { return m_emitters.getMode(); }
void VXFileDialog2::setDirectory(const Path& directory) { m_emitters.setDirectory(directory); }
VXFileDialog2::Path VXFileDialog2::directory() const { return m_emitters.getDirectory(); }

void VXFileDialog2::setFilters(const std::vector<FileFilter>& filters)
{
    m_emitters.setFilters(filters);
}

std::vector<FileFilter> VXFileDialog2::filters() const { return m_emitters.getFilters(); }
void VXFileDialog2::setSelectedFilter(int index) { m_emitters.setSelectedFilter(index); }
int VXFileDialog2::selectedFilter() const { return m_emitters.getSelectedFilter(); }

void VXFileDialog2::setDefaultSuffix(const AnyText& suffix)
{
    suffix.passWideTo(m_emitters.setDefaultSuffix);
}

std::wstring VXFileDialog2::defaultSuffix() const { return m_emitters.getDefaultSuffix(); }
void VXFileDialog2::setConfirmOverwrite(bool confirm) { m_emitters.setConfirmOverwrite(confirm); }
bool VXFileDialog2::confirmsOverwrite() const { return m_emitters.confirmsOverwrite(); }

void VXFileDialog2::setLabel(FileDialogLabel label, const AnyText& text)
{
    text.passWideTo([&](const std::wstring& wide) { m_emitters.setLabel(label, wide); });
}

void VXFileDialog2::selectFile(const Path& file) { m_emitters.selectFile(file); }

std::vector<VXFileDialog2::Path> VXFileDialog2::selectedFiles() const
{
    return m_emitters.getSelectedFiles();
}

void VXFileDialog2::setPlaces(const std::vector<Path>& places) { m_emitters.setPlaces(places); }
std::vector<VXFileDialog2::Path> VXFileDialog2::places() const { return m_emitters.getPlaces(); }
std::string VXFileDialog2::saveState() const { return m_emitters.saveState(); }
bool VXFileDialog2::restoreState(const std::string& state)
{
    return m_emitters.restoreState(state);
}

void VXFileDialog2::setNative(bool native) { m_emitters.setNative(native); }
bool VXFileDialog2::isNative() const { return m_emitters.isNative(); }
void VXFileDialog2::setNativeByDefault(bool native) { s_isNativeByDefault = native; }

} // namespace VOXI

#pragma once

#include "voxi2/containers/vxabstractdialog2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

/// What a file dialog lets the user choose.
enum class FileDialogMode {
    OpenFile,  ///< one file that exists
    OpenFiles, ///< files that exist
    SaveFile,  ///< one file, that may exist or not
    Directory  ///< a directory that exists
};

/// The texts of a file dialog that the program may give.
enum class FileDialogLabel {
    Directory, ///< before the directory that is shown
    FileName,  ///< before the name
    Filter,    ///< before the filters
    Accept,    ///< on the button that chooses
    Cancel     ///< on the button that does not
};

/// The files that a file dialog shows: `{"Pictures", {"*.png", "*.jpg"}}`.
struct FileFilter
{
    /// For the user; the dialog adds the patterns to it. Filters may read the same.
    std::wstring name;
    /// With the wild cards `*` and `?`, in UTF-8; upper and lower case are the same. A character
    /// that is no plain letter, digit or sign counts as `?`. None at all stands for all files.
    std::vector<std::string> patterns;

    FileFilter() = default;
    FileFilter(const AnyText& filterName, std::vector<std::string> filterPatterns = {})
        : name(filterName.toWide()),
          patterns(std::move(filterPatterns))
    {}

    friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

struct VXFileDialog2Emitters : TROV::EmittersTable<VXAbstractDialog2Emitters>
{
    using EmittersTable::EmittersTable;
    using Path = std::filesystem::path;

    TROV::Request<void(FileDialogMode)> setMode{*this};
    TROV::Request<void(Path)> setDirectory{*this};
    TROV::Request<void(std::vector<FileFilter>)> setFilters{*this};
    TROV::Request<void(int)> setSelectedFilter{*this};
    TROV::Request<void(std::wstring)> setDefaultSuffix{*this};
    TROV::Request<void(bool)> setConfirmOverwrite{*this};
    TROV::Request<void(Path)> selectFile{*this};
    TROV::Request<FileDialogMode()> getMode{*this};
    TROV::Request<Path()> getDirectory{*this};
    TROV::Request<std::vector<FileFilter>()> getFilters{*this};
    TROV::Request<int()> getSelectedFilter{*this};
    TROV::Request<std::wstring()> getDefaultSuffix{*this};
    TROV::Request<bool()> confirmsOverwrite{*this};
    TROV::Request<std::vector<Path>()> getSelectedFiles{*this};
    TROV::Request<void(FileDialogLabel, std::wstring)> setLabel{*this};
    TROV::Request<void(std::vector<Path>)> setPlaces{*this};
    TROV::Request<std::vector<Path>()> getPlaces{*this};
    TROV::Request<std::string()> saveState{*this};
    TROV::Request<bool(std::string)> restoreState{*this};
    TROV::Request<void(bool)> setNative{*this};
    TROV::Request<bool()> isNative{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXFileDialogEvent2&)> filesChosen{*this};
    TROV::Event<void(const VXFilePathEvent2&)> currentChanged{*this};
    TROV::Event<void(const VXFilePathEvent2&)> directoryEntered{*this};
};

/// Lets the user choose files or a directory.
///
/// File names are `std::filesystem::path`, whose bytes are UTF-8 whatever the encoding of texts is:
/// a name comes back as it is on the disk. A name that is no UTF-8 cannot be chosen.
///
/// The dialog's own texts are in the language of the back end's toolkit, unless there is a
/// translation (see `setTranslation`) or `setLabel` gives them.
///
/// The usual cases are one call each:
///
///     const auto file = VXFileDialog2::openFile(window, "Open", {}, {{"Text", {"*.txt"}}});
///     if (!file.empty())
///         load(file);
class VOXI2_EXPORT VXFileDialog2 : public VXAbstractDialog2
{
public:
    using ToolkitClass = VXFileDialog2;

    using Path = std::filesystem::path;

    explicit VXFileDialog2(VXObject2* parent = nullptr);
    ~VXFileDialog2() override;

    // Ask, and wait for the answer as `exec` does; empty when the user cancels, without a back end,
    // and when the parent has ended or ends meanwhile. An empty directory stands for the one that
    // the user was in last.

    static Path openFile(VXObject2* parent, const AnyText& title, const Path& directory = {},
                         const std::vector<FileFilter>& filters = {});
    static std::vector<Path> openFiles(VXObject2* parent, const AnyText& title,
                                       const Path& directory = {},
                                       const std::vector<FileFilter>& filters = {});
    /// Proposes `file`: a name, a directory with a name, or a directory that exists alone.
    static Path saveFile(VXObject2* parent, const AnyText& title, const Path& file = {},
                         const std::vector<FileFilter>& filters = {},
                         const AnyText& defaultSuffix = {});
    static Path chooseDirectory(VXObject2* parent, const AnyText& title,
                                const Path& directory = {});

    /// `OpenFile` by default.
    void setMode(FileDialogMode mode);
    FileDialogMode mode() const;

    /// What the dialog shows; a directory that does not exist is ignored.
    void setDirectory(const Path& directory);
    Path directory() const;

    /// The filters that the user may choose from, the first one at first; none: all files.
    void setFilters(const std::vector<FileFilter>& filters);
    std::vector<FileFilter> filters() const;
    /// By its place in the list; others are ignored.
    void setSelectedFilter(int index);
    /// The filter that the user works with; -1 when there are none.
    int selectedFilter() const;

    /// What a name without a suffix gets when a file is saved, without the dot; empty for nothing.
    void setDefaultSuffix(const AnyText& suffix);
    std::wstring defaultSuffix() const;

    /// Whether the user is asked before a file that exists is chosen for saving; on by default.
    void setConfirmOverwrite(bool confirm);
    bool confirmsOverwrite() const;

    /// With `&` before the mnemonic; an empty text brings the usual one back.
    void setLabel(FileDialogLabel label, const AnyText& text);

    /// The directories at the dialog's side, to go to with one click; the user's own and the root
    /// at first. Those that do not exist are left out.
    void setPlaces(const std::vector<Path>& places);
    std::vector<Path> places() const;

    /// How the user has arranged the dialog and where he was, as one line of printable text for
    /// `restoreState` in a later run: directory, places, list or details, widths.
    std::string saveState() const;
    /// Text that did not come whole from `saveState` of a file dialog is refused: the answer is
    /// false and nothing changes.
    bool restoreState(const std::string& state);

    /// Whether the user gets the platform's own file dialog the next time that this one is shown;
    /// off by default. Where the platform has none, or the back end cannot reach it, nothing
    /// changes.
    ///
    /// The platform's dialog is no widget: size, place, look and key and mouse events are its own,
    /// and nothing can be put into it. `setPlaces`, and what `saveState` keeps of the looks, do not
    /// concern it; of the labels it knows `Accept` and `Cancel` at most; before a file is replaced
    /// it asks in its own way. `currentChanged` and `directoryEntered` are sent if it tells. All
    /// else is as usual: mode, directory, filters, what is proposed and chosen, `closing`,
    /// `finished`.
    void setNative(bool native);
    bool isNative() const;
    /// The same for all file dialogs that are made from now on, those of `openFile` and the like
    /// among them. Any thread.
    static void setNativeByDefault(bool native);

    /// Proposes a file. With a directory in its name the dialog goes there.
    void selectFile(const Path& file);
    /// What is chosen, or would be if the user accepted now; absolute names.
    std::vector<Path> selectedFiles() const;

    // Events

    /// The user has chosen; sent before `finished()`. Not sent for `accept()`.
    TROV::Signal<void(const VXFileDialogEvent2&)> filesChosen() const
    {
        return m_emitters.filesChosen.signal();
    }
    /// The user has gone to a file or directory in the list, which may be shown elsewhere.
    TROV::Signal<void(const VXFilePathEvent2&)> currentChanged() const
    {
        return m_emitters.currentChanged.signal();
    }
    /// The user has had the dialog show another directory.
    TROV::Signal<void(const VXFilePathEvent2&)> directoryEntered() const
    {
        return m_emitters.directoryEntered.signal();
    }

private:
    VXFileDialog2Emitters m_emitters;
};

} // namespace VOXI

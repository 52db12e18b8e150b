#pragma once

#include "qthost/eventloopbinding.h"
#include "qthost/qthost_export.h"
#include "voxi_util/textencoding.h"

#include <memory>
#include <string>

class QApplication;

namespace VOXI {

class ApplicationLanguage;
class VXObject;

/// Makes a program a host of the toolkit, in its `main`:
///
///     int main(int argc, char** argv)
///     {
///         VOXI::QtHost host(argc, argv);
///         Application application;      // voxi2 only
///         return host.exec();
///     }
///
/// Uses the `QApplication` that exists, or makes one. One that it makes speaks the user's language
/// as far as Qt's and the library's translations go: the system's locale says which that is, and
/// what is missing stays English. Nothing is installed in one that exists; its program calls
/// `setLanguage` if it likes. The toolkit is taken down by the destructor;
/// it cannot be brought up again in the process.
class QTHOST_EXPORT QtHost
{
public:
    /// `argc` and `argv` must outlive the host. `encoding` is what narrow texts mean in this
    /// process, `char` literals among them: UTF-8, as sources are, unless the program is written
    /// in Latin-1. `library` names the back end to load at run time: a file name or path; empty:
    /// the usual one, found as shared libraries are. Throws `std::runtime_error` with the loader's
    /// message when it cannot be loaded, and when the encoding is fixed already and another one.
    QtHost(int& argc, char** argv, NarrowTextEncoding encoding = NarrowTextEncoding::Utf8,
           const std::string& library = std::string());

    /// For a program that has a `QApplication`.
    explicit QtHost(NarrowTextEncoding encoding = NarrowTextEncoding::Utf8,
                    const std::string& library = std::string());
    ~QtHost();
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

    /// Runs the event loop until `quit`, or the last window closed; returns the exit code.
    /// Afterwards other threads that ask get default answers until it runs again.
    int exec();

    /// Lets the window appear whole and writes its picture, without the frame, to a file whose name
    /// says the format. False when the object has no widget or the file cannot be written.
    bool saveScreenshot(const VXObject& window, const std::string& file);

    /// Ends `exec` and the loops inside it; when it does not run, the next one as soon as it
    /// begins, and the dialog that runs meanwhile. Of several codes the last one counts. Any
    /// thread.
    static void quit(int exitCode = 0);

private:
    void bringUp(NarrowTextEncoding encoding, const std::string& library);

    std::unique_ptr<QApplication> m_application;     // null: it is somebody else's
    std::unique_ptr<ApplicationLanguage> m_language; // of that
    std::unique_ptr<EventLoopBinding> m_binding;
    void (*m_terminate)() = nullptr;
};

} // namespace VOXI

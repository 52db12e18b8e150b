#include "sidelibrary.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QString>

#include <dlfcn.h>

namespace VOXI {

namespace {

QString folderOfThisLibrary()
{
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&folderOfThisLibrary), &self) == 0)
        return {};
    return QFileInfo(QFile::decodeName(self.dli_fname)).absolutePath();
}

} // namespace

void (*sideLibraryFunction(const char* library, const char* function, QString& error))()
{
    QLibrary beside(folderOfThisLibrary() + u'/' + QLatin1String(library), VOXI_SOVERSION);
    const auto found = beside.resolve(function);
    if (!found)
        error = beside.errorString();
    return found;
}

void (*sideLibraryFunction(const char* library, const char* function, const char* missing))()
{
    QString error;
    const auto found = sideLibraryFunction(library, function, error);
    if (!found)
        qWarning("%s: %s", missing, qPrintable(error));
    return found;
}

} // namespace VOXI

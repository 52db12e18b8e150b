#include "kindlibrary.h"

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
    if (dladdr(reinterpret_cast<const void*>(&functionOfKindLibrary), &self) == 0)
        return {};
    return QFileInfo(QFile::decodeName(self.dli_fname)).absolutePath();
}

} // namespace

void (*functionOfKindLibrary(const char* name, const char* function, const char* missing))()
{
    QLibrary library(folderOfThisLibrary() + u'/' + QLatin1String(name), VOXI_SOVERSION);
    const QFunctionPointer found = library.resolve(function);
    if (!found)
        qWarning("%s: %s", missing, qPrintable(library.errorString()));
    return found;
}

} // namespace VOXI

#include "sidelibrary.h"

#include <QFileInfo>
#include <QLibrary>
#include <QString>

#include <dlfcn.h>

namespace VOXI {

void (*sideLibraryFunction(const char* library, const char* function, QString& error))()
{
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&sideLibraryFunction), &self) == 0)
        return nullptr;
    const QFileInfo file(QFile::decodeName(self.dli_fname));
    QLibrary beside(file.absolutePath() + u'/' + QLatin1String(library), VOXI_SOVERSION);
    const auto found = beside.resolve(function);
    if (!found)
        error = beside.errorString();
    return found;
}

} // namespace VOXI

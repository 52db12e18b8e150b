#include "svglibrary.h"

#include <QFileInfo>
#include <QLibrary>
#include <QString>

#include <dlfcn.h>

namespace VOXI {

namespace {

/// Beside this library, wherever that was loaded from.
QString svgLibraryFile()
{
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&makeSvgImage), &self) == 0)
        return {};
    const QFileInfo file(QFile::decodeName(self.dli_fname));
    return file.absolutePath() + QStringLiteral("/voxi2_qt_svg");
}

} // namespace

QtObject2* makeSvgImage(VXSvgImage2* object, VXSvgImage2Emitters* emitters, QWidget* parent)
{
    static const auto make = [] {
        QLibrary library(svgLibraryFile(), VOXI_SOVERSION);
        const auto found = reinterpret_cast<decltype(&voxi2_qt_makeSvgImage)>(
            library.resolve("voxi2_qt_makeSvgImage"));
        if (!found)
            qWarning("no drawings: %s", qPrintable(library.errorString()));
        return found;
    }();
    return make ? make(object, emitters, parent) : nullptr;
}

} // namespace VOXI

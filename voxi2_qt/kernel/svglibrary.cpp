#include "svglibrary.h"

#include "sidelibrary.h"

#include <QString>

namespace VOXI {

QtObject2* makeSvgImage(VXSvgImage2* object, VXSvgImage2Emitters* emitters, QWidget* parent)
{
    static const auto make = [] {
        QString error;
        const auto found = reinterpret_cast<decltype(&voxi2_qt_makeSvgImage)>(
            sideLibraryFunction("voxi2_qt_svg", "voxi2_qt_makeSvgImage", error));
        if (!found)
            qWarning("no drawings: %s", qPrintable(error));
        return found;
    }();
    return make ? make(object, emitters, parent) : nullptr;
}

} // namespace VOXI

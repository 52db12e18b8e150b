#include "svglibrary.h"

#include "sidelibrary.h"

namespace VOXI {

QtObject2* makeSvgImage(VXSvgImage2* object, VXSvgImage2Emitters* emitters, QWidget* parent)
{
    static const auto make = reinterpret_cast<decltype(&voxi2_qt_makeSvgImage)>(
        sideLibraryFunction("voxi2_qt_svg", "voxi2_qt_makeSvgImage", "no drawings"));
    return make ? make(object, emitters, parent) : nullptr;
}

} // namespace VOXI

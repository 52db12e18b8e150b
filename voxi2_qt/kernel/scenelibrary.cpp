#include "scenelibrary.h"

#include "sidelibrary.h"

namespace VOXI {

QtObject2* makeScene(VXHGScene2* object, VXHGScene2Emitters* emitters, QWidget* parent)
{
    static const auto make = reinterpret_cast<decltype(&voxi2_qt_makeScene)>(
        sideLibraryFunction("voxi2_qt_scene", "voxi2_qt_makeScene", "no scenes"));
    return make ? make(object, emitters, parent) : nullptr;
}

} // namespace VOXI

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

class QtObject2;
class VXHGScene2;
struct VXHGScene2Emitters;

/// Makes the peer of a scene, by the library that it lies in, which is loaded with the first. Null,
/// and a warning, where that library is missing. GUI thread.
QtObject2* makeScene(VXHGScene2* object, VXHGScene2Emitters* emitters, QWidget* parent);

} // namespace VOXI

/// What that library is asked for.
extern "C" Q_DECL_EXPORT VOXI::QtObject2* voxi2_qt_makeScene(VOXI::VXHGScene2* object,
                                                             VOXI::VXHGScene2Emitters* emitters,
                                                             QWidget* parent);

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

class QtObject2;
class VXSvgImage2;
struct VXSvgImage2Emitters;

/// Makes the peer of a drawing, by the library that it lies in, which is loaded with the first.
/// Null, and a warning, where that library is missing. GUI thread.
QtObject2* makeSvgImage(VXSvgImage2* object, VXSvgImage2Emitters* emitters, QWidget* parent);

} // namespace VOXI

/// What that library is asked for.
extern "C" Q_DECL_EXPORT VOXI::QtObject2* voxi2_qt_makeSvgImage(VOXI::VXSvgImage2* object,
                                                                VOXI::VXSvgImage2Emitters* emitters,
                                                                QWidget* parent);

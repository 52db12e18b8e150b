#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QString;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

class QtObject2;
class VXObject2;

/// The function of that name in a library that lies beside this one, wherever that was loaded from;
/// the library is loaded for it, and stays. Null where there is none, and then `error` says why.
void (*sideLibraryFunction(const char* library, const char* function, QString& error))();
/// The same; where there is none a warning that begins with `missing` says why.
void (*sideLibraryFunction(const char* library, const char* function, const char* missing))();

} // namespace VOXI

/// What a library that holds the peer of one kind is asked for; each has its own. Object and its
/// table of emitters are of that kind.
extern "C" Q_DECL_EXPORT VOXI::QtObject2* voxi2_qt_makePeer(VOXI::VXObject2* object, void* emitters,
                                                            QWidget* parent);

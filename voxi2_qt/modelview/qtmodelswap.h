#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QAbstractItemView;
QT_END_NAMESPACE

namespace VOXI {

class QtViewModel2;

/// Has the view show another model in place of the former one, which may be null: that one and its
/// selection go, now or when no code of Qt is on the stack any more that may come back to them.
void swapModels(QAbstractItemView& view, QtViewModel2& model, QtViewModel2* former);

} // namespace VOXI

#pragma once

#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"

namespace VOXI {

/// The peer of a view model whose host shows it in views of its own: an item model, as each view of
/// the toolkit has one. It serves no requests, and ends with the model.
class QtViewModelPeer2 : public QtObject2Shim<VXAbstractViewModel2, VXAbstractViewModel2Emitters,
                                              QtObject2, QtViewModel2>
{
    Q_OBJECT

public:
    QtViewModelPeer2(VXAbstractViewModel2* object, VXAbstractViewModel2Emitters* emitters,
                     QObject* parent);
};

} // namespace VOXI

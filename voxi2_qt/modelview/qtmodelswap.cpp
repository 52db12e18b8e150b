#include "qtmodelswap.h"

#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qthandlerframe.h"

#include <QAbstractItemView>

namespace VOXI {

namespace {

void deleteWhenFree(QObject* object)
{
    if (object && !QtDeletionHold::postpones(*object))
        delete object;
}

} // namespace

void swapModels(QAbstractItemView& view, QtViewModel2& model, QtViewModel2* former)
{
    // By way of none, for a header to forget what was set for the former columns.
    for (QAbstractItemModel* const each :
         {static_cast<QAbstractItemModel*>(nullptr), static_cast<QAbstractItemModel*>(&model)}) {
        QItemSelectionModel* const formerSelection = view.selectionModel();
        view.setModel(each);
        deleteWhenFree(formerSelection);
    }
    model.setSelectionModel(view.selectionModel());
    if (former) {
        former->TROV::Listener::disconnect();
        deleteWhenFree(former);
    }
}

} // namespace VOXI

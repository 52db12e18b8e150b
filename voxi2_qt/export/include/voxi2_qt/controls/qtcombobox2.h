#pragma once

#include "voxi2/controls/vxcombobox2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QComboBox>

QT_BEGIN_NAMESPACE
class QStandardItem;
class QStandardItemModel;
QT_END_NAMESPACE

namespace VOXI {

/// The peer of the combo box.
class VOXI2_QT_EXPORT QtComboBox2
    : public QtWidget2Shim<VXComboBox2, VXComboBox2Emitters, QtWidget2, QComboBox>
{
    Q_OBJECT

public:
    QtComboBox2(VXComboBox2* object, VXComboBox2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doInsertItems(int index, const std::vector<ComboItem>& items);
    virtual void doInsertSeparator(int index);
    virtual void doSetItem(int index, const ComboItem& item);
    virtual ComboItem doGetItem(int index);
    virtual void doRemoveItem(int index);
    virtual void doClear();
    virtual int doCount();
    virtual int doFindUid(unsigned uid);
    virtual int doFindText(const std::wstring& text);
    virtual void doSetCurrentIndex(int index);
    virtual int doGetCurrentIndex();
    virtual void doSetCurrentUid(unsigned uid);
    virtual unsigned doGetCurrentUid();
    virtual void doSetCurrentText(const std::wstring& text);
    virtual std::wstring doGetCurrentText();
    virtual void doimChoose(int index);
    virtual void doSetPlaceholder(const std::wstring& text);
    virtual std::wstring doGetPlaceholder();
    virtual void doSetEditable(bool editable);
    virtual bool doIsEditable();
    virtual void doSetInsertPolicy(ComboInsertPolicy policy);
    virtual ComboInsertPolicy doGetInsertPolicy();
    virtual void doSetMaximumVisibleItems(int count);
    virtual int doGetMaximumVisibleItems();
    virtual void doSetMinimumCharacters(int count);
    virtual int doGetMinimumCharacters();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotCurrentIndexChanged(int index);
    void slotEditTextChanged(const QString& text);

private:
    /// What a combo box has unless another model is set.
    QStandardItemModel& items() const;
    QStandardItem* itemAt(int index) const;
};

} // namespace VOXI

#pragma once

#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QStandardItem;
class QStandardItemModel;
QT_END_NAMESPACE

namespace VOXI {

class QtComboModel;

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
    virtual void doSetViewModel(VXAbstractViewModel2* model);
    virtual VXAbstractViewModel2* doGetViewModel();
    virtual void doSetModelColumn(unsigned column);
    virtual unsigned doGetModelColumn();

    void showPopup() override;

    /// Has what is chosen be selected in the list, also while it is closed, and what others than
    /// its user, who makes it current, select there be chosen.
    void hearList();

protected:
    void connectSignals() override;
    void initStyleOption(QStyleOptionComboBox* option) const override;

private Q_SLOTS:
    void slotCurrentIndexChanged(int index);
    void slotEditTextChanged(const QString& text);
    void slotChooseSelected();
    void slotSelectChosen();

private:
    /// Its own, which it has unless a model is set.
    QStandardItemModel& items() const;
    /// Null where there is none, and where a model is set.
    /// Whether it shows items of its own; a request for these is else ignored.
    bool hasOwnItems(CallPlace where = CallPlace::current()) const;
    QStandardItem* itemAt(int index) const;
    void adjustWidth();

    // With a model
    void adopt(QtComboModel& model);
    void fitList();
    void followModel();
    bool isModelTalking() const;
    QModelIndex modelIndex(int index) const;
    ComboItem modelItem(int index) const;
    unsigned modelUid(int index) const;
    int modelRow(unsigned uid) const;

    QtComboModel* m_model = nullptr;
    QPointer<QItemSelectionModel> m_heardList;
    unsigned m_column = 0; // its number; 0 for the first one
    int m_minimumCharacters = 0;
    int m_formerRow = -1; // that was the current one before rows come and go
    bool m_isAnswerComing = false;
    bool m_isOpeningModel = false; // the list of it
};

} // namespace VOXI

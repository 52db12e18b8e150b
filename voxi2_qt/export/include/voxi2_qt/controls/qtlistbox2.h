#pragma once

#include "voxi2/controls/vxlistbox2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QListWidget>

namespace VOXI {

/// The peer of the list box.
class VOXI2_QT_EXPORT QtListBox2
    : public QtWidget2Shim<VXListBox2, VXListBox2Emitters, QtWidget2, QListWidget>
{
    Q_OBJECT

public:
    QtListBox2(VXListBox2* object, VXListBox2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doAddItems(const VXStringList& items, const Icon& icon);
    virtual void doAddItemsU(const std::vector<std::wstring>& items, const Icon& icon);
    virtual void doInsertItems(int row, const VXStringList& items, const Icon& icon);
    virtual void doInsertItemsU(int row, const std::vector<std::wstring>& items, const Icon& icon);
    virtual void doRemoveItems(int row);
    virtual void doSetSelection(int row, bool selected);
    virtual void doClearSelection();
    virtual void doSetCurrentRow(int row);
    virtual void doSetSelectionMode(VOXI::SelectionMode mode);
    virtual VXStringList doGetItems();
    virtual std::vector<std::wstring> doGetItemsU();
    virtual std::string doGetItemAt(int row);
    virtual std::wstring doGetItemAtU(int row);
    virtual std::vector<int> doGetSelections();
    virtual VOXI::SelectionMode doGetSelectionMode();
    virtual int doGetCurrentRow();
    virtual void doimSelect(int row);
    virtual void doimSelectByString(const std::string& text);
    virtual int doCount();
    virtual void doEraseItem(int row);

protected:
    void connectSignals() override;
    bool event(QEvent* event) override;

private Q_SLOTS:
    void slotItemSelectionChanged();
    void slotItemDoubleClicked(QListWidgetItem* item);
    void slotItemEntered(QListWidgetItem* item);

private:
    /// The text as the list shows it.
    template <class Text>
    static QString simplifyItemString(const Text& text);
    template <class Texts>
    void insertTexts(int row, const Texts& texts);
    template <class Texts>
    void append(const Texts& texts);
};

} // namespace VOXI

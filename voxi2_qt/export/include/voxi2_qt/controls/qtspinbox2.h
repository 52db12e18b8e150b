#pragma once

#include "voxi2/controls/vxspinbox2.h"
#include "voxi2_qt/controls/qtrange2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QSpinBox>

namespace VOXI {

/// The peer of the spin box.
class VOXI2_QT_EXPORT QtSpinBox2 : public QtRange2Shim<VXSpinBox2, VXSpinBox2Emitters, QSpinBox>
{
    Q_OBJECT

public:
    QtSpinBox2(VXSpinBox2* object, VXSpinBox2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetEditable(bool editable);
    virtual bool doIsEditable();
    virtual void doStepBy(int steps);
    virtual void doimSpinUp();
    virtual void doimSpinDown();
    virtual void doimSetValue(int value);
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual void doSetWrapping(bool wrapping);
    virtual bool doIsWrapping();
    virtual void doSetPrefix(const std::string& prefix);
    virtual void doSetPrefixU(const std::wstring& prefix);
    virtual std::string doGetPrefix();
    virtual std::wstring doGetPrefixU();
    virtual void doSetSuffix(const std::string& suffix);
    virtual void doSetSuffixU(const std::wstring& suffix);
    virtual std::string doGetSuffix();
    virtual std::wstring doGetSuffixU();

protected:
    void connectSignals() override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private Q_SLOTS:
    void slotValueChanged(int value);
    void slotTextChanged();

private:
    void spin(int direction);
};

} // namespace VOXI

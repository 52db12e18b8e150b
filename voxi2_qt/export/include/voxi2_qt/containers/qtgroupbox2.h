#pragma once

#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QGroupBox>

namespace VOXI {

/// The peer of the group box.
class VOXI2_QT_EXPORT QtGroupBox2
    : public QtWidget2Shim<VXGroupBox2, VXGroupBox2Emitters, QtContainer2, QGroupBox>
{
    Q_OBJECT

public:
    QtGroupBox2(VXGroupBox2* object, VXGroupBox2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetTitle(const std::string& title);
    virtual void doSetFlat(bool flat);
    virtual std::string doGetTitle();
    virtual bool doIsFlat();
    virtual void doSetTitleU(const std::wstring& title);
    virtual std::wstring doGetTitleU();
    virtual void doSetCheckable(bool checkable);
    virtual bool doIsCheckable();
    virtual void doSetChecked(bool checked);
    virtual bool doIsChecked();
    virtual void doimToggle();

protected:
    void connectSignals() override;
    bool event(QEvent* event) override;

private Q_SLOTS:
    void slotToggled(bool checked);
};

} // namespace VOXI

#pragma once

#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <functional>

QT_BEGIN_NAMESPACE
class QAbstractButton;
QT_END_NAMESPACE

namespace VOXI {

/// What the peers of all buttons share.
class VOXI2_QT_EXPORT QtAbstractButton2
    : public QtPeerLevel<VXAbstractButton2, VXAbstractButton2Emitters, QtWidget2>
{
public:
    // Requests, in the order of the emitters table
    virtual void doSetCheckable(bool checkable);
    virtual void doSetChecked(bool checked);
    virtual void doSetExclusive(bool exclusive);
    virtual void doSetIcon(const Icon& icon);
    virtual void doSetLabel(const std::string& label);
    virtual void doSetLabelU(const std::wstring& label);
    virtual bool doIsCheckable();
    virtual bool doIsChecked();
    virtual bool doIsExclusive();
    virtual Icon doGetIcon();
    virtual std::string doGetLabel();
    virtual void doimClick();
    virtual void doimToggle();
    std::wstring doGetLabelU();
    void doSetIconSize(Size<int> size);
    Size<int> doGetIconSize();

protected:
    QtAbstractButton2(VXAbstractButton2* button, VXAbstractButton2Emitters* emitters);

    /// The Qt button that this peer is.
    QAbstractButton* button() const noexcept;

    /// Connects clicked and toggled with the slots of that name that every kind of button has.
    void connectSignals() override;

    /// Makes a change of the program's: neither the button nor an exclusive one that gives way to
    /// it is toggled by its user then.
    void quietly(const std::function<void()>& change);

    void reportClick();
    void reportToggle(bool checked);
};

} // namespace VOXI

#pragma once

#include "voxi2/kernel/vxaction2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QAction>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QActionGroup;
QT_END_NAMESPACE

namespace VOXI {

/// The peer of the action; the peers of menus, tool bars and buttons add it as it is.
///
/// Setters leave the action untouched when nothing changes, so that whatever shows it is not laid
/// out and painted again.
class VOXI2_QT_EXPORT QtAction2
    : public QtObject2Shim<VXAction2, VXAction2Emitters, QtObject2, QAction>
{
    Q_OBJECT

public:
    QtAction2(VXAction2* object, VXAction2Emitters* emitters, QObject* parent);
    ~QtAction2() override;

    // Requests, in the order of the emitters table
    virtual void doSetAccelerator(const std::string& accelerator);
    virtual void doSetAccelerators(const VXStringList& accelerators);
    virtual void doSetCheckable(bool checkable);
    virtual void doSetChecked(bool checked);
    virtual void doSetEnabled(bool enabled);
    virtual void doSetIcon(const Icon& icon);
    virtual void doSetLabel(const std::string& label);
    virtual void doSetLabelU(const std::wstring& label);
    virtual void doSetStatusTip(const std::string& text);
    virtual void doSetToolTip(const std::string& text);
    virtual void doSetToolTipU(const std::wstring& text);
    virtual void doSetVisible(bool visible);
    virtual std::string doGetAccelerator();
    virtual VXStringList doGetAccelerators();
    virtual bool doIsCheckable();
    virtual bool doIsChecked();
    virtual bool doIsEnabled();
    virtual Icon doGetIcon();
    virtual std::string doGetLabel();
    virtual std::string doGetStatusTip();
    virtual std::string doGetToolTip();
    virtual bool doIsVisible();
    virtual void doimToggle(bool checked);
    virtual void doimTrigger();
    virtual void doSetStatusTipU(const std::wstring& text);
    virtual void doSetSeparator(bool separator);
    virtual void doSetShortcutContext(ShortcutContext context);
    virtual void doSetAutoRepeat(bool repeat);
    virtual void doSetGroup(unsigned group, ActionExclusion exclusion);
    virtual void doAttachTo(VXWidget2* widget);
    virtual void doDetachFrom(VXWidget2* widget);
    virtual std::wstring doGetLabelU();
    virtual std::wstring doGetStatusTipU();
    virtual std::wstring doGetToolTipU();
    virtual bool doIsSeparator();
    virtual ShortcutContext doGetShortcutContext();
    virtual bool doIsAutoRepeat();

protected:
    void connectSignals() override;
    bool event(QEvent* event) override;

private Q_SLOTS:
    void slotActionTriggered();
    void slotActionToggled(bool checked);

private:
    void changeText(const QString& text);
    void changeStatusTip(const QString& text);
    void changeToolTip(const QString& text);
    template <class Function>
    void quietly(Function&& change);
    /// The checked ones besides this, of an exclusive group: more than one when it has just become
    /// so.
    using Others = std::vector<QPointer<QtAction2>>;
    Others checkedOthers(const QActionGroup* group) const;
    void uncheckOthers(const QActionGroup* group);
    void leaveGroup();

    Icon m_icon; // a Qt icon cannot be turned back
};

} // namespace VOXI

#pragma once

#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

QT_BEGIN_NAMESPACE
class QEvent;
QT_END_NAMESPACE

namespace VOXI {

/// The base of the peers of windows and dialogs.
class VOXI2_QT_EXPORT QtAbstractWindow2
    : public QtPeerLevel<VXAbstractWindow2, VXAbstractWindow2Emitters, QtWidget2>
{
public:
    void doSetParent(VXObject* parent) override;
    bool doIsVisible() override;

    // Requests, in the order of the emitters table
    virtual void doSetTitle(const std::string& title);
    virtual void doSetTitleU(const std::wstring& title);
    virtual void doSetIcon(const Icon& icon);
    virtual void doSetWindowFlags(unsigned flags);
    virtual void doSetWindowState(VXFlags<WindowState> state);
    virtual void doSetModified(bool modified);
    virtual std::string doGetTitle();
    virtual std::wstring doGetTitleU();
    virtual Icon doGetIcon();
    virtual unsigned doGetWindowFlags();
    virtual VXFlags<WindowState> doGetWindowState();
    virtual bool doIsModified();
    virtual bool doClose();
    virtual std::string doSaveWindowGeometry();
    virtual bool doRestoreWindowGeometry(const std::string& geometry);
    virtual void doShowMinimized();
    virtual void doShowMaximized();
    virtual void doShowFullScreen();
    virtual void doShowNormal();
    virtual bool doRaiseNativeWindow(unsigned long long nativeWindow);

    /// Takes what a window saved as well.
    void doRestoreGeometry(const std::string& geometry) override;

protected:
    QtAbstractWindow2(VXAbstractWindow2* window, VXAbstractWindow2Emitters* emitters);

    /// For the peers' `changeEvent`: reports a state that the program has not asked for.
    void passStateChange(const QEvent& event);

private:
    VXFlags<WindowState> shownState() const;
    void noteMinimized(bool minimized);
    void showInState(VXFlags<WindowState> state);
    template <class Function>
    void changeState(Function&& change);
    void reportState();

    VXFlags<WindowState> m_knownState;
    bool m_isPutAway = false; // minimised under a compositor, as far as one can know
    int m_settling = 0;       // requests that the window manager may still be carrying out
};

} // namespace VOXI

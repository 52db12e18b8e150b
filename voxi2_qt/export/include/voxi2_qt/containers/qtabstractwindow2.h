#pragma once

#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QDeadlineTimer>

#include <optional>

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
    void doShow() override;
    void doSetVisible(bool visible) override;
    void doRaise() override;
    void doSetActiveWindow() override;

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
    virtual void doSetOpacity(double opacity);
    virtual double doGetOpacity();
    virtual VXRect<int> doGetFrameGeometry();
    virtual std::vector<Screen> doGetScreens();
    virtual int doGetScreen();
    virtual void doAlert(int duration);
    virtual void doSetCloseButtonVisible(bool visible);
    virtual bool doIsCloseButtonVisible();

    /// Takes what a window saved as well.
    void doRestoreGeometry(const std::string& geometry) override;

protected:
    QtAbstractWindow2(VXAbstractWindow2* window, VXAbstractWindow2Emitters* emitters);

    /// For the peers' `changeEvent`: reports a state that the program has not asked for, and the
    /// user's going and coming.
    void passStateChange(const QEvent& event);
    /// Gives the window its flags, and shows it anew if it was.
    virtual void applyFlags(Qt::WindowFlags flags);

private:
    VXFlags<WindowState> shownState() const;
    void noteMinimized(bool minimized);
    void showInState(VXFlags<WindowState> state);
    template <class Function>
    void changeState(Function&& change);
    void reportState();
    void reportActivation();
    void expectActivation();

    VXFlags<WindowState> m_knownState;
    bool m_isPutAway = false; // minimised under a compositor, as far as one can know
    int m_settling = 0;       // requests that the window manager may still be carrying out
    bool m_isKnownActive = false;
    QDeadlineTimer m_activating{0};    // until then becoming active is the program's doing
    std::optional<bool> m_closeButton; // if the program has said so
};

} // namespace VOXI

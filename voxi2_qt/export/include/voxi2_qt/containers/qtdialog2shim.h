#pragma once

#include "voxi2_qt/containers/qtabstractdialog2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDialog>
#include <QPointer>

namespace VOXI {

/// Joins the peer base of dialogs with a Qt dialog class: sees how the dialog is shown, and how the
/// user ends it.
template <class Object, class Emitters, class Q>
class QtDialog2Shim : public QtWidget2Shim<Object, Emitters, QtAbstractDialog2, Q>
{
public:
    void setVisible(bool visible) override
    {
        const QtReportHold hold; // a handler may execute it anew
        if (visible)
            this->prepareToShow();
        const QPointer<QWidget> self(this->asQWidget());
        QtFilteredWidget<Q>::setVisible(visible);
        if (self && !visible)
            this->endWhenHidden();
    }

    /// Escape and the like: asks first, as the window's own close button does.
    void reject() override { this->close(); }

    void done(int result) override
    {
        const QtReportHold hold;
        const QPointer<QWidget> self(this->asQWidget());
        Q::done(result);
        if (!self)
            return;
        QtClosingWindow::finish(*this);
        this->reportEnd(result);
    }

protected:
    using QtWidget2Shim<Object, Emitters, QtAbstractDialog2, Q>::QtWidget2Shim;

    void changeEvent(QEvent* event) override
    {
        Q::changeEvent(event);
        this->passStateChange(*event);
    }

    /// Qt's offers a help that no widget here has, and waits until the user has chosen.
    void contextMenuEvent(QContextMenuEvent* event) override { event->ignore(); }

    void closeEvent(QCloseEvent* event) override
    {
        // Nobody has refused, or it would not have come here.
        event->accept();
        if (this->isVisible())
            done(QDialog::Rejected);
    }
};

} // namespace VOXI

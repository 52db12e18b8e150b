#pragma once

#include "voxi2/controls/vxtext2.h"
#include "voxi2_qt/controls/qtelidinglabel.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// The peer of the text label.
class VOXI2_QT_EXPORT QtText2
    : public QtWidget2Shim<VXText2, VXText2Emitters, QtWidget2, QtElidingLabel>
{
    Q_OBJECT

public:
    QtText2(VXText2* object, VXText2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetText(const std::string& text);
    virtual void doSetTextU(const std::wstring& text);
    virtual void doSetAlignment(Alignment alignment);
    virtual void doSetWordWrap(bool wrap);
    virtual void doSetBuddy(VXWidget2* buddy);
    virtual void doSetSelectable(bool selectable);
    virtual void doSetRichText(bool rich);
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual Alignment doGetAlignment();
    virtual bool doGetWordWrap();
    virtual VXWidget2* doGetBuddy();
    virtual bool doIsSelectable();
    virtual bool doIsRichText();
    virtual void doSetElideMode(TextElideMode mode);
    virtual TextElideMode doGetElideMode();

protected:
    void connectSignals() override;

private Q_SLOTS:
    void slotLinkActivated(const QString& target);

private:
    void change(const QString& text);
};

} // namespace VOXI

#pragma once

#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QProgressBar>

namespace VOXI {

/// The peer of the progress bar.
class VOXI2_QT_EXPORT QtProgressBar2
    : public QtWidget2Shim<VXProgressBar2, VXProgressBar2Emitters, QtWidget2, QProgressBar>
{
    Q_OBJECT

public:
    QtProgressBar2(VXProgressBar2* object, VXProgressBar2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetMinimum(int minimum);
    virtual int doGetMinimum();
    virtual void doSetMaximum(int maximum);
    virtual int doGetMaximum();
    virtual void doSetValue(int value);
    virtual int doGetValue();
    virtual void doSetTextVisible(bool visible);
    virtual bool doIsTextVisible();
    virtual void doSetCustomText(const std::string& text);
    virtual std::string doGetCustomText();

protected:
    void initStyleOption(QStyleOptionProgressBar* option) const override;

private:
    std::string m_customText;
};

} // namespace VOXI

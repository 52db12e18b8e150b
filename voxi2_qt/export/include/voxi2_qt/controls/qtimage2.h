#pragma once

#include "voxi2/controls/vximage2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QColor>
#include <QLabel>
#include <QPixmap>

namespace VOXI {

/// The peer of the picture of pixels.
class VOXI2_QT_EXPORT QtImage2 : public QtWidget2Shim<VXImage2, VXImage2Emitters, QtWidget2, QLabel>
{
    Q_OBJECT

public:
    QtImage2(VXImage2* object, VXImage2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetFile(const std::string& path, bool mask);
    virtual void doSetFileU(const std::wstring& path, bool mask);
    virtual void doSetPixmap(const Pixmap& pixmap);
    virtual void doSetMaskColor(Color color);
    virtual void doSetScaleEnable(bool enable);
    virtual Size<int> doGetImageSize();
    virtual Color doGetMaskColor();
    virtual bool doIsScaleEnabled();
    virtual void doSetScaling(ImageScaling scaling);
    virtual ImageScaling doGetScaling();

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void load(const QString& path, bool mask);
    bool isProportional() const;
    void paintPicture();

    QColor m_maskColor; // invalid: none
    ImageScaling m_scaling = ImageScaling::None;
    QPixmap m_scaled; // as it was painted last
    qint64 m_scaledFrom = 0;
    QPixmap m_greyed; // the same while it is disabled; null if it is to be made
};

} // namespace VOXI

#pragma once

#include "voxi2/controls/vxmimicsource2.h"
#include "voxi2/kernel/vxclock2.h"
#include "voxi2_qt/kernel/qtobject2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace VOXI {

/// The peer of the mimic source: sees by its events that a widget has painted, and takes a picture
/// when that is over.
class VOXI2_QT_EXPORT QtMimicSource2
    : public QtObject2Shim<VXMimicSource2, VXMimicSource2Emitters, QtObject2, QObject>
{
    Q_OBJECT

public:
    QtMimicSource2(VXMimicSource2* object, VXMimicSource2Emitters* emitters, QObject* parent);
    ~QtMimicSource2() override;

    // Requests, in the order of the emitters table
    virtual void doSetWidget(VXWidget2* widget);
    virtual void doSetNativeWindow(unsigned long long id);
    virtual void doSetMaximumRate(int perSecond);
    virtual void doRefresh();
    virtual VXWidget2* doGetWidget();
    virtual unsigned long long doGetNativeWindow();
    virtual int doGetMaximumRate();
    virtual Size<int> doGetSize();
    virtual Pixmap doGetPicture();

    bool eventFilter(QObject* receiver, QEvent* event) override;

    /// The last picture; null while there is none.
    const QImage& image() const noexcept { return m_image; }
    /// The widget that is pictured; null for none.
    QWidget* sourceWidget() const { return m_widget; }
    /// Takes the picture that is due: to be told by who shows it, once it is connected.
    void plan();

Q_SIGNALS:
    /// There is another picture, or none.
    void imageChanged();

private:
    void slotWidgetDestroyed();
    bool isWanted() const;
    void leaveWidget();
    void forget();
    void noteChange();
    void take(bool isReported);
    bool capture(QImage& image) const;

    QPointer<QWidget> m_widget;
    unsigned long long m_nativeWindow = 0;
    int m_rate = 30;
    bool m_isDirty = false; ///< something has painted since the last picture
    bool m_isNew = true;    ///< there was no picture of this source yet
    QImage m_image;
    std::unique_ptr<VXClock2::Timer> m_timer; ///< until the next picture may be taken
};

} // namespace VOXI

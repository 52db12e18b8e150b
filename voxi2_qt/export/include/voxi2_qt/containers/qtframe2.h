#pragma once

#include "voxi2/containers/vxframe2.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QFrame>

#include <memory>

namespace VOXI {

/// The peer of the frame.
class VOXI2_QT_EXPORT QtFrame2
    : public QtWidget2Shim<VXFrame2, VXFrame2Emitters, QtContainer2, QFrame>
{
    Q_OBJECT

public:
    QtFrame2(VXFrame2* object, VXFrame2Emitters* emitters, QWidget* parent);
    ~QtFrame2() override;

    void doSetColor(ColorRole role, Color color) override;

    // Requests, in the order of the emitters table
    virtual FrameShadow doGetShadow();
    virtual FrameShape doGetShape();
    virtual int doGetLineWidth();
    virtual FramePaintCallback doGetPaintCallback();
    virtual void doSetShadow(FrameShadow shadow);
    virtual void doSetShape(FrameShape shape);
    virtual void doSetLineWidth(int width);
    virtual void doSetPaintCallback(FramePaintCallback callback);
    virtual bool doHasPainter();
    virtual void doSetPainter(const FramePainter& painter);
    virtual void doUpdateArea(VXRect<int> area);

    /// By the program, in one way or the other.
    bool isPainted() const { return m_painter || m_paintCallback; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void runPainter(const QRect& area);

    FramePaintCallback m_paintCallback = nullptr;
    std::shared_ptr<const FramePainter> m_painter;
    bool m_isPainting = false;
};

} // namespace VOXI

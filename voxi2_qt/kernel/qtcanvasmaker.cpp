// Drawing into pictures.

#include "qttreeend.h"
#include "voxi2_qt/kernel/qtcanvas.h"
#include "voxi2_qt/kernel/qtimage.h"
#include "voxi_util/imagecompositor.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <memory>

namespace VOXI {

namespace {

class QtCanvasMaker final : public CanvasMaker
{
public:
    Pixmap draw(Size<int> size, double pixelRatio, const CanvasEngine::Painter& painter) override
    {
        QImage image = emptyImage(size, pixelRatio);
        if (image.isNull())
            return {};
        {
            QPainter qtPainter(&image);
            QtCanvas engine(qtPainter);
            const VXCanvas2::Session session(engine);
            painter(session.canvas());
        }
        return Qt2VX(image);
    }

private:
    static QImage emptyImage(Size<int> size, double pixelRatio)
    {
        const double width = std::ceil(size.width * pixelRatio);
        const double height = std::ceil(size.height * pixelRatio);
        // Without an application Qt has no fonts.
        if (!qGuiApp || isBackEndGoing() || !(width * height <= ImageCompositor::MaxPixels))
            return {};
        QImage image(static_cast<int>(width), static_cast<int>(height),
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(pixelRatio);
        image.fill(Qt::transparent);
        return image;
    }
};

} // namespace

void installQtCanvasMaker() { CanvasMaker::install(std::make_shared<QtCanvasMaker>()); }

} // namespace VOXI

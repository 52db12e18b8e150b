#include "voxi2/controls/vximage2.h"

namespace VOXI {

VXImage2::VXImage2(VXObject2* parent) : VXImage2(Pixmap(), parent) {}

VXImage2::VXImage2(const Pixmap& pixmap, VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createImage2, this, &m_emitters, parent);
    if (!pixmap.isNull())
        setPixmap(pixmap);
}

VXImage2::~VXImage2() { retire(); }

void VXImage2::setFile(const AnyText& path, bool mask)
{
    path.passTo(m_emitters.setFile, m_emitters.setFileU, mask);
}

void VXImage2::setPixmap(const Pixmap& pixmap) { m_emitters.setPixmap(pixmap); }
Size<int> VXImage2::imageSize() const { return m_emitters.getImageSize(); }
void VXImage2::setMaskColor(Color color) { m_emitters.setMaskColor(color); }
Color VXImage2::maskColor() const { return m_emitters.getMaskColor(); }
void VXImage2::setScaling(ImageScaling scaling) { m_emitters.setScaling(scaling); }
ImageScaling VXImage2::scaling() const { return m_emitters.getScaling(); }
void VXImage2::setScaleEnabled(bool enabled) { m_emitters.setScaleEnable(enabled); }
bool VXImage2::isScaleEnabled() const { return m_emitters.isScaleEnabled(); }

} // namespace VOXI

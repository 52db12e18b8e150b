#include "voxi2/controls/vxsvgimage2.h"

#include "voxi2/kernel/ignored.h"

#include <cstddef>

namespace VOXI {

VXSvgImage2::VXSvgImage2(VXObject2* parent) : VXWidget2(parent), m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createSvgImage2, this, &m_emitters, parent);
}

VXSvgImage2::~VXSvgImage2() { retire(); }

void VXSvgImage2::setFile(const AnyText& path)
{
    path.passTo(m_emitters.setFile, m_emitters.setFileU);
}

void VXSvgImage2::setContents(const ByteArray& data) { m_emitters.setData(data); }

void VXSvgImage2::setContents(const char* data, int length)
{
    const bool isAny = data && length > 0;
    setContents(isAny ? ByteArray(data, static_cast<std::size_t>(length)) : ByteArray());
}

Size<int> VXSvgImage2::imageSize() const { return m_emitters.getImageSize(); }

void VXSvgImage2::setHeight(int height)
{
    if (height < 0)
        ignored(this, "the height is negative");
    else if (!hasSize())
        ignored(this, "it shows no drawing that has a size");
    else
        m_emitters.setHeight(height);
}

Pixmap VXSvgImage2::pixmap(int height) const
{
    return height >= -1 && hasSize() ? m_emitters.getPixmap(height) : Pixmap();
}

/// Sizes are worked out by dividing by its height.
bool VXSvgImage2::hasSize() const
{
    const Size<int> size = imageSize();
    return size.width > 0 && size.height > 0;
}

} // namespace VOXI

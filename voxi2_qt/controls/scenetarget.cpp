#include "scenetarget.h"

namespace VOXI {

bool SceneTarget::begin(const QSize& pixels, int samples)
{
    if (!m_drawn || m_drawn->size() != pixels || m_samples != samples) {
        QOpenGLFramebufferObjectFormat format;
        format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
        format.setSamples(samples);
        m_drawn = std::make_unique<Buffer>(pixels, format);
        m_samples = samples;
    }
    return m_drawn->isValid() && m_drawn->bind();
}

void SceneTarget::end()
{
    if (!m_shown || m_shown->size() != m_drawn->size())
        m_shown = std::make_unique<Buffer>(m_drawn->size());
    Buffer::blitFramebuffer(m_shown.get(), m_drawn.get());
}

void SceneTarget::release()
{
    m_drawn.reset();
    m_shown.reset();
}

} // namespace VOXI

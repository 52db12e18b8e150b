#pragma once

#include <QOpenGLFramebufferObject>

#include <memory>

namespace VOXI {

/// A picture in the graphics card that is drawn apart from any widget. All functions need the
/// context.
class SceneTarget
{
public:
    /// Has what follows drawn into it; false where the card cannot have one like that.
    bool begin(const QSize& pixels, int samples);
    /// It is complete: `texture` shows it from now on.
    void end();

    /// 0 before there is a picture.
    GLuint texture() const { return m_shown ? m_shown->texture() : 0; }
    GLuint framebuffer() const { return m_drawn ? m_drawn->handle() : 0; }

    void release();

private:
    using Buffer = QOpenGLFramebufferObject;

    std::unique_ptr<Buffer> m_drawn;
    std::unique_ptr<Buffer> m_shown; // whole, and with one sample for each pixel
    int m_samples = 0;
};

} // namespace VOXI

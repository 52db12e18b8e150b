#pragma once

#include "voxi2/controls/scenegeometry.h"

#include <QImage>
#include <QOpenGLFunctions>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace VOXI {

/// What the graphics card has of a scene: one buffer for each array of numbers, whoever shares it,
/// and one texture for each picture. All functions but `forget` need the context.
///
/// Arrays never change; those that move each frame are new ones each time. Each then takes over the
/// buffer of one that has gone, with new memory: the card may still be reading the old, and nobody
/// waits for that.
class SceneBuffers
{
public:
    void initialize(QOpenGLFunctions& functions, bool hasLongIndices);

    /// Binds the array to `GL_ARRAY_BUFFER`; false where there is no memory for it.
    template <class T>
    bool bindVertices(const SceneGeometry::Shared<T>& array)
    {
        return bind(GL_ARRAY_BUFFER, array, array->data(), array->size() * sizeof(T));
    }
    /// The type of the numbers in `GL_ELEMENT_ARRAY_BUFFER`; 0 where the card cannot have them.
    GLenum bindIndices(const SceneGeometry::Shared<std::uint32_t>& array, std::size_t vertices);
    /// Binds the picture to `GL_TEXTURE_2D`.
    void bindTexture(const QImage& image);

    /// What has not been used for long, or that nobody else has any more, goes.
    void endFrame();

    /// Frees all.
    void release();
    /// The context has gone, and all that was in it.
    void forget();

private:
    struct Buffer
    {
        std::shared_ptr<const void> m_array; // kept, so that there is no other at its address
        GLuint m_id = 0;                     // 0 if there is no memory for it
        unsigned m_lastFrame = 0;
    };
    struct Texture
    {
        GLuint m_id = 0;
        unsigned m_lastFrame = 0;
    };
    using Buffers = std::unordered_map<const void*, Buffer>;

    bool bind(GLenum target, const std::shared_ptr<const void>& array, const void* data,
              std::size_t bytes);
    GLuint fill(GLenum target, const void* data, std::size_t bytes);
    std::vector<GLuint>& freeOf(GLenum target) noexcept;
    void sweep(GLenum target);
    Buffers& buffersOf(GLenum target) noexcept;

    QOpenGLFunctions* m_gl = nullptr;
    bool m_hasLongIndices = true;
    unsigned m_frame = 0;
    Buffers m_vertices;
    Buffers m_indices;
    std::vector<GLuint> m_freeVertices;
    std::vector<GLuint> m_freeIndices;
    std::unordered_map<qint64, Texture> m_textures;
};

} // namespace VOXI

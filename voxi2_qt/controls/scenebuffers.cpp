#include "scenebuffers.h"

#include <algorithm>

namespace VOXI {

namespace {

/// What was not drawn in so many frames goes, to come again when it is.
constexpr unsigned KeptFrames = 120;
/// So many buffers wait for arrays that are new.
constexpr std::size_t KeptFree = 16;
constexpr std::size_t ShortIndices = 1 << 16;

} // namespace

void SceneBuffers::initialize(QOpenGLFunctions& functions, bool hasLongIndices)
{
    m_gl = &functions;
    m_hasLongIndices = hasLongIndices;
}

GLenum SceneBuffers::bindIndices(const SceneGeometry::Shared<std::uint32_t>& array,
                                 std::size_t vertices)
{
    constexpr GLenum target = GL_ELEMENT_ARRAY_BUFFER;
    if (m_hasLongIndices)
        return bind(target, array, array->data(), array->size() * sizeof(std::uint32_t))
                   ? GL_UNSIGNED_INT
                   : 0;
    if (vertices > ShortIndices)
        return 0;
    if (m_indices.contains(array.get()))
        return bind(target, array, nullptr, 0) ? GL_UNSIGNED_SHORT : 0;
    std::vector<std::uint16_t> narrow;
    narrow.reserve(array->size());
    for (const std::uint32_t index : *array)
        narrow.push_back(static_cast<std::uint16_t>(index));
    return bind(target, array, narrow.data(), narrow.size() * sizeof(std::uint16_t))
               ? GL_UNSIGNED_SHORT
               : 0;
}

void SceneBuffers::bindTexture(const QImage& image)
{
    Texture& texture = m_textures[image.cacheKey()];
    texture.m_lastFrame = m_frame;
    if (texture.m_id != 0) {
        m_gl->glBindTexture(GL_TEXTURE_2D, texture.m_id);
        return;
    }
    m_gl->glGenTextures(1, &texture.m_id);
    m_gl->glBindTexture(GL_TEXTURE_2D, texture.m_id);
    for (const GLenum filter : {GLenum(GL_TEXTURE_MIN_FILTER), GLenum(GL_TEXTURE_MAG_FILTER)})
        m_gl->glTexParameteri(GL_TEXTURE_2D, filter, GL_NEAREST);
    for (const GLenum wrap : {GLenum(GL_TEXTURE_WRAP_S), GLenum(GL_TEXTURE_WRAP_T)})
        m_gl->glTexParameteri(GL_TEXTURE_2D, wrap, GL_CLAMP_TO_EDGE);
    m_gl->glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    m_gl->glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, image.width(), image.height(), 0, GL_RGBA,
                       GL_UNSIGNED_BYTE, image.constBits());
}

void SceneBuffers::endFrame()
{
    sweep(GL_ARRAY_BUFFER);
    sweep(GL_ELEMENT_ARRAY_BUFFER);
    std::erase_if(m_textures, [this](auto& entry) {
        const bool goes = entry.second.m_lastFrame != m_frame;
        if (goes)
            m_gl->glDeleteTextures(1, &entry.second.m_id);
        return goes;
    });
    ++m_frame;
}

void SceneBuffers::release()
{
    for (const GLenum target : {GLenum(GL_ARRAY_BUFFER), GLenum(GL_ELEMENT_ARRAY_BUFFER)}) {
        for (const auto& [key, buffer] : buffersOf(target))
            m_gl->glDeleteBuffers(1, &buffer.m_id);
        std::vector<GLuint>& free = freeOf(target);
        m_gl->glDeleteBuffers(static_cast<GLsizei>(free.size()), free.data());
    }
    for (const auto& [key, texture] : m_textures)
        m_gl->glDeleteTextures(1, &texture.m_id);
    forget();
}

void SceneBuffers::forget()
{
    m_vertices.clear();
    m_indices.clear();
    m_freeVertices.clear();
    m_freeIndices.clear();
    m_textures.clear();
}

bool SceneBuffers::bind(GLenum target, const std::shared_ptr<const void>& array, const void* data,
                        std::size_t bytes)
{
    Buffers& buffers = buffersOf(target);
    const auto [at, isNew] = buffers.try_emplace(array.get());
    Buffer& buffer = at->second;
    buffer.m_lastFrame = m_frame;
    if (isNew) {
        buffer.m_array = array;
        buffer.m_id = fill(target, data, bytes);
    } else {
        m_gl->glBindBuffer(target, buffer.m_id);
    }
    return buffer.m_id != 0;
}

/// A buffer that holds the bytes, and is bound. 0 for none.
GLuint SceneBuffers::fill(GLenum target, const void* data, std::size_t bytes)
{
    std::vector<GLuint>& free = freeOf(target);
    const GLenum usage = free.empty() ? GL_STATIC_DRAW : GL_STREAM_DRAW;
    GLuint id = 0;
    if (free.empty()) {
        m_gl->glGenBuffers(1, &id);
    } else {
        id = free.back();
        free.pop_back();
    }
    m_gl->glBindBuffer(target, id);
    m_gl->glBufferData(target, static_cast<qopengl_GLsizeiptr>(bytes), data, usage);
    if (m_gl->glGetError() == GL_NO_ERROR)
        return id;
    m_gl->glBindBuffer(target, 0);
    m_gl->glDeleteBuffers(1, &id);
    return 0;
}

void SceneBuffers::sweep(GLenum target)
{
    std::vector<GLuint>& free = freeOf(target);
    std::erase_if(buffersOf(target), [&](const auto& entry) {
        const Buffer& buffer = entry.second;
        const unsigned age = m_frame - buffer.m_lastFrame;
        const bool goes = age > 0 && (age > KeptFrames || buffer.m_array.use_count() == 1);
        if (goes && buffer.m_id != 0)
            free.push_back(buffer.m_id);
        return goes;
    });
    while (free.size() > KeptFree) {
        m_gl->glDeleteBuffers(1, &free.back());
        free.pop_back();
    }
}

std::vector<GLuint>& SceneBuffers::freeOf(GLenum target) noexcept
{
    return target == GL_ARRAY_BUFFER ? m_freeVertices : m_freeIndices;
}

SceneBuffers::Buffers& SceneBuffers::buffersOf(GLenum target) noexcept
{
    return target == GL_ARRAY_BUFFER ? m_vertices : m_indices;
}

} // namespace VOXI

#include "scenerenderer.h"

#include "scenepicker.h"

#include <QOpenGLContext>
#include <QVector3D>
#include <QVector4D>

#include <algorithm>
#include <cmath>
#include <utility>

namespace VOXI {

namespace {

// What not every header of OpenGL has.
constexpr GLenum AlphaTest = 0x0BC0;
constexpr GLenum LogicOperation = 0x0BF2;
constexpr GLenum PointSizeByProgram = 0x8642;
constexpr GLenum PointSprite = 0x8861;
constexpr GLenum PrimitiveRestart = 0x8F9D;
constexpr GLenum RasterizerDiscard = 0x8C89;
constexpr GLenum PixelUnpackBuffer = 0x88EC;
constexpr GLenum UnpackRowLength = 0x0CF2;
constexpr GLenum UnpackSkipRows = 0x0CF3;
constexpr GLenum UnpackSkipPixels = 0x0CF4;
constexpr GLenum Fill = 0x1B02;

GLfloat fraction(int channel) { return static_cast<GLfloat>(channel) / 255; }

QVector3D toVector(Color color)
{
    return {fraction(color.red()), fraction(color.green()), fraction(color.blue())};
}

QVector4D toVector(Color color, float opacity) { return QVector4D(toVector(color), opacity); }

GLenum primitive(SceneShape shape)
{
    static constexpr GLenum all[] = {GL_TRIANGLES, GL_LINES, GL_LINE_STRIP, GL_POINTS};
    return all[static_cast<int>(shape)];
}

bool isTranslucent(const SceneGraph::Node& node)
{
    return node.m_geometry.isTranslucent() || node.m_look.color.alpha() < 255;
}

template <class Function>
Function functionNamed(const char* name)
{
    return reinterpret_cast<Function>(QOpenGLContext::currentContext()->getProcAddress(name));
}

/// The farthest first.
void sortByDepth(std::vector<const SceneGraph::Node*>& nodes, const Matrix4& view)
{
    std::vector<std::pair<double, const SceneGraph::Node*>> depths;
    for (const SceneGraph::Node* node : nodes) {
        const Vector3 middle =
            node->m_geometry.isNull() ? Vector3{} : node->m_geometry.box().center();
        const double depth = (view * node->m_world).mapFull(middle)[2];
        depths.emplace_back(std::isfinite(depth) ? depth : 0, node);
    }
    std::stable_sort(depths.begin(), depths.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(depths.begin(), depths.end(), nodes.begin(),
                   [](const auto& depth) { return depth.second; });
}

} // namespace

void SceneRenderer::initialize()
{
    const QOpenGLContext& context = *QOpenGLContext::currentContext();
    initializeOpenGLFunctions();
    m_isEmbedded = context.isOpenGLES();
    m_version = context.format().majorVersion() * 10 + context.format().minorVersion();
    GLfloat widths[2] = {1, 1};
    glGetFloatv(GL_ALIASED_LINE_WIDTH_RANGE, widths);
    m_widestLine = std::max(widths[1], 1.0f);
    if (m_version >= 30)
        m_bindVertexArray = functionNamed<decltype(m_bindVertexArray)>("glBindVertexArray");
    if (m_version >= 33)
        m_setDivisor = functionNamed<decltype(m_setDivisor)>("glVertexAttribDivisor");
    if (!m_isEmbedded)
        m_setPolygonMode = functionNamed<decltype(m_setPolygonMode)>("glPolygonMode");
    m_buffers.initialize(*this, !m_isEmbedded || m_version >= 30
                                    || context.hasExtension("GL_OES_element_index_uint"));
    m_shapeProgram = makeShapeProgram();
    m_billboardProgram = makeBillboardProgram();
    m_corners = std::make_shared<const std::vector<Vector3>>(
        std::vector<Vector3>{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
}

void SceneRenderer::draw(const ScenePicture& picture)
{
    resetState();
    glViewport(0, 0, picture.size.width(), picture.size.height());
    const QVector3D background = toVector(picture.background);
    glClearColor(background.x(), background.y(), background.z(), 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    if (m_shapeProgram->isUsable() && m_billboardProgram->isUsable()) {
        drawShapes(picture);
        drawBillboards(picture);
    }
    leaveState();
    m_buffers.endFrame();
}

void SceneRenderer::show(GLuint texture, const QSize& pixels)
{
    resetState();
    glViewport(0, 0, pixels.width(), pixels.height());
    if (m_billboardProgram->isUsable() && m_buffers.bindVertices(m_corners)) {
        beginBillboards();
        glDisable(GL_DEPTH_TEST);
        m_billboardProgram->set("rectangle", QVector4D(-1, -1, 1, 1));
        m_billboardProgram->set("depth", 0.0f);
        glBindTexture(GL_TEXTURE_2D, texture);
        glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    }
    leaveState();
}

void SceneRenderer::release(bool hasContext)
{
    if (!hasContext) {
        m_buffers.forget();
    } else if (m_shapeProgram) {
        m_buffers.release();
    }
    // Without the context they do nothing but free their memory.
    m_shapeProgram.reset();
    m_billboardProgram.reset();
}

/// What is enabled for vertices of the program's would be read for ours.
void SceneRenderer::resetState()
{
    if (m_bindVertexArray)
        m_bindVertexArray(0);
    GLint attributes = 0;
    glGetIntegerv(GL_MAX_VERTEX_ATTRIBS, &attributes);
    for (GLint i = 0; i < attributes; ++i) {
        glDisableVertexAttribArray(static_cast<GLuint>(i));
        if (m_setDivisor)
            m_setDivisor(static_cast<GLuint>(i), 0);
    }
    for (const GLenum capability : std::initializer_list<GLenum>{
             GL_BLEND, GL_CULL_FACE, GL_SCISSOR_TEST, GL_STENCIL_TEST, GL_POLYGON_OFFSET_FILL,
             GL_SAMPLE_ALPHA_TO_COVERAGE, GL_SAMPLE_COVERAGE})
        glDisable(capability);
    if (!m_isEmbedded) {
        for (const GLenum capability : {AlphaTest, LogicOperation})
            glDisable(capability);
        for (const GLenum capability : {PointSizeByProgram, PointSprite})
            glEnable(capability);
        if (m_setPolygonMode)
            m_setPolygonMode(GL_FRONT_AND_BACK, Fill);
        if (m_version >= 31)
            glDisable(PrimitiveRestart);
    }
    if (!m_isEmbedded || m_version >= 30) {
        for (const GLenum setting : {UnpackRowLength, UnpackSkipRows, UnpackSkipPixels})
            glPixelStorei(setting, 0);
        glBindBuffer(PixelUnpackBuffer, 0);
    }
    if (m_version >= 30)
        glDisable(RasterizerDiscard);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glDepthMask(GL_TRUE);
    glDepthRangef(0, 1);
    glClearDepthf(1);
    glClearStencil(0);
    glStencilMask(~0u);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glBlendEquation(GL_FUNC_ADD);
    glActiveTexture(GL_TEXTURE0);
    // What is left of errors is none of ours; a context that is lost says so for ever.
    for (int i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i) {
    }
}

void SceneRenderer::leaveState()
{
    for (const GLuint place : {PositionAttribute, NormalAttribute, ColorAttribute})
        glDisableVertexAttribArray(place);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    glBindTexture(GL_TEXTURE_2D, 0);
    glUseProgram(0);
    glDisable(GL_BLEND);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glLineWidth(1);
}

void SceneRenderer::drawShapes(const ScenePicture& picture)
{
    m_shapeProgram->use();
    m_shapeProgram->set("projection", picture.sight.projection());
    m_shapeProgram->set("ambient", toVector(picture.ambientLight));
    m_shapeProgram->set("parallelSight", picture.isOrthographic ? 1.0f : 0.0f);
    setLights(picture);

    std::vector<const Node*> translucent;
    for (const Node* node : picture.graph.drawn()) {
        if (node->m_geometry.isNull())
            continue;
        if (isTranslucent(*node))
            translucent.push_back(node);
        else
            drawShape(picture, *node);
    }
    if (translucent.empty())
        return;
    sortByDepth(translucent, picture.sight.view());
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ZERO, GL_ONE);
    glDepthMask(GL_FALSE);
    for (const Node* node : translucent)
        drawShape(picture, *node);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

void SceneRenderer::setLights(const ScenePicture& picture)
{
    std::vector<QVector4D> places;
    std::vector<QVector3D> colors;
    for (const SceneLight& light : picture.lights) {
        const bool isPoint = light.kind == SceneLightKind::Point;
        const Matrix4& view = light.isAtCamera ? Matrix4() : picture.sight.view();
        const Vector3 place = isPoint ? view.map(light.place) : -view.mapDirection(light.place);
        places.emplace_back(place.x, place.y, place.z, isPoint ? 1.0f : 0.0f);
        colors.push_back(toVector(light.color));
    }
    m_shapeProgram->set("lightCount", static_cast<int>(places.size()));
    if (places.empty())
        return;
    m_shapeProgram->set("lightPlaces", places);
    m_shapeProgram->set("lightColors", colors);
}

void SceneRenderer::drawShape(const ScenePicture& picture, const Node& node)
{
    const SceneGeometry& geometry = node.m_geometry;
    const auto count = static_cast<GLsizei>(geometry.drawnCount());
    if (count == 0 || !bindShape(geometry))
        return;
    const SceneLook& look = node.m_look;
    const Matrix4 modelView = picture.sight.view() * node.m_world;
    const auto ratio = static_cast<float>(picture.ratio);
    m_shapeProgram->set("modelView", modelView);
    m_shapeProgram->setNormalMatrix("normalMatrix", modelView);
    m_shapeProgram->set("baseColor", toVector(look.color, fraction(look.color.alpha())));
    m_shapeProgram->set("lit", look.isLit && geometry.normals() ? 1.0f : 0.0f);
    m_shapeProgram->set("pointSize", look.pointSize * ratio);
    glLineWidth(std::min(look.lineWidth * ratio, m_widestLine));
    if (!geometry.indices()) {
        glDrawArrays(primitive(geometry.shape()), 0, count);
        return;
    }
    if (const GLenum type = m_buffers.bindIndices(geometry.indices(), geometry.positions()->size()))
        glDrawElements(primitive(geometry.shape()), count, type, nullptr);
}

/// False where there is no memory for it: nothing must be drawn from half of it.
bool SceneRenderer::bindShape(const SceneGeometry& geometry)
{
    if (!m_buffers.bindVertices(geometry.positions()))
        return false;
    bindAttribute(PositionAttribute, 3, GL_FLOAT, false);
    glDisableVertexAttribArray(NormalAttribute);
    if (geometry.normals()) {
        if (!m_buffers.bindVertices(geometry.normals()))
            return false;
        bindAttribute(NormalAttribute, 3, GL_FLOAT, false);
    }
    glDisableVertexAttribArray(ColorAttribute);
    glVertexAttrib4f(ColorAttribute, 1, 1, 1, 1);
    if (geometry.colors()) {
        static_assert(sizeof(Color) == 4);
        if (!m_buffers.bindVertices(geometry.colors()))
            return false;
        bindAttribute(ColorAttribute, 4, GL_UNSIGNED_BYTE, true);
    }
    return true;
}

void SceneRenderer::bindAttribute(GLuint place, GLint size, GLenum type, bool isNormalized)
{
    glEnableVertexAttribArray(place);
    glVertexAttribPointer(place, size, type, isNormalized ? GL_TRUE : GL_FALSE, 0, nullptr);
}

void SceneRenderer::drawBillboards(const ScenePicture& picture)
{
    std::vector<const Node*> below;
    std::vector<const Node*> onTop;
    for (const Node* node : picture.graph.drawn())
        if (node->m_billboard)
            (node->m_billboard->isOnTop ? onTop : below).push_back(node);
    if ((below.empty() && onTop.empty()) || !m_buffers.bindVertices(m_corners))
        return;
    beginBillboards();
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_ONE, GL_ONE_MINUS_SRC_ALPHA, GL_ZERO, GL_ONE);
    for (std::vector<const Node*>* nodes : {&below, &onTop}) {
        if (nodes == &onTop)
            glDisable(GL_DEPTH_TEST);
        sortByDepth(*nodes, picture.sight.view());
        for (const Node* node : *nodes)
            drawBillboard(picture, *node);
    }
}

/// With the corners bound.
void SceneRenderer::beginBillboards()
{
    m_billboardProgram->use();
    m_billboardProgram->set("picture", 0);
    glDisableVertexAttribArray(NormalAttribute);
    glDisableVertexAttribArray(ColorAttribute);
    bindAttribute(PositionAttribute, 3, GL_FLOAT, false);
    glDepthMask(GL_FALSE);
}

/// On whole pixels, so that it is sharp.
void SceneRenderer::drawBillboard(const ScenePicture& picture, const Node& node)
{
    const QImage& image = picture.labels.imageOf(node.m_billboard, picture.ratio);
    const Size<double> size{image.width() / picture.ratio, image.height() / picture.ratio};
    const auto place = billboardPlace(node, picture.sight, size);
    if (image.isNull() || !place)
        return;
    const double left = std::round(place->x * picture.ratio);
    const double top = std::round(place->y * picture.ratio);
    const auto x = [&](double pixels) {
        return static_cast<float>(2 * pixels / picture.size.width() - 1);
    };
    const auto y = [&](double pixels) {
        return static_cast<float>(1 - 2 * pixels / picture.size.height());
    };
    m_billboardProgram->set(
        "rectangle", QVector4D(x(left), y(top), x(left + image.width()), y(top + image.height())));
    m_billboardProgram->set("depth", static_cast<float>(place->depth));
    m_buffers.bindTexture(image);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
}

} // namespace VOXI

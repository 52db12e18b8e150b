#pragma once

#include "scenebuffers.h"
#include "scenegraph.h"
#include "scenelabels.h"
#include "sceneprogram.h"
#include "scenesight.h"

#include <QOpenGLFunctions>
#include <QSize>

#include <memory>
#include <vector>

namespace VOXI {

/// What is to be drawn.
struct ScenePicture
{
    const SceneGraph& graph;
    SceneLabels& labels;
    const SceneSight& sight;
    const std::vector<SceneLight>& lights;
    Color ambientLight;
    Color background;
    bool isOrthographic;
    QSize size;   ///< in device pixels
    double ratio; ///< of them to the widget's
};

/// Draws scenes by OpenGL. Each function but the destructor needs the context.
class SceneRenderer : private QOpenGLFunctions
{
public:
    /// In a new context.
    void initialize();
    void draw(const ScenePicture& picture);
    /// Whatever a program that draws itself has left behind.
    void resetState();
    /// Fills the picture with another one.
    void show(GLuint texture, const QSize& pixels);
    /// Frees what is in the context; where that cannot be used any more, nothing is done with it.
    void release(bool hasContext);

private:
    using Node = SceneGraph::Node;

    void leaveState();
    void drawShapes(const ScenePicture& picture);
    void setLights(const ScenePicture& picture);
    void drawShape(const ScenePicture& picture, const Node& node);
    bool bindShape(const SceneGeometry& geometry);
    void bindAttribute(GLuint place, GLint size, GLenum type, bool isNormalized);
    void drawBillboards(const ScenePicture& picture);
    void beginBillboards();
    void drawBillboard(const ScenePicture& picture, const Node& node);

    bool m_isEmbedded = false; // OpenGL ES
    int m_version = 0;         // 20 for 2.0
    float m_widestLine = 1;
    void (*m_bindVertexArray)(GLuint) = nullptr;
    void (*m_setDivisor)(GLuint, GLuint) = nullptr;
    void (*m_setPolygonMode)(GLenum, GLenum) = nullptr;
    SceneBuffers m_buffers;
    std::unique_ptr<SceneProgram> m_shapeProgram;
    std::unique_ptr<SceneProgram> m_billboardProgram;
    SceneGeometry::Shared<Vector3> m_corners; // of a billboard
};

} // namespace VOXI

#pragma once

#include "voxi2/controls/scenemath.h"
#include "voxi2/controls/scenevalues.h"

#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>

#include <memory>
#include <string>
#include <vector>

namespace VOXI {

/// Where programs expect what is one for each vertex.
enum SceneAttribute : GLuint { PositionAttribute, NormalAttribute, ColorAttribute };

/// A program of the graphics card, and the names of what it is told. Written for OpenGL 2.1 and
/// OpenGL ES 2, and whatever came later. Needs the context.
class SceneProgram
{
public:
    SceneProgram(const char* vertexSource, const char* fragmentSource);

    bool isUsable() const { return m_program->isLinked(); }
    void use() { m_program->bind(); }

    void set(const char* name, const Matrix4& value);
    /// The part that turns and scales, as directions of surfaces are mapped by it.
    void setNormalMatrix(const char* name, const Matrix4& value);
    void set(const char* name, float value) { m_program->setUniformValue(name, value); }
    void set(const char* name, int value) { m_program->setUniformValue(name, value); }
    void set(const char* name, const QVector4D& value) { m_program->setUniformValue(name, value); }
    void set(const char* name, const QVector3D& value) { m_program->setUniformValue(name, value); }
    void set(const char* name, const std::vector<QVector3D>& values);
    void set(const char* name, const std::vector<QVector4D>& values);

private:
    std::unique_ptr<QOpenGLShaderProgram> m_program;
};

/// Meshes, lines and points, with light.
std::unique_ptr<SceneProgram> makeShapeProgram();
/// Pictures in a rectangle of the screen.
std::unique_ptr<SceneProgram> makeBillboardProgram();

} // namespace VOXI

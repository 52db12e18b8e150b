#include "sceneprogram.h"

#include <QVector3D>
#include <QVector4D>

namespace VOXI {

namespace {

/// Colours lie in memory as their 32 bits do.
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
#define VOXI_CHANNELS "wzyx"
#else
#define VOXI_CHANNELS "xyzw"
#endif

const char* const ShapeVertex = R"(
attribute highp vec3 position;
attribute highp vec3 normal;
attribute lowp vec4 color;
uniform highp mat4 modelView;
uniform highp mat4 projection;
uniform highp mat3 normalMatrix;
uniform mediump float pointSize;
varying highp vec3 place;
varying highp vec3 direction;
varying lowp vec4 mixedColor;
void main()
{
    highp vec4 seen = modelView * vec4(position, 1.0);
    place = seen.xyz;
    direction = normalMatrix * normal;
    mixedColor = color.)" VOXI_CHANNELS R"(;
    gl_PointSize = pointSize;
    gl_Position = projection * seen;
}
)";

/// Both sides of a surface are lit, each by what is before it.
const char* const ShapeFragment = R"(
uniform lowp vec4 baseColor;
uniform lowp vec3 ambient;
uniform mediump float lit;
uniform mediump float parallelSight;
uniform int lightCount;
uniform highp vec4 lightPlaces[8];
uniform lowp vec3 lightColors[8];
varying highp vec3 place;
varying highp vec3 direction;
varying lowp vec4 mixedColor;
void main()
{
    lowp vec4 color = baseColor * mixedColor;
    if (lit > 0.5) {
        highp vec3 light = ambient;
        highp float size = length(direction);
        highp vec3 front = size > 0.0 ? direction / size : vec3(0.0);
        if (dot(front, mix(-place, vec3(0.0, 0.0, 1.0), parallelSight)) < 0.0)
            front = -front;
        for (int i = 0; i < 8; ++i) {
            if (i >= lightCount)
                break;
            highp vec3 way = lightPlaces[i].xyz - place * lightPlaces[i].w;
            light += lightColors[i] * max(dot(front, normalize(way)), 0.0);
        }
        color.rgb *= min(light, vec3(1.0));
    }
    gl_FragColor = color;
}
)";

const char* const BillboardVertex = R"(
attribute highp vec3 position;
uniform highp vec4 rectangle;
uniform highp float depth;
varying highp vec2 place;
void main()
{
    place = position.xy;
    gl_Position = vec4(mix(rectangle.xy, rectangle.zw, position.xy), depth, 1.0);
}
)";

const char* const BillboardFragment = R"(
uniform sampler2D picture;
varying highp vec2 place;
void main()
{
    gl_FragColor = texture2D(picture, place);
}
)";

} // namespace

SceneProgram::SceneProgram(const char* vertexSource, const char* fragmentSource)
    : m_program(std::make_unique<QOpenGLShaderProgram>())
{
    m_program->addShaderFromSourceCode(QOpenGLShader::Vertex, vertexSource);
    m_program->addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentSource);
    m_program->bindAttributeLocation("position", PositionAttribute);
    m_program->bindAttributeLocation("normal", NormalAttribute);
    m_program->bindAttributeLocation("color", ColorAttribute);
    m_program->link();
}

void SceneProgram::set(const char* name, const Matrix4& value)
{
    float numbers[16];
    for (std::size_t i = 0; i < 16; ++i)
        numbers[i] = static_cast<float>(value.columns()[i]);
    QOpenGLContext::currentContext()->functions()->glUniformMatrix4fv(
        m_program->uniformLocation(name), 1, GL_FALSE, numbers);
}

/// What undoes the matrix, transposed; the matrix itself where nothing does.
void SceneProgram::setNormalMatrix(const char* name, const Matrix4& value)
{
    const auto back = value.inverted();
    float numbers[9];
    for (std::size_t column = 0; column < 3; ++column)
        for (std::size_t row = 0; row < 3; ++row)
            numbers[column * 3 + row] =
                static_cast<float>(back ? back->at(column, row) : value.at(row, column));
    QOpenGLContext::currentContext()->functions()->glUniformMatrix3fv(
        m_program->uniformLocation(name), 1, GL_FALSE, numbers);
}

void SceneProgram::set(const char* name, const std::vector<QVector3D>& values)
{
    m_program->setUniformValueArray(name, values.data(), static_cast<int>(values.size()));
}

void SceneProgram::set(const char* name, const std::vector<QVector4D>& values)
{
    m_program->setUniformValueArray(name, values.data(), static_cast<int>(values.size()));
}

std::unique_ptr<SceneProgram> makeShapeProgram()
{
    return std::make_unique<SceneProgram>(ShapeVertex, ShapeFragment);
}

std::unique_ptr<SceneProgram> makeBillboardProgram()
{
    return std::make_unique<SceneProgram>(BillboardVertex, BillboardFragment);
}

} // namespace VOXI

#pragma once

#include "../kernel/toolkit.h"
#include "support/realinput.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxhgscene2.h"

#include <QImage>
#include <QTest>

#include <gtest/gtest.h>
#include <vector>

namespace VOXI {

/// A scene in a window that is shown.
class ShownScene : public testing::Test
{
protected:
    ShownScene()
    {
        m_window.resize({320, 240});
        m_window.moveTo({200, 150});
        m_window.setCentralWidget(m_scene);
        m_scene->setSamples(0);
        m_scene->setBackground(Color(20, 30, 60));
        m_window.show();
    }

    ~ShownScene() override { runDeletions(); }

    void SetUp() override
    {
        ASSERT_TRUE(m_scene->isAvailable());
        ASSERT_TRUE(QTest::qWaitForWindowActive(qt(m_window)));
        ASSERT_TRUE(waitFor([&] { return !m_frames.isEmpty(); }));
    }

    /// Pixels for each unit.
    double ratio() const { return qt(*m_scene)->devicePixelRatioF(); }
    QSize pixels() const { return qt(*m_scene)->size() * ratio(); }
    /// The pixel in whose middle, or next to it, that of the unit lies.
    QPoint pixelAt(QPoint unit) const
    {
        return {int((unit.x() + 0.5) * ratio()), int((unit.y() + 0.5) * ratio())};
    }

    /// What the scene looks like, with all its pixels.
    QImage picture() const
    {
        return qt(*m_scene)->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QRgb colorAt(QPoint unit) const { return picture().pixel(pixelAt(unit)); }
    QRgb middle() const { return colorAt(qt(*m_scene)->rect().center()); }

    /// In pixels.
    QPoint onScreen(QPoint unit) const { return pixelAt(qt(*m_scene)->mapToGlobal(unit)); }

    VXWindow2 m_window;
    VXHGScene2* m_scene = new VXHGScene2(&m_window);
    Log<VXHGSceneFrameEvent2> m_frames{m_scene->frameDrawn()};
};

/// A box of twelve triangles about the origin; its eight corners have colours of their own.
inline SceneGeometry coloredBox(float side)
{
    SceneVertices vertices;
    SceneBox box;
    box.add({-side / 2, -side / 2, -side / 2});
    box.add({side / 2, side / 2, side / 2});
    constexpr unsigned faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                      {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (const auto& face : faces) {
        const auto first = static_cast<std::uint32_t>(vertices.positions.size());
        for (const unsigned corner : face) {
            vertices.positions.push_back(box.corner(corner));
            vertices.colors.push_back(
                Color(corner & 1 ? 255 : 60, corner & 2 ? 255 : 60, corner & 4 ? 255 : 60));
        }
        for (const std::uint32_t k : {0u, 1u, 2u, 0u, 2u, 3u})
            vertices.indices.push_back(first + k);
    }
    return SceneGeometry(std::move(vertices));
}

/// A square before the camera that stands where a new scene's does.
inline SceneGeometry square(float side)
{
    const float h = side / 2;
    return SceneGeometry(
        SceneVertices{.positions = {{-h, -h, 0}, {h, -h, 0}, {h, h, 0}, {-h, h, 0}},
                      .indices = {0, 1, 2, 0, 2, 3}});
}

} // namespace VOXI

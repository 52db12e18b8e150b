#pragma once

#include "voxi2/controls/scenevalues.h"

#include <QImage>

#include <memory>
#include <unordered_map>

namespace VOXI {

/// The pictures of a scene's billboards, each drawn once.
class SceneLabels
{
public:
    using Billboard = std::shared_ptr<const SceneBillboard>;

    /// With `ratio` pixels for each of the widget's.
    const QImage& imageOf(const Billboard& billboard, double ratio);

    /// Forgets those of billboards that no node has any more.
    void sweep();

private:
    struct Label
    {
        Billboard m_billboard;
        QImage m_image;
    };

    std::unordered_map<const SceneBillboard*, Label> m_labels;
};

} // namespace VOXI

#include "voxi2/kernel/vxcanvas2.h"

#include "voxi_util/readwritelock.h"

#include <cmath>
#include <numbers>

namespace VOXI {

namespace {

struct MakerSlot
{
    ReadWriteLock m_lock;
    std::shared_ptr<CanvasMaker> m_maker;
};

/// Never destroyed: a back end may take its maker away while the process is exiting.
MakerSlot& makerSlot()
{
    static MakerSlot& slot = *new MakerSlot;
    return slot;
}

} // namespace

CanvasEngine::~CanvasEngine() = default;
CanvasMaker::~CanvasMaker() = default;

void CanvasMaker::install(std::shared_ptr<CanvasMaker> maker)
{
    MakerSlot& slot = makerSlot();
    const WriteLocker writing(slot.m_lock);
    slot.m_maker.swap(maker);
}

std::shared_ptr<CanvasMaker> CanvasMaker::installed()
{
    MakerSlot& slot = makerSlot();
    const ReadLocker reading(slot.m_lock);
    return slot.m_maker;
}

VXCanvas2::Session::Session(CanvasEngine& engine) : m_state(new State{.m_engine = &engine}) {}
VXCanvas2::Session::~Session() { m_state->m_engine = nullptr; }

void VXCanvas2::rotate(double degrees)
{
    transform(Transform::rotation(std::fmod(degrees, 360) * (std::numbers::pi / 180)));
}

Pixmap VXCanvas2::draw(const Size<int>& size, double pixelRatio,
                       const CanvasEngine::Painter& painter)
{
    const std::shared_ptr<CanvasMaker> maker = CanvasMaker::installed();
    if (!maker || !painter || size.isEmpty())
        return {};
    return maker->draw(size, std::isfinite(pixelRatio) && pixelRatio > 0 ? pixelRatio : 1, painter);
}

} // namespace VOXI

#pragma once

#include "trov/listener.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// Makes the Qt peer for every abstract object, and ends them by id. One for the process.
///
/// A parent whose peer is of the wrong kind counts as none: the peer is then made without a parent.
class VOXI2_QT_EXPORT QtFactory2 : public TROV::Listener
{
public:
    ~QtFactory2() override;

    /// Makes the one instance and connects it to the factory's requests; again it does nothing.
    static void createFactory(VXFactory2* factory);

    /// Destroys the peer of the object with that id; unknown ids are ignored.
    void destroyObject(unsigned uid);

private:
    explicit QtFactory2(VXFactory2& factory);

    template <class Peer, class Object, class Emitters, class... Rest>
    void serve(const TROV::Emitter<void(Object*, Emitters*, Rest...)>& request);

    static QtFactory2* m_factory;

    TROV::Thread* m_thread;
};

} // namespace VOXI

#pragma once

#include "trov/emitter.h"
#include "trov/thread.h"
#include "voxi/voxi_export.h"
#include "voxi_util/stringid.h"

namespace VOXI {

/// Where the abstract side and one back end meet: the thread that serves the back end's peers, and
/// an emitter for what reaches the abstract side from outside any object.
///
/// Bridges are made on demand and live as long as the process. All functions may be called from
/// any thread.
class VOXI_EXPORT VXBridge
{
public:
    using MessageEmitter = TROV::Emitter1<void, long long>;

    VXBridge(const VXBridge&) = delete;
    VXBridge& operator=(const VXBridge&) = delete;

    /// The bridge of that key, made when it is asked for first; never null.
    static VXBridge* getBridge(StringID key);

    const StringID& key() const noexcept { return m_key; }

    /// The thread that the back end was brought up on; null before that.
    TROV::Thread* thread() const noexcept { return m_thread.load(std::memory_order_acquire); }
    void setThread(TROV::Thread* thread);

    /// Carries native window values whose windows are to be raised.
    MessageEmitter& emitter() noexcept { return m_emitter; }

private:
    explicit VXBridge(const StringID& key) : m_key(key) {}
    ~VXBridge() = default;

    StringID m_key;
    std::atomic<TROV::Thread*> m_thread{nullptr};
    MessageEmitter m_emitter;
};

} // namespace VOXI

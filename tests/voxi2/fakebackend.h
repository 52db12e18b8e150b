#pragma once

#include "support/watchedtest.h"
#include "trov/requestbinding.h"
#include "trov/thread.h"
#include "voxi/guiobject.h"
#include "voxi/vxbridge.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2/kernel/vxhandle.h"

#include <functional>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace VOXI {

/// A peer that serves the requests common to all objects.
class FakePeer : public TROV::Listener, public GuiObject
{
public:
    explicit FakePeer(VXObject2* object) : m_object(object), m_id(object->id())
    {
        using E = VXObject2Emitters;
        using P = FakePeer;
        static const auto operations = TROV::operations(
            TROV::row<&E::destroy, &P::doDestroy>(), TROV::row<&E::setParent, &P::doSetParent>(),
            TROV::row<&E::getParent, &P::doGetParent>(),
            TROV::row<&E::getChildren, &P::doGetChildren>());
        addObject(m_id, this);
        m_requests.bind(*object->objectEmitters(), this, operations);
        ++s_alive;
    }
    ~FakePeer() override
    {
        m_requests.unbind();
        removeObject(m_id);
        --s_alive;
    }

    void doDestroy() { scheduleDelete(); }
    void deferDelete() override { delete this; }
    void doSetParent(VXObject* parent) { m_parents.push_back(parent); }
    VXObject* doGetParent() { return m_object; }
    std::vector<VXObject*> doGetChildren(bool) { return {m_object}; }

    static FakePeer* of(const VXObject* object) { return dynamic_cast<FakePeer*>(lookup(object)); }

    static inline int s_alive = 0;
    std::vector<VXObject*> m_parents;

private:
    VXObject2* m_object;
    unsigned m_id;
    TROV::RequestBinding m_requests;
};

/// A back end that makes fake peers for buttons and panels, on the thread it is made on.
class FakeBackEnd : public TROV::Listener
{
public:
    explicit FakeBackEnd(const char* key = "fake")
        : m_key(key),
          m_factory(VXBridge::getBridge(m_key))
    {
        m_factory.createButton2.connect(
            this, [this](VXButton2* button, VXButton2Emitters* emitters, VXObject* parent) {
                onButton(button, emitters, parent);
            });
        m_factory.createPanel2.connect(
            this, [](VXPanel2* panel, VXPanel2Emitters*, VXObject*) { new FakePeer(panel); });
        VXFactory2::registerFactory(m_key, &m_factory);
    }

    VXFactory2& factory() { return m_factory; }

    std::function<void(VXButton2*, VXButton2Emitters*, VXObject*)> onButton =
        [](VXButton2* button, VXButton2Emitters*, VXObject*) { new FakePeer(button); };

private:
    StringID m_key;
    VXFactory2 m_factory;
};

class BackEndTest : public WatchedTest
{
protected:
    // Hosted, so that calls which come before and between the loops wait for the next one.
    BackEndTest()
    {
        TROV::Thread::getCurrentThread()->bindWakeUp([] {});
    }
    ~BackEndTest() override { TROV::Thread::getCurrentThread()->unbindWakeUp(); }

    /// Runs `work` on a thread of its own while this one answers requests.
    static void onWorker(const std::function<void()>& work)
    {
        TROV::Thread* const self = TROV::Thread::getCurrentThread();
        std::thread worker([&] {
            work();
            self->post([self] { self->quit(); });
        });
        self->exec();
        worker.join();
    }
};

} // namespace VOXI

#include "toolkit.h"

#include "voxi2_qt/kernel/voxi2_qt.h"

#include <QAccessible>
#include <QEvent>

#include <gtest/gtest.h>

namespace VOXI {

namespace {

class Toolkit : public testing::Environment
{
public:
    void SetUp() override
    {
        eventLoopBinding() = std::make_unique<EventLoopBinding>();
        initialize_voxi2_qt();
    }

    void TearDown() override
    {
        terminate_voxi2_qt();
        eventLoopBinding().reset();
        runDeletions();
    }
};

const auto* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

} // namespace

std::unique_ptr<EventLoopBinding>& eventLoopBinding()
{
    static std::unique_ptr<EventLoopBinding> binding;
    return binding;
}

void runDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

QString spokenName(const VXWidget2& widget)
{
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(qt(widget));
    return interface ? interface->text(QAccessible::Name) : QString();
}

} // namespace VOXI

#pragma once

#include "support/watchedtest.h"
#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

namespace VOXI {

/// An abstract object with nothing of its own.
class TestObject : public VXObject
{
public:
    TestObject() = default;
    using VXObject::forEachObject;
    using VXObject::invalidate;
};

/// A peer that notes its end.
class TestPeer : public GuiObject
{
public:
    explicit TestPeer(int* deletions = nullptr) : m_deletions(deletions) {}
    ~TestPeer() override
    {
        if (m_deletions)
            ++*m_deletions;
    }

private:
    int* m_deletions;
};

} // namespace VOXI

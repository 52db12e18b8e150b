#include "fakebackend.h"

#include <future>
#include <memory>
#include <stdexcept>
#include <string>

namespace VOXI {
namespace {

using Objects = std::vector<VXObject2*>;

/// A panel that writes its name down when it ends.
class Named : public VXPanel2
{
public:
    Named(VXObject2* parent, std::string name, std::string& log) : VXPanel2(parent)
    {
        destroyed().connect(this, [name = std::move(name), &log] { log += name; });
    }
};

class OwnerTree : public WatchedTest
{
protected:
    ~OwnerTree() override { EXPECT_EQ(FakePeer::s_alive, 0); }
    FakeBackEnd m_backEnd;
    std::string m_log;
};

TEST_F(OwnerTree, keepsChildrenInTheOrderOfTheirComing)
{
    VXPanel2 root;
    auto* a = new VXPanel2(&root);
    auto* b = new VXPanel2(&root);
    auto* c = new VXPanel2(&root);
    auto* below = new VXPanel2(a);
    EXPECT_EQ(root.children(), (Objects{a, b, c}));
    EXPECT_EQ(root.children(true), (Objects{a, below, b, c}));

    a->setParent(&root);
    EXPECT_EQ(root.children(), (Objects{b, c, a}));
    c->setParent(b);
    EXPECT_EQ(root.children(true), (Objects{b, c, a, below}));
    EXPECT_EQ(c->parent(), b);
    delete a;
    EXPECT_EQ(root.children(true), (Objects{b, c}));
    delete b;
    EXPECT_TRUE(root.children().empty());
    auto* last = new VXPanel2(&root);
    EXPECT_EQ(root.children(), Objects{last});
    const std::unique_ptr<VXPanel2> alone(last);
    last->setParent(nullptr);
    EXPECT_EQ(last->parent(), nullptr);
    EXPECT_TRUE(root.children().empty());
}

TEST_F(OwnerTree, refusesParentsThatAreDeadOrDescendants)
{
    VXPanel2 root;
    auto* child = new VXPanel2(&root);
    auto* grandchild = new VXPanel2(child);
    auto* dead = new VXPanel2;
    FakePeer::of(child)->m_parents.clear();
    delete dead;

    child->setParent(dead);
    child->setParent(child);
    child->setParent(grandchild);
    root.setParent(grandchild);
    EXPECT_EQ(root.parent(), nullptr);
    EXPECT_EQ(child->parent(), &root);
    EXPECT_TRUE(FakePeer::of(child)->m_parents.empty());
    EXPECT_EQ(root.children(true), (Objects{child, grandchild}));

    const std::unique_ptr<VXPanel2> orphan(new VXPanel2(dead));
    EXPECT_EQ(orphan->parent(), nullptr);
    orphan->setParent(&root);
    EXPECT_EQ(FakePeer::of(orphan.get())->m_parents, std::vector<VXObject*>{&root});
}

TEST_F(OwnerTree, endsParentsBeforeTheirChildrenAndOldestFirst)
{
    auto* root = new Named(nullptr, "r", m_log);
    auto* a = new Named(root, "a", m_log);
    new Named(a, "x", m_log);
    new Named(root, "b", m_log);
    EXPECT_EQ(FakePeer::s_alive, 4);
    const unsigned id = root->id();
    root->destroyed().connect(root, [&](unsigned which) {
        EXPECT_EQ(which, id);
        // While it is told, the object still can be asked.
        EXPECT_TRUE(VXObject::isObjectValid(root));
        EXPECT_EQ(root->children().size(), 2u);
        EXPECT_EQ(root->peerParent(), root);
    });
    root->destroy();
    EXPECT_EQ(m_log, "raxb");
    EXPECT_FALSE(VXObject::isObjectValid(id));
    EXPECT_EQ(lookup(id), nullptr);
    EXPECT_EQ(FakePeer::s_alive, 0);
}

TEST_F(OwnerTree, handlersOfTheEndMayEndWhatTheyLike)
{
    auto* root = new Named(nullptr, "r", m_log);
    auto* a = new Named(root, "a", m_log);
    auto* b = new Named(root, "b", m_log);
    auto* c = new Named(root, "c", m_log);
    // The object itself, a sibling, and at last the parent that is not yet ending.
    a->destroyed().connect(a, [&] { a->destroy(); });
    a->destroyed().connect(a, [&] { delete c; });
    b->destroyed().connect(b, [&] { delete root; });
    delete a;
    EXPECT_EQ(m_log, "ac");
    delete b;
    EXPECT_EQ(m_log, "acbr");
    EXPECT_FALSE(VXObject::isObjectValid(root));
}

TEST_F(OwnerTree, childrenAddedWhileTheParentEndsGoWithIt)
{
    auto* root = new VXPanel2;
    unsigned late = 0;
    root->destroyed().connect(root, [&] { late = (new Named(root, "late", m_log))->id(); });
    delete root;
    EXPECT_EQ(m_log, "late");
    EXPECT_FALSE(VXObject::isObjectValid(late));
}

TEST_F(OwnerTree, whatAHandlerOfTheEndThrowsIsReported)
{
    std::string reported;
    TROV::Thread::setExceptionHandler([&](std::exception_ptr error) {
        try {
            std::rethrow_exception(error);
        } catch (const std::exception& e) {
            reported = e.what();
        }
    });
    auto* panel = new VXPanel2;
    auto* child = new Named(panel, "child", m_log);
    panel->destroyed().connect(panel, [] { throw std::runtime_error("from the end"); });
    delete panel;
    EXPECT_EQ(m_log, "child");
    EXPECT_FALSE(VXObject::isObjectValid(child));
    TROV::Thread::getCurrentThread()->process();
    EXPECT_EQ(reported, "from the end");
    TROV::Thread::setExceptionHandler({});
}

TEST_F(OwnerTree, anotherThreadMayEndIt)
{
    auto* root = new VXPanel2;
    auto* child = new VXPanel2(root);
    const unsigned ids[] = {root->id(), child->id()};
    onWorker([&] {
        root->destroy();
        EXPECT_FALSE(VXObject::isObjectValid(ids[0]));
        EXPECT_FALSE(VXObject::isObjectValid(ids[1]));
    });
    EXPECT_EQ(lookup(ids[0]), nullptr);
    EXPECT_EQ(lookup(ids[1]), nullptr);
    EXPECT_EQ(FakePeer::s_alive, 0);
}

} // namespace
} // namespace VOXI

#pragma once

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"

#include <QTest>
#include <QTreeWidget>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace VOXI {

/// A property whose text is what a test says.
class AskedProperty : public VXSimpleProperty2
{
public:
    using Text = std::function<std::wstring()>;

    explicit AskedProperty(Text text, VXObject2* parent = nullptr)
        : VXSimpleProperty2("asked", PropertyType::text(), parent),
          m_text(std::move(text))
    {}

    std::wstring getValue() const override
    {
        const Text text = m_text; // which the call may end
        return text();
    }
    void refreshData() override
    {
        if (m_refresh)
            m_refresh();
    }

    std::function<void()> m_refresh;

private:
    Text m_text;
};

/// An order, or another comparison that a test makes up.
class Order : public VXSimplePropertyComparator2
{
public:
    using Less = std::function<bool(const VXSimpleProperty2&, const VXSimpleProperty2&)>;

    explicit Order(Less less) : m_less(std::move(less)) {}
    bool isLess(const VXSimpleProperty2& a, const VXSimpleProperty2& b) const override
    {
        return m_less(a, b);
    }

private:
    Less m_less;
};

class PropertyBrowserTest : public testing::Test
{
public:
    PropertyBrowserTest()
    {
        m_browser->resize({320, 300});
        m_browser->show();
        qt(*m_browser)->activateWindow();
        EXPECT_TRUE(waitFor([&] { return qt(*m_browser)->isActiveWindow(); }));
    }
    ~PropertyBrowserTest() override
    {
        if (m_handle)
            delete m_browser;
        runDeletions();
    }

    VXSimpleProperty2* add(const char* name, const any& value, VXSimpleProperty2* group = nullptr)
    {
        auto* const property = new VXSimpleProperty2(name, value, &m_owner);
        m_browser->addProperty(property, group);
        return property;
    }
    VXSimpleProperty2* addGroup(const char* name, VXSimpleProperty2* group = nullptr)
    {
        auto* const property = new VXSimpleProperty2(name, &m_owner);
        m_browser->addProperty(property, group);
        return property;
    }

    QTreeWidget& tree() const { return *qt(*m_browser)->findChild<QTreeWidget*>(); }
    QTreeWidgetItem* item(const char* name) const
    {
        const auto found =
            tree().findItems(QString::fromLatin1(name), Qt::MatchExactly | Qt::MatchRecursive, 0);
        return found.isEmpty() ? nullptr : found.front();
    }
    QPoint middle(const char* name, int column = 1) const
    {
        return tree().visualRect(tree().indexFromItem(item(name), column)).center();
    }
    /// The widget that is on the value.
    QWidget* editor(const char* name) const
    {
        QTreeWidgetItem* const at = item(name);
        return at ? tree().itemWidget(at, 1) : nullptr;
    }
    void click(const char* name, int column = 1) const
    {
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, middle(name, column));
        turn();
    }

    /// "a=1 (b=2 c=3)" of what is not hidden.
    std::string shown() const
    {
        turn();
        return shownIn(*tree().invisibleRootItem());
    }
    static std::string shownIn(const QTreeWidgetItem& group)
    {
        std::string text;
        for (int i = 0; i < group.childCount(); ++i) {
            const QTreeWidgetItem& each = *group.child(i);
            if (each.isHidden())
                continue;
            text += (text.empty() ? "" : " ") + each.text(0).toStdString() + "="
                    + each.text(1).toStdString();
            if (const std::string inside = shownIn(each); !inside.empty())
                text += " (" + inside + ")";
        }
        return text;
    }

    VXObject2& m_owner = *new VXSimpleProperty2;
    VXSimplePropertyBrowser2* m_browser = new VXSimplePropertyBrowser2;
    VXHandle<VXSimplePropertyBrowser2> m_handle{m_browser};

private:
    struct End
    {
        VXObject2& m_object;
        ~End() { m_object.destroy(); }
    } m_end{m_owner};
};

} // namespace VOXI

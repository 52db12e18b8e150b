// Pages of properties, made of other widgets.

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "support/worker.h"
#include "voxi2/modelview/vxpropertypages2.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class PropertyPages : public testing::Test
{
protected:
    PropertyPages()
    {
        m_number.setDescription("How many");
        m_number.setDefaultValue(1);
        m_first->addProperty(&m_number);
        m_second->addProperty(&m_text);
        m_pages.resize({400, 400});
        m_pages.show();
        turn();
    }

    QTreeWidget& tree(VXSimplePropertyBrowser2* page) const
    {
        return *qt(*page)->findChild<QTreeWidget*>();
    }
    /// What stands on the page's foot.
    QStringList foot() const
    {
        QStringList texts;
        for (const QLabel* each : qt(m_pages)->findChildren<QLabel*>()) {
            if (each->isVisible() && !each->text().isEmpty())
                texts.append(each->text());
        }
        return texts;
    }
    QPushButton& reset() const { return *qt(m_pages)->findChild<QPushButton*>(); }
    void goTo(VXSimplePropertyBrowser2* page)
    {
        turn();
        QTreeWidget& shown = tree(page);
        QTest::mouseClick(shown.viewport(), Qt::LeftButton, {},
                          shown.visualItemRect(shown.topLevelItem(0)).center());
        turn();
    }

    VXSimpleProperty2 m_number{"number", PropertyType::integer(0, 9)};
    VXSimpleProperty2 m_text{"text", any("one")};
    VXPropertyPages2 m_pages;
    VXSimplePropertyBrowser2* m_first = m_pages.addPage("First");
    VXSimplePropertyBrowser2* m_second = m_pages.addPage("Second");
};

TEST_F(PropertyPages, areTabsWithOneSearch)
{
    const auto* const bar = qt(m_pages)->findChild<QTabBar*>();
    EXPECT_EQ(bar->tabText(1), QStringLiteral("Second"));
    EXPECT_EQ(m_pages.currentPage(), m_first);
    m_pages.setCurrentPage(m_second);
    EXPECT_EQ(bar->currentIndex(), 1);

    auto* const search = qt(m_pages)->findChild<QLineEdit*>();
    QTest::keyClicks(search, QStringLiteral("numb"));
    turn();
    EXPECT_FALSE(tree(m_first).topLevelItem(0)->isHidden());
    EXPECT_TRUE(tree(m_second).topLevelItem(0)->isHidden());
    EXPECT_EQ(m_pages.search(), L"numb");
    EXPECT_EQ(m_pages.addPage("Third")->filter(), L"numb");
    m_pages.setSearch("");
    EXPECT_FALSE(tree(m_second).topLevelItem(0)->isHidden());
    EXPECT_EQ(search->text(), QString());

    m_pages.removePage(m_first);
    EXPECT_EQ(m_pages.pages().size(), 2u);
    EXPECT_EQ(m_pages.pages().front(), m_second);
    TROV::Worker worker;
    VXSimplePropertyBrowser2* made = nullptr;
    std::atomic<bool> isMade{false};
    worker.thread()->post([&] {
        made = m_pages.addPage("By a worker");
        isMade = true;
    });
    EXPECT_TRUE(waitFor([&] { return isMade.load(); }));
    EXPECT_EQ(m_pages.pages().back(), made);
}

TEST_F(PropertyPages, mayEndWhileTheyAreAskedFor)
{
    for (int turns = 0; turns < 12; ++turns) {
        const VXHandle<VXPropertyPages2> pages(new VXPropertyPages2);
        TROV::Worker worker;
        std::atomic<bool> isOver{false};
        worker.thread()->post([pages, &isOver] {
            pages.with([pages](VXPropertyPages2& made) {
                VXSimplePropertyBrowser2* const page = made.addPage("Page");
                EXPECT_EQ(page != nullptr, pages.isValid());
                if (page)
                    made.setCurrentPage(page);
            });
            isOver = true;
        });
        for (int i = 0; i < turns; ++i)
            turn();
        delete pages.get();
        EXPECT_TRUE(waitFor([&] { return isOver.load(); }));
    }
    runDeletions();

    auto* const pages = new VXPropertyPages2;
    pages->addPage("First");
    auto* const second = pages->addPage("Second");
    pages->show();
    turn();
    second->shown().connect(second, [pages] { delete pages; });
    pages->setCurrentPage(second);
    runDeletions();
}

TEST_F(PropertyPages, sayWhatThereIsToSayOfTheProperty)
{
    EXPECT_TRUE(foot().isEmpty());
    EXPECT_FALSE(reset().isEnabled());
    goTo(m_first);
    EXPECT_EQ(foot(), (QStringList{QStringLiteral("number"), QStringLiteral("How many")}));
    EXPECT_TRUE(reset().isEnabled());
    EXPECT_FALSE(m_number.imitateEdit(77));
    EXPECT_EQ(foot().size(), 3);
    Log edited(m_number.valueEdited());
    reset().click();
    EXPECT_EQ(m_number.valueText(), "1");
    EXPECT_EQ(edited.count(), 1);
    EXPECT_EQ(foot().size(), 2);
    EXPECT_FALSE(reset().isEnabled());
    m_number.imitateEdit(5);
    EXPECT_TRUE(reset().isEnabled());
    m_pages.setCurrentPage(m_second);
    goTo(m_second);
    EXPECT_EQ(foot(), QStringList{QStringLiteral("text")});
    m_text.destroy();
    EXPECT_TRUE(foot().isEmpty());
    EXPECT_FALSE(reset().isEnabled());
}

} // namespace
} // namespace VOXI

#pragma once

#include "explorerwindow.h"
#include "sql/shopsample.h"
#include "support/temporaryfolder.h"
#include "support/waitfor.h"
#include "support/watchdog.h"
#include "voxi2/controls/vxedit2.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace VOXI {

/// A window of the explorer over a small shop, in a folder of its own.
class ExplorerTest : public testing::Test
{
protected:
    using Path = std::filesystem::path;
    static constexpr auto Patience = std::chrono::seconds(20);

    ~ExplorerTest() override { m_explorer.reset(); } // before its folder

    Path shop()
    {
        const Path file = m_folder / "shop.db";
        if (!std::filesystem::exists(file))
            SQL::makeShop(file, 2'000);
        return file;
    }
    Path write(const std::string& name, const std::string& bytes)
    {
        return TemporaryFolder::write(m_folder / name, bytes);
    }
    static std::string read(const Path& file) { return TemporaryFolder::read(file); }

    explorer::ExplorerWindow& explorer()
    {
        if (!m_explorer)
            m_explorer = std::make_unique<explorer::ExplorerWindow>(
                explorer::Settings(m_folder / "settings"));
        return *m_explorer;
    }
    /// Ends it; the next one finds its settings.
    void end() { m_explorer.reset(); }
    /// Opens it and waits until its first table is there.
    void open(const Path& file)
    {
        bool isSettled = false;
        explorer().whenSettled([&] { isSettled = true; });
        explorer().open(file);
        ASSERT_TRUE(waitFor([&] { return isSettled; }, Patience)) << message();
    }
    /// Chooses it in the tree.
    void choose(const std::string& table)
    {
        auto* const tree = find<VXTreeView2>("schema");
        const auto& model = static_cast<VXTreeModel2&>(*tree->viewModel());
        tree->clearSelection();
        for (const unsigned database : model.childRows(0)) {
            for (const unsigned group : model.childRows(database)) {
                for (const unsigned row : model.childRows(group)) {
                    if (model.value(row, 1).textU() == std::wstring(table.begin(), table.end()))
                        tree->imitateSetSelection({{row, 1, nullptr}, {row, 1, nullptr}});
                }
            }
        }
    }
    void show(const std::string& table)
    {
        choose(table);
        waitUntilShown(table);
    }
    void waitUntilShown(const std::string& table)
    {
        ASSERT_TRUE(waitFor(
            [&] {
                const auto& reader = explorer().rows().reader();
                return reader && reader->name().name == table && !explorer().rows().isListing();
            },
            Patience));
    }

    template <class T>
    T* find(const std::string& name)
    {
        for (VXObject2* object : explorer().window()->children(true)) {
            auto* const found = dynamic_cast<T*>(object);
            if (found && found->objectName() == name)
                return found;
        }
        return nullptr;
    }
    void trigger(const std::string& action) { find<VXAction2>(action)->imitateTrigger(); }
    VXTableView2& rows() { return *explorer().rows().table(); }
    /// What the cell shows, when it is known.
    std::wstring text(unsigned row, unsigned column)
    {
        waitFor([&] { return rows().cellInfo(row, column).isKnown; }, Patience);
        return rows().cellInfo(row, column).text;
    }
    std::wstring message() { return find<VXNotificationBar2>("messages")->notification().text; }

    const TemporaryFolder m_folder;
    const Watchdog m_watchdog{std::chrono::seconds(120), "explorer"};

private:
    std::unique_ptr<explorer::ExplorerWindow> m_explorer;
};

} // namespace VOXI

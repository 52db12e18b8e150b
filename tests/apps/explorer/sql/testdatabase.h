#pragma once

#include "sql/rowreader.h"
#include "support/temporaryfolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace SQL {

/// A folder that is gone after the test.
class DatabaseTest : public testing::Test
{
protected:
    std::filesystem::path path(const std::string& name) const { return m_folder / name; }

    /// A database that was made by the SQL, and closed.
    std::filesystem::path made(const std::string& name, const std::string& sql) const
    {
        Database(path(name), Database::Mode::Create).execute(sql);
        return path(name);
    }

    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
            names.push_back(entry.path().filename());
        return names;
    }

    static std::string contentOf(const std::filesystem::path& file)
    {
        return TemporaryFolder::read(file);
    }

    static std::filesystem::path write(const std::filesystem::path& file,
                                       const std::string& content)
    {
        return TemporaryFolder::write(file, content);
    }

    static std::vector<unsigned> all(RowReader& reader, const RowOrder& order = {},
                                     std::size_t piece = 1000)
    {
        std::vector<unsigned> rows;
        const auto listing = reader.list(order);
        while (!listing->isDone()) {
            const auto next = listing->next(piece);
            rows.insert(rows.end(), next.begin(), next.end());
        }
        return rows;
    }

    /// Of a column in the order, with a slash behind each.
    static std::string texts(RowReader& reader, std::size_t column, const RowOrder& order = {})
    {
        std::string texts;
        for (const auto& row : reader.read(all(reader, order), {column}))
            texts += row.isThere ? textOf(row.cells[0].value) + "/" : "gone/";
        return texts;
    }

    /// What the call throws.
    template <class Call>
    static Error errorOfCall(const Call& call)
    {
        try {
            call();
        } catch (const Error& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return Error(Error::Kind::Other, "none");
    }

private:
    TemporaryFolder m_folder;
};

} // namespace SQL

#pragma once

#include "benchsupport.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"

#include <QAbstractItemModel>
#include <QString>

#include <numeric>
#include <string>
#include <utility>
#include <vector>

// The same rows on either side. What is shown of them is in memory, so that neither side pays for
// making it.

namespace bench {

constexpr unsigned Columns = 20;

template <class Text>
const Text& textAt(unsigned row, unsigned column)
{
    static const std::vector<Text> texts = [] {
        std::vector<Text> made;
        for (unsigned i = 0; i < 1009; ++i) {
            const QString text = QStringLiteral("Value %1").arg(i * 7919 % 10007);
            if constexpr (std::is_same_v<Text, QString>)
                made.push_back(text);
            else
                made.push_back(text.toStdWString());
        }
        return made;
    }();
    return texts[(row * 31 + column * 17) % texts.size()];
}

inline std::vector<unsigned> numbers(unsigned first, unsigned count)
{
    std::vector<unsigned> made(count);
    std::iota(made.begin(), made.end(), first);
    return made;
}

/// An application's model.
class VoxiRows : public VOXI::VXAbstractViewModel2
{
public:
    explicit VoxiRows(unsigned rows)
    {
        changeSize(VOXI::SizeChange2::appendColumns(numbers(1, Columns)));
        changeSize(VOXI::SizeChange2::appendRows(numbers(1, rows)));
    }

    void query(const VOXI::ViewQuery2& query) override
    {
        VOXI::QueryResult2 result;
        result.reserve(query.rows().size() * query.columns().size());
        for (const unsigned row : query.rows()) {
            for (const unsigned column : query.columns())
                result.set(row, column, textAt<std::wstring>(row, column));
        }
        answer(query, std::move(result));
    }

    using VXAbstractViewModel2::changeSize;
};

/// The same by a Qt programmer: the rows in a vector, a text for the one role that has any.
class QtRows : public QAbstractTableModel
{
public:
    explicit QtRows(unsigned rows) : m_rows(numbers(1, rows)) {}

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(Columns);
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return textAt<QString>(m_rows[static_cast<std::size_t>(index.row())],
                               static_cast<unsigned>(index.column()) + 1);
    }

    void insert(int at, unsigned row)
    {
        beginInsertRows({}, at, at);
        m_rows.insert(m_rows.begin() + at, row);
        endInsertRows();
    }
    void remove(int at)
    {
        beginRemoveRows({}, at, at);
        m_rows.erase(m_rows.begin() + at);
        endRemoveRows();
    }

private:
    std::vector<unsigned> m_rows;
};

} // namespace bench

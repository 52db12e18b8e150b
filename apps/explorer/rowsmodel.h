#pragma once

#include "document.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace explorer {

/// Rows of a table, a view or a result, for a table view: the view's numbers of rows are the
/// reader's, its columns are counted from 1. Cells are read by the worker as they come into sight.
class RowsModel : public VOXI::VXAbstractViewModel2
{
public:
    RowsModel(Document& document, std::shared_ptr<SQL::RowReader> reader, VOXI::VXObject2* parent);

    const SQL::RowReader& reader() const noexcept { return *m_reader; }

    /// Shows more rows, at once.
    void append(const std::vector<unsigned>& rows);
    void remove(const std::vector<unsigned>& rows);
    void removeAll();
    std::size_t rowCount() const noexcept { return m_rows.size(); }
    /// 0 when there is none.
    unsigned lastRow() const noexcept { return m_rows.empty() ? 0 : m_rows.back(); }
    /// Reads cells anew.
    void reread(unsigned row);
    void reread() { clearCachedUIData(); }

    /// What the database did not take, shown in its cell with what was said of it.
    struct Rejected
    {
        SQL::Value value;
        std::string message;
    };
    using Place = std::pair<unsigned, unsigned>; ///< row and column
    void reject(Place place, Rejected rejected);
    void forgetRejected(Place place);
    void forgetRejected();
    /// Those of a model of the same rows.
    void adoptRejected(const RowsModel& other) { m_rejected = other.m_rejected; }
    const std::map<Place, Rejected>& rejected() const noexcept { return m_rejected; }

protected:
    void query(const VOXI::ViewQuery2& query) override;
    void queryHeader(const VOXI::HeaderQuery2& query) override;
    std::vector<VOXI::SizeChange2> shape() const override;

private:
    Document& m_document;
    const std::shared_ptr<SQL::RowReader> m_reader;
    std::vector<unsigned> m_rows;
    std::map<Place, Rejected> m_rejected;
};

} // namespace explorer

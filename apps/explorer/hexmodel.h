#pragma once

#include "document.h"
#include "voxi2/modelview/vxabstractviewmodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <memory>

namespace explorer {

/// The bytes of one cell, sixteen in a row; read as they come into sight.
class HexModel : public VOXI::VXAbstractViewModel2
{
public:
    /// In place of what the table shows.
    static void show(VOXI::VXTableView2& table, Document& document,
                     std::shared_ptr<SQL::RowReader> reader, unsigned row, std::size_t column,
                     std::int64_t size);
    static void clear(VOXI::VXTableView2& table);

protected:
    void query(const VOXI::ViewQuery2& query) override;
    void queryHeader(const VOXI::HeaderQuery2& query) override;

private:
    HexModel(Document& document, std::shared_ptr<SQL::RowReader> reader, unsigned row,
             std::size_t column, std::int64_t size, VOXI::VXObject2* parent);
    void appendRows();

    Document& m_document;
    const std::shared_ptr<SQL::RowReader> m_reader;
    const unsigned m_row;
    const std::size_t m_column;
    const unsigned m_rows;
    unsigned m_shownRows = 0;
};

} // namespace explorer

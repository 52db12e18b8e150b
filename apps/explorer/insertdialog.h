#pragma once

#include "document.h"

#include <functional>
#include <memory>

namespace explorer {

/// Asks for the cells of a new row. What a constraint does not let in is said at its field.
class InsertDialog
{
public:
    /// Shows it and returns; `inserted` gets the row's number.
    static void open(VOXI::VXObject2* parent, Document& document,
                     const std::shared_ptr<SQL::RowReader>& reader,
                     std::function<void(unsigned row)> inserted);
};

} // namespace explorer

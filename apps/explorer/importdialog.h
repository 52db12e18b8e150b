#pragma once

#include "document.h"

#include <filesystem>
#include <functional>
#include <string>

namespace explorer {

/// Reads a CSV file into a table: shows first what is in it, and afterwards what was wrong with it.
class ImportDialog
{
public:
    /// Shows it and returns; `done` is called when a table has got rows.
    static void open(VOXI::VXObject2* parent, Document& document, const std::filesystem::path& file,
                     std::function<void(const std::string& table)> done);
};

} // namespace explorer

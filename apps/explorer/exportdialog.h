#pragma once

#include "document.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace explorer {

/// Writes rows to a file, and shows how far it is.
class ExportDialog
{
public:
    struct Job
    {
        std::shared_ptr<SQL::RowReader> reader;
        SQL::RowOrder order;
        std::uint64_t expectedRows = 0; ///< 0: nobody knows
        std::filesystem::path file;     ///< that is proposed, without its ending
    };
    /// Shows it and returns; `done` gets what there is to say of it.
    static void open(VOXI::VXObject2* parent, Document& document, Job job,
                     std::function<void(const std::string&)> done);
};

} // namespace explorer

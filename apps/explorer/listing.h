#pragma once

#include "document.h"

#include <functional>
#include <memory>
#include <vector>

namespace explorer {

/// Has the worker list the rows of a reader in an order, piece by piece: the next one when the one
/// before has been taken, so that the window has time for others. Its end stops it.
class Listing
{
public:
    struct Piece
    {
        std::vector<unsigned> rows;
        bool isLast = false;
    };
    using Take = Document::Answer<Piece>;

    /// `take` gets each piece, or what went wrong; it may end the listing.
    Listing(Document& document, std::shared_ptr<SQL::RowReader> reader, SQL::RowOrder order,
            Take take);
    ~Listing();
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;

private:
    struct Run;
    static void next(const std::shared_ptr<Run>& run);

    std::shared_ptr<Run> m_run;
};

} // namespace explorer

#include "listing.h"

#include <utility>

namespace explorer {

namespace {

constexpr std::size_t FirstRows = 500; ///< more than a window shows
constexpr std::size_t MoreRows = 50'000;
/// Of numbers in no order, which a view keeps at other places of its memory each.
constexpr std::size_t MoreSortedRows = 10'000;

} // namespace

struct Listing::Run
{
    Document& document;
    const std::shared_ptr<SQL::RowReader> reader;
    const SQL::RowOrder order;
    const Take take;
    SQL::CancelToken token{};
    std::shared_ptr<SQL::RowListing> listing{}; ///< the worker's

    Piece nextPiece()
    {
        const bool isFirst = !listing;
        if (isFirst)
            listing = document.lend(std::shared_ptr<SQL::RowListing>(reader->list(order, token)));
        Piece piece;
        const bool isSorted = order.column != SQL::RowOrder::Natural;
        piece.rows = listing->next(isFirst ? FirstRows : isSorted ? MoreSortedRows : MoreRows);
        piece.isLast = listing->isDone();
        return piece;
    }
};

Listing::Listing(Document& document, std::shared_ptr<SQL::RowReader> reader, SQL::RowOrder order,
                 Take take)
    : m_run(new Run{document, std::move(reader), std::move(order), std::move(take)})
{
    next(m_run);
}

Listing::~Listing() { m_run->token.cancel(); }

void Listing::next(const std::shared_ptr<Run>& run)
{
    run->document.ask<Piece>([run](SQL::Database&) { return run->nextPiece(); },
                             [run](Outcome<Piece> piece) {
                                 if (run->token.isCancelled())
                                     return;
                                 const bool goesOn = piece.value && !piece.value->isLast;
                                 run->take(std::move(piece));
                                 if (goesOn && !run->token.isCancelled())
                                     next(run);
                             });
}

} // namespace explorer

#pragma once

#include "document.h"
#include "filterrow.h"
#include "listing.h"
#include "rowsmodel.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxtableview2.h"

#include <functional>
#include <memory>
#include <optional>

namespace explorer {

/// Rows in a table that its user sorts and filters; both are the database's work.
class RowsPane
{
public:
    RowsPane(VOXI::VXObject2* parent, const std::string& objectName);

    VOXI::VXPanel2* panel() const noexcept { return m_panel; }
    VOXI::VXTableView2* table() const noexcept { return m_table; }

    /// What is told to the window.
    struct Events
    {
        std::function<void(const std::string&)> status = {}; ///< how many rows there are
        std::function<void(const SQL::Error&)> failed = {};
        /// The user has gone to another cell, or to none, which is row 0.
        std::function<void(unsigned row, unsigned column)> cellChosen = {};
    };
    void setEvents(Events events) { m_events = std::move(events); }

    void show(Document& document, std::shared_ptr<SQL::RowReader> reader);
    /// Shows nothing.
    void clear();
    /// Lists all rows anew; the current cell stays where it is. While the user types in a cell, it
    /// waits for the end of that.
    void refresh();
    /// Gives up what takes too long; what is shown stays.
    void stop();
    void focusFilter();

    /// Column 0, or the same one for the third time: as they stand in the file.
    void sortBy(unsigned column, VOXI::SortOrder order);

    bool isListing() const noexcept { return m_isListing; }
    /// How many rows are shown so far.
    std::uint64_t count() const noexcept { return m_count; }
    /// Null while there is nothing.
    RowsModel* model() const { return m_model.get(); }
    const std::shared_ptr<SQL::RowReader>& reader() const noexcept { return m_reader; }
    const SQL::RowOrder& order() const noexcept { return m_order; }
    /// Whether the user types in a cell just now.
    bool isEdited() const;
    /// As if he had pressed Return.
    void endEditing();
    /// Whether it shows what the database did not take.
    bool hasRejected() const { return model() && !model()->rejected().empty(); }
    /// Rows that have come or gone by the editor.
    void addToCount(int rows);

private:
    void list();
    void take(Outcome<Listing::Piece> piece);
    void beginModel();
    RowsModel& showNewModel();
    void choose(unsigned row, unsigned column);
    void goToEnd();
    void noteKey(const VOXI::VXKeyEvent2& event);
    void setFirstWidths();
    void tellStatus();

    VOXI::VXPanel2* const m_panel;
    VOXI::VXTableView2* const m_table;
    FilterRow m_filters;
    Events m_events;
    Document* m_document = nullptr;
    std::shared_ptr<SQL::RowReader> m_reader;
    SQL::RowOrder m_order;
    std::unique_ptr<Listing> m_listing;
    VOXI::VXHandle<RowsModel> m_model;
    std::uint64_t m_count = 0;
    unsigned m_wantedRow = 0; ///< that was the current one, and has not been listed yet
    unsigned m_wantedColumn = 0;
    bool m_isListing = false;
    bool m_isFirstPiece = false;
    bool m_isLastWanted = false;     ///< the user has gone to the end, before that was known
    bool m_isTaking = false;         ///< rows come and go, by no doing of the user
    bool m_isRefreshWaiting = false; ///< for the end of an edit
};

} // namespace explorer

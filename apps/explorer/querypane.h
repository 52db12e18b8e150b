#pragma once

#include "document.h"
#include "rowspane.h"
#include "sql/completion.h"
#include "sql/script.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vxtext2.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace explorer {

/// SQL that the user writes and runs, and what comes of it.
class QueryPane
{
public:
    explicit QueryPane(VOXI::VXObject2* parent);

    VOXI::VXSplitter2* widget() const noexcept { return m_split; }
    VOXI::VXEditArea2* editor() const noexcept { return m_editor; }
    RowsPane& rows() noexcept { return m_rows; }

    struct Events
    {
        std::function<void()> runningChanged = {};
        std::function<void(const std::vector<SQL::StatementResult>&)> finished = {};
    };
    void setEvents(Events events) { m_events = std::move(events); }

    /// Null: there is nothing to ask.
    void setDocument(Document* document);
    void setCatalog(SQL::Catalog catalog) { m_catalog = std::move(catalog); }

    /// What is selected, or all.
    void run();
    void stop();
    bool isRunning() const noexcept { return m_isRunning; }
    /// Offers what the word at the cursor may become, as it does while somebody types.
    void complete();
    void setText(const std::string& sql);

private:
    using Results = std::vector<SQL::StatementResult>;

    void take(Outcome<Results> outcome);
    void showError(const SQL::Error& error);
    void showResult(std::size_t which);
    void suggest(const VOXI::VXEditAreaSuggestEvent2& event) const;

    VOXI::VXSplitter2* const m_split;
    VOXI::VXEditArea2* const m_editor;
    VOXI::VXPanel2* const m_lower;
    VOXI::VXComboBox2* const m_choice; ///< of several results
    VOXI::VXText2* const m_summary;
    RowsPane m_rows;
    const std::map<SQL::CandidateKind, VOXI::Icon> m_icons;
    Events m_events;
    Document* m_document = nullptr;
    SQL::Catalog m_catalog;
    SQL::CancelToken m_token;
    Results m_results; ///< those with rows
    int m_start = 0;   ///< of what runs, in the text
    std::string m_sql; ///< that runs
    bool m_isRunning = false;
};

} // namespace explorer

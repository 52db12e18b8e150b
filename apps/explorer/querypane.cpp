#include "querypane.h"

#include "celllook.h"
#include "icons.h"
#include "sql/text.h"
#include "sqlcolors.h"
#include "voxi2/containers/vxboxlayout2.h"

#include <utility>

namespace explorer {

using namespace VOXI;

namespace {

constexpr unsigned ErrorMark = 1;
constexpr int MostLookedThrough = 100'000; ///< characters

std::string titleOf(std::size_t which, const SQL::StatementResult& result)
{
    std::string sql = result.sql.substr(0, 60);
    for (char& each : sql) {
        if (each == '\n')
            each = ' ';
    }
    return std::to_string(which + 1) + ": " + sql;
}

} // namespace

QueryPane::QueryPane(VXObject2* parent)
    : m_split(new VXSplitter2(parent, Orientation::Vertical)),
      m_editor(new VXEditArea2(m_split)),
      m_lower(new VXPanel2(m_split)),
      m_choice(new VXComboBox2(m_lower)),
      m_summary(new VXText2(m_lower)),
      m_rows(m_lower, "result"),
      m_icons{{SQL::CandidateKind::Column, icon(Picture::Column)},
              {SQL::CandidateKind::Table, icon(Picture::Table)},
              {SQL::CandidateKind::Database, icon(Picture::Sample)},
              {SQL::CandidateKind::Keyword, Icon()}}
{
    m_split->setCollapsible(nullptr, false);
    m_split->setSizes({220, 320});
    m_editor->setObjectName("sql");
    m_editor->setFont(VXFont("monospace", 10));
    m_editor->setLineNumbersVisible(true);
    m_editor->setCurrentLineHighlighted(true);
    m_editor->setMarksVisible(true);
    m_editor->setTabWidth(4);
    m_editor->setPlaceholder("SELECT …   Ctrl+Return runs it, Ctrl+Space completes a name");
    colorAsSql(m_editor);
    m_editor->setSuggestionLength(2);
    m_choice->setObjectName("results");
    m_choice->setMinimumCharacters(30);
    m_choice->hide();
    m_summary->setObjectName("query-summary");
    m_summary->setElideMode(TextElideMode::Right);
    auto* const line = new VXBoxLayout2;
    auto* const lower = new VXBoxLayout2(m_lower, Direction::TopToBottom);
    lower->setMargins({0, 4, 0, 0});
    lower->addLayout(line);
    line->addWidget(m_choice);
    line->addWidget(m_summary, 1);
    lower->addWidget(m_rows.panel(), 1);

    m_choice->currentChanged().connect(m_split, [this](const VXComboBoxSelectEvent2&) {
        showResult(static_cast<std::size_t>(m_choice->currentIndex()));
    });
    m_editor->textEdited().connect(m_split,
                                   [this](const VXEditAreaTextEvent2&) { m_editor->clearMarks(); });
    m_editor->suggestionsWanted().connect(
        m_split, [this](const VXEditAreaSuggestEvent2& event) { suggest(event); });
}

void QueryPane::setDocument(Document* document)
{
    stop();
    m_isRunning = false;
    m_document = document;
    m_results.clear();
    m_rows.clear();
    m_choice->clear();
    m_choice->hide();
    m_summary->setText("");
    m_catalog = {};
}

void QueryPane::run()
{
    if (m_isRunning || !m_document)
        return;
    const TextRange selected = m_editor->selection();
    m_start = selected.length > 0 ? selected.start : 0;
    m_sql = SQL::utf8FromWide(selected.length > 0 ? m_editor->selectedText() : m_editor->textU());
    m_editor->clearMarks();
    m_summary->setText("Running …");
    m_isRunning = true;
    m_token = {};
    m_document->ask<Results>(
        [sql = m_sql, token = m_token, document = m_document](SQL::Database& database) {
            Results results = SQL::runScript(database, sql, {}, token);
            for (SQL::StatementResult& result : results) {
                if (result.rows)
                    result.rows = document->lend(std::move(result.rows));
            }
            return results;
        },
        [this](Outcome<Results> outcome) { take(std::move(outcome)); });
    if (m_events.runningChanged)
        m_events.runningChanged();
}

void QueryPane::stop() { m_token.cancel(); }

void QueryPane::take(Outcome<Results> outcome)
{
    m_isRunning = false;
    m_results.clear();
    m_choice->clear();
    if (outcome.error)
        showError(*outcome.error);
    else
        m_summary->setText("There is nothing to run.");
    const Results all = outcome.value ? std::move(*outcome.value) : Results();
    for (const SQL::StatementResult& result : all) {
        if (result.rows) {
            m_choice->addItem(SQL::wideFromUtf8(titleOf(m_results.size(), result)));
            m_results.push_back(result);
        }
    }
    m_choice->setVisible(m_results.size() > 1);
    if (!m_results.empty()) {
        m_choice->setCurrentIndex(static_cast<int>(m_results.size()) - 1);
        showResult(m_results.size() - 1);
    } else {
        m_rows.clear();
    }
    if (!all.empty()) {
        const SQL::StatementResult& last = all.back();
        if (last.error)
            showError(*last.error);
        else if (!last.rows)
            m_summary->setText("Done; " + grouped(static_cast<std::uint64_t>(last.changes))
                               + " rows changed.");
    }
    if (m_events.runningChanged)
        m_events.runningChanged();
    if (m_events.finished)
        m_events.finished(all);
}

void QueryPane::showError(const SQL::Error& error)
{
    const std::wstring message = SQL::wideFromUtf8(error.what());
    m_summary->setText(error.isCancelled() ? std::wstring(L"Stopped.") : message);
    if (error.position() < 0 || error.isCancelled())
        return;
    const auto before = m_sql.substr(0, static_cast<std::size_t>(error.position()));
    const int position = m_start + static_cast<int>(SQL::wideFromUtf8(before).size());
    m_editor->setCursorPosition(position);
    m_editor->setMark(
        {.uid = ErrorMark, .line = m_editor->placeOf(position).line, .toolTip = message});
}

void QueryPane::showResult(std::size_t which)
{
    if (which >= m_results.size())
        return;
    const SQL::StatementResult& result = m_results[which];
    const auto milliseconds = result.duration.count() / 1000;
    m_summary->setText(grouped(result.rowCount)
                       + (result.isLimited ? " rows, and more, in " : " rows in ")
                       + std::to_string(milliseconds) + " ms");
    m_rows.show(*m_document, result.rows);
}

void QueryPane::complete()
{
    m_editor->setFocus();
    m_editor->imitateSuggestionKey();
}

/// While somebody types not in what is so long that he would notice.
void QueryPane::suggest(const VXEditAreaSuggestEvent2& event) const
{
    if (event.isTyping() && m_editor->length() > MostLookedThrough)
        return event.answer({});
    const auto position = static_cast<std::size_t>(event.position());
    const SQL::Completions found = SQL::complete(m_editor->textU(), position, m_catalog);
    std::vector<TextSuggestion> suggestions;
    for (const SQL::Candidate& each : found.candidates)
        suggestions.push_back({.text = SQL::wideFromUtf8(each.text),
                               .detail = SQL::wideFromUtf8(each.detail),
                               .icon = m_icons.at(each.kind)});
    const int begin = static_cast<int>(found.begin);
    event.answer({begin, event.position() - begin}, suggestions);
}

void QueryPane::setText(const std::string& sql)
{
    m_editor->setSelection({0, m_editor->length()});
    m_editor->insert(SQL::wideFromUtf8(sql));
    m_editor->setFocus();
}

} // namespace explorer

#include "plaintextlayout.h"
#include "qteditarea2scopes.h"
#include "textcoloring.h"
#include "textmargin.h"
#include "textposition.h"
#include "voxi2_qt/controls/qteditarea2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtleavingkey.h"
#include "widepositions.h"

#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace VOXI {

namespace {

using E = VXEditArea2Emitters;

constexpr int MostComposed = 1'000'000;       ///< units of lines that are looked through
constexpr qsizetype PastedAtOnce = 1'000'000; ///< units
constexpr int ZoomStep = 10;                  ///< percent

} // namespace

// Reports -----------------------------------------------------------------------------------------

void QtEditArea2::connectSignals()
{
    connect(this, &QTextEdit::selectionChanged, this, &QtEditArea2::slotSelectionChanged);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            &QtEditArea2::slotScrollAction);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &QtEditArea2::slotScrolled);
    m_coloring->look();
}

/// Qt is in the middle of it: it is only noted.
void QtEditArea2::slotContentsChange(int from, int removed, int added)
{
    removed = std::clamp(removed, 0, std::max(m_positions->length() - from, 0));
    added = std::clamp(added, 0, std::max(text().characterCount() - 1 - from, 0));
    const int pairsBefore = m_positions->pairs();
    m_positions->change(text(), from, removed, added);
    trim(from, removed, added);
    if (removed == 0 && added == 0)
        return;
    ++m_edits;
    const bool isUsers = !QtProgramScope::isActive();
    if (m_groupDepth > 0)
        m_isGroupBegun = !isUsers;
    if (!isUsers || !mayBeHeard())
        return;
    const QString come = textBetween(text(), from, from + added);
    const int pairsCome = added - toWidePosition(come, added);
    const int pairsGone = pairsBefore + pairsCome - m_positions->pairs();
    m_changes.push_back({toWide(from), removed - pairsGone, come});
}

void QtEditArea2::slotContentsChanged()
{
    if (!m_isRich && mayBeHeard())
        m_coloring->look();
    if (m_changes.empty())
        return;
    const QtReportHold hold;
    for (const Change& change : std::exchange(m_changes, {}))
        report(&E::textEdited, change.m_position, change.m_removed, toStdWString(change.m_added));
}

void QtEditArea2::slotModificationChanged(bool modified)
{
    if (!QtProgramScope::isActive())
        report(&E::modifiedChanged, modified);
}

void QtEditArea2::slotBlockCountChanged()
{
    m_margin->update();
    applyMargin();
}

void QtEditArea2::slotCursorPositionChanged()
{
    if (m_isHighlighting)
        highlightCurrentLine();
    if (m_margin->areNumbersVisible())
        m_margin->update();
    // Qt tells twice of what an input method does.
    const int position = textCursor().position();
    const bool isTold = m_userDepth > 0 && std::exchange(m_reportedCursor, position) == position;
    if (!isTold && mayBeHeard())
        reportCursor();
}

void QtEditArea2::slotSelectionChanged() { reportSelection(); }

/// The user moves the scroll bar: what follows is his doing.
void QtEditArea2::slotScrollAction()
{
    const QScrollBar& bar = *verticalScrollBar();
    m_isScrolledByUser = !QtProgramScope::isActive() && bar.sliderPosition() != bar.value();
}

void QtEditArea2::slotScrolled()
{
    const bool isUsers = std::exchange(m_isScrolledByUser, false) || m_userDepth > 0;
    const int line = cursorForPosition({0, 0}).blockNumber();
    if (std::exchange(m_topLine, line) != line && isUsers && !QtProgramScope::isActive())
        report(&E::scrolled, line);
}

void QtEditArea2::slotMarginClicked(int line)
{
    const TextMark* const mark = m_margin->areMarksVisible() ? m_margin->markAt(line) : nullptr;
    report(&E::marginClicked, line, mark ? mark->uid : 0U);
}

void QtEditArea2::keyPressEvent(QKeyEvent* event)
{
    const int way = leavingWay(*event);
    if (way != 0 && QWidget::focusNextPrevChild(way > 0))
        return;
    if (passToSuggestions(*event))
        return;
    const UserAct act(*this);
    const int position = textCursor().position();
    const int edits = m_edits;
    QtAbstractEdit2Shim::keyPressEvent(event);
    if (textCursor().position() != position)
        ensureCursorVisible(); // see `show`
    const bool isWritten = !event->text().isEmpty() && event->text().front().isPrint();
    suggestBehind(edits, isWritten || event->key() == Qt::Key_Backspace, isWritten);
}

void QtEditArea2::inputMethodEvent(QInputMethodEvent* event)
{
    const UserAct act(*this);
    compose(*event);
    const int edits = m_edits;
    QtAbstractEdit2Shim::inputMethodEvent(event);
    m_composed = {};
    const bool isWritten = !event->commitString().isEmpty();
    if (!event->preeditString().isEmpty())
        withdrawSuggestions();
    else
        suggestBehind(edits, isWritten, isWritten);
}

void QtEditArea2::mousePressEvent(QMouseEvent* event)
{
    const UserAct act(*this);
    QtAbstractEdit2Shim::mousePressEvent(event);
}

/// No report waits for the end of this: Qt runs a loop in it while a text is dragged.
void QtEditArea2::mouseMoveEvent(QMouseEvent* event)
{
    const QtDeletionHold hold(this);
    beginUserAct();
    QtAbstractEdit2Shim::mouseMoveEvent(event);
    if (hold.isAlive())
        --m_userDepth;
}

void QtEditArea2::mouseReleaseEvent(QMouseEvent* event)
{
    const UserAct act(*this);
    QtAbstractEdit2Shim::mouseReleaseEvent(event);
}

void QtEditArea2::mouseDoubleClickEvent(QMouseEvent* event)
{
    const UserAct act(*this);
    QtAbstractEdit2Shim::mouseDoubleClickEvent(event);
}

void QtEditArea2::wheelEvent(QWheelEvent* event)
{
    const UserAct act(*this);
    if (event->modifiers() & Qt::ControlModifier)
        zoomBy(event->angleDelta().y());
    else
        QtAbstractEdit2Shim::wheelEvent(event);
}

void QtEditArea2::dropEvent(QDropEvent* event)
{
    const UserAct act(*this);
    QtAbstractEdit2Shim::dropEvent(event);
}

void QtEditArea2::changeEvent(QEvent* event)
{
    const QtProgramScope scope;
    QtAbstractEdit2Shim::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::ApplicationFontChange:
        applyFont();
        break;
    case QEvent::LayoutDirectionChange:
        applyMargin();
        break;
    case QEvent::PaletteChange:
        highlightCurrentLine();
        break;
    default:
        break;
    }
}

void QtEditArea2::paintEvent(QPaintEvent* event)
{
    QtAbstractEdit2Shim::paintEvent(event);
    if (!m_isRich && mayBeHeard())
        m_coloring->look();
}

void QtEditArea2::resizeEvent(QResizeEvent* event)
{
    const QtProgramScope scope;
    QtAbstractEdit2Shim::resizeEvent(event);
    placeMargin();
}

/// What comes into sight is laid out now, and may be higher than it was thought to be: what was in
/// sight already stays where it is.
void QtEditArea2::scrollContentsBy(int dx, int dy)
{
    QtAbstractEdit2Shim::scrollContentsBy(dx, dy);
    m_margin->update();
    PlainTextLayout* const layout = plainLayout();
    if (!layout || dy == 0 || m_isAnchoring)
        return;
    const int top = verticalScrollBar()->value();
    const int height = viewport()->height();
    const int anchor = std::abs(dy) < height ? std::max(top, top + dy) : top;
    if (const int grown = layout->layOut(top, top + height, anchor)) {
        const QScopedValueRollback<bool> anchoring(m_isAnchoring, true);
        verticalScrollBar()->setValue(top + grown);
    }
}

QMimeData* QtEditArea2::createMimeDataFromSelection() const
{
    if (m_isRich)
        return QtAbstractEdit2Shim::createMimeDataFromSelection();
    const QTextCursor cursor = textCursor();
    auto* const copied = new QMimeData;
    copied->setText(textBetween(text(), cursor.selectionStart(), cursor.selectionEnd()));
    return copied;
}

void QtEditArea2::insertFromMimeData(const QMimeData* source)
{
    if (m_isRich) {
        QtAbstractEdit2Shim::insertFromMimeData(source);
        return;
    }
    if (!source || isReadOnly())
        return;
    const QString pasted = source->text();
    QTextCursor cursor = textCursor();
    if (pasted.size() <= PastedAtOnce || QtProgramScope::isActive()) {
        cursor.insertText(pasted);
        show(cursor);
        return;
    }
    cursor.removeSelectedText();
    cursor.setKeepPositionOnInsert(false);
    m_pasting.reset(new Pasting{pasted, 0, cursor});
    QTimer::singleShot(0, this, &QtEditArea2::pasteMore);
}

// Helpers -----------------------------------------------------------------------------------------

/// So many lines that nobody notices how long that takes. Who undoes meanwhile does not want it.
void QtEditArea2::pasteMore()
{
    if (!m_pasting || isReadOnly() || (m_pasting->m_done > 0 && text().isRedoAvailable())) {
        m_pasting.reset();
        return;
    }
    Pasting& pasting = *m_pasting;
    // A line is taken whole, or it is laid out for each piece of it.
    const qsizetype least = std::min(pasting.m_done + PastedAtOnce, pasting.m_text.size()) - 1;
    const qsizetype lineEnd = pasting.m_text.indexOf(QLatin1Char('\n'), least);
    const qsizetype end = lineEnd < 0 ? pasting.m_text.size() : lineEnd + 1;
    const QString more = pasting.m_text.mid(pasting.m_done, end - pasting.m_done);
    const bool isFirst = std::exchange(pasting.m_done, end) == 0;
    const bool isLast = end == pasting.m_text.size();
    QTextCursor at = pasting.m_at;
    if (isLast)
        m_pasting.reset();
    else
        QTimer::singleShot(0, this, &QtEditArea2::pasteMore);
    const UserAct act(*this);
    if (isFirst)
        at.beginEditBlock();
    else
        at.joinPreviousEditBlock();
    at.insertText(more);
    at.endEditBlock();
    if (!isLast)
        pasting.m_at = at;
    if (isLast)
        ensureCursorVisible();
}

/// Remembers the lines that the input method may change: Qt tells of them as a whole.
void QtEditArea2::compose(const QInputMethodEvent& event)
{
    const QTextCursor cursor = textCursor();
    const int from = cursor.selectionStart() + std::min(event.replacementStart(), 0);
    const int end =
        std::max(cursor.selectionEnd(),
                 cursor.selectionStart() + event.replacementStart() + event.replacementLength());
    const QTextBlock first = text().findBlock(std::max(from, 0));
    QTextBlock last = text().findBlock(end);
    if (!last.isValid())
        last = text().lastBlock();
    const int length = last.position() + last.length() - first.position();
    if (length <= MostComposed)
        m_composed = {first.position(),
                      textBetween(text(), first.position(), first.position() + length)};
}

/// Takes away what has stayed as it was, while something is composed.
void QtEditArea2::trim(int& from, int& removed, int& added) const
{
    const int start = from - m_composed.m_from;
    if (m_composed.m_from < 0 || start < 0 || start + removed > m_composed.m_text.size())
        return;
    const QStringView former = QStringView(m_composed.m_text).sliced(start, removed);
    const QString now = textBetween(text(), from, from + added);
    const auto isSplit = [](QStringView whole, qsizetype at) {
        return at > 0 && at < whole.size() && whole[at].isLowSurrogate()
               && whole[at - 1].isHighSurrogate();
    };
    const qsizetype most = std::min(former.size(), now.size());
    qsizetype before =
        std::mismatch(former.begin(), former.begin() + most, now.begin()).first - former.begin();
    while (isSplit(former, before) || isSplit(now, before))
        --before;
    qsizetype behind = 0;
    while (behind < most - before
           && former[former.size() - 1 - behind] == now[now.size() - 1 - behind])
        ++behind;
    while (isSplit(former, former.size() - behind) || isSplit(now, now.size() - behind))
        --behind;
    from += static_cast<int>(before);
    removed -= static_cast<int>(before + behind);
    added -= static_cast<int>(before + behind);
}

void QtEditArea2::beginUserAct() noexcept
{
    if (m_userDepth++ == 0)
        m_reportedCursor = -1;
}

void QtEditArea2::zoomBy(int steps)
{
    const int former = m_zoom;
    {
        const QtProgramScope scope;
        doSetZoom(m_zoom + (steps > 0 ? ZoomStep : steps < 0 ? -ZoomStep : 0));
    }
    if (m_zoom != former)
        report(&E::zoomed, m_zoom);
}

void QtEditArea2::askForColors(unsigned query, int firstLine, const QString& text)
{
    reportMade(&E::coloringWanted, [&] {
        return VXEditAreaColoringEvent2({getUID(), query, firstLine, toStdWString(text)});
    });
}

} // namespace VOXI

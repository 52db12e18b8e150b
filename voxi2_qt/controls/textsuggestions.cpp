#include "textsuggestions.h"

#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qtanchor.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTextEdit>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

constexpr int RowsInSight = 10;
constexpr int MostMeasured = 200; ///< of which the width is looked at

} // namespace

class TextSuggestions::Model final : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    const std::vector<TextSuggestion>& all() const noexcept { return m_all; }
    void set(std::vector<TextSuggestion> all)
    {
        beginResetModel();
        m_all = std::move(all);
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_all.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : 2;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const TextSuggestion& each = m_all[static_cast<std::size_t>(index.row())];
        if (role == Qt::DisplayRole)
            return toQString(index.column() == 0 ? each.text : each.detail);
        if (role == Qt::DecorationRole && index.column() == 0 && !each.icon.isNull())
            return VX2Qt(each.icon);
        return {};
    }

private:
    std::vector<TextSuggestion> m_all;
};

TextSuggestions::TextSuggestions(QTextEdit& area)
    : QTreeView(&area),
      m_area(area),
      m_model(new Model(this)),
      m_anchor(new QtAnchor(this))
{
    setWindowFlags(Qt::ToolTip); // which takes no focus
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(toQString(translated("Suggestions")));
    setModel(m_model);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.installEventFilter(this);
    connect(&area, &QTextEdit::cursorPositionChanged, this, &TextSuggestions::slotCursorMoved);
    for (const QScrollBar* bar : {area.horizontalScrollBar(), area.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &TextSuggestions::slotPlace);
    connect(m_anchor, &QtAnchor::moved, this, &TextSuggestions::slotPlace);
    connect(m_anchor, &QtAnchor::gone, this, &TextSuggestions::withdraw);
}

TextSuggestions::~TextSuggestions() = default;

void TextSuggestions::offer(const QTextCursor& range,
                            const std::vector<TextSuggestion>& suggestions)
{
    m_start = m_end = QTextCursor(m_area.document());
    m_start.setPosition(range.selectionStart());
    m_start.setKeepPositionOnInsert(true);
    m_end.setPosition(range.selectionEnd());
    const bool isThere =
        suggestions.size() == 1 && toQString(suggestions.front().text) == range.selectedText();
    if (suggestions.empty() || isThere || !m_area.hasFocus() || m_area.isReadOnly()
        || !isAtCursor()) {
        withdraw();
        return;
    }
    m_model->set(suggestions);
    setCurrentIndex(m_model->index(0, 0));
    fit();
    slotPlace();
    if (m_model->all().empty()) // it cannot be seen
        return;
    show();
    m_anchor->watch();
}

void TextSuggestions::withdraw()
{
    m_anchor->unwatch();
    hide();
    m_model->set({});
}

const std::vector<TextSuggestion>& TextSuggestions::offered() const { return m_model->all(); }

QTextCursor TextSuggestions::range() const
{
    QTextCursor range(m_area.document());
    range.setPosition(m_start.position()); // its anchor moves
    range.setPosition(m_end.position(), QTextCursor::KeepAnchor);
    return range;
}

bool TextSuggestions::wantsKey(const QKeyEvent& event) const
{
    if (!isOffering() || (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

void TextSuggestions::takeKey(QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        withdraw();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        Q_EMIT taken(currentIndex().row());
        break;
    default:
        keyPressEvent(&event);
        break;
    }
}

bool TextSuggestions::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_area && isOffering()
        && (event->type() == QEvent::FocusOut || event->type() == QEvent::EnabledChange
            || event->type() == QEvent::ReadOnlyChange))
        withdraw();
    return QTreeView::eventFilter(watched, event);
}

void TextSuggestions::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid())
        Q_EMIT taken(index.row());
}

void TextSuggestions::slotCursorMoved()
{
    if (isOffering() && !isAtCursor())
        withdraw();
}

void TextSuggestions::slotPlace()
{
    if (m_model->all().empty())
        return;
    m_anchor->set(m_area.viewport(), m_area.cursorRect(m_start));
    const QRect anchor = m_anchor->visibleRect();
    if (anchor.isEmpty())
        withdraw();
    else
        move(placeBeside(anchor, size(), AnchorSide::Below, m_area.screen()->availableGeometry(),
                         layoutDirection()));
}

bool TextSuggestions::isAtCursor() const
{
    const int position = m_area.textCursor().position();
    return position >= m_start.position() && position <= m_end.position();
}

/// Windows inherit nothing of this.
void TextSuggestions::fit()
{
    setFont(m_area.font());
    setLayoutDirection(m_area.layoutDirection());
    QPalette palette = m_area.palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setBrush(QPalette::Inactive, role, palette.brush(QPalette::Active, role));
    setPalette(palette);
    const int rows = m_model->rowCount();
    int width = 2 * frameWidth();
    for (int column = 0; column < 2; ++column) {
        int widest = 0;
        for (int row = 0; row < std::min(rows, MostMeasured); ++row)
            widest = std::max(widest, sizeHintForIndex(m_model->index(row, column)).width());
        setColumnWidth(column, widest);
        width += widest;
    }
    if (rows > RowsInSight)
        width += verticalScrollBar()->sizeHint().width();
    const int height = sizeHintForIndex(m_model->index(0, 0)).height();
    const QSize room = m_area.screen()->availableGeometry().size();
    resize(std::min(width, room.width() / 2),
           2 * frameWidth() + height * std::min(rows, RowsInSight));
}

} // namespace VOXI

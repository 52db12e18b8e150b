#include "voxi2_qt/controls/qtlistbox2.h"

#include "../kernel/qtignored.h"
#include "../kernel/qtunitsinto.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

#include <QKeyEvent>
#include <QToolTip>

#include <cstring>
#include <new>

namespace VOXI {

namespace {

using E = VXListBox2Emitters;
using P = QtListBox2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::addItems, &P::doAddItems>(),
    TROV::row<&E::addItemsU, &P::doAddItemsU>(),
    TROV::row<&E::insertItems, &P::doInsertItems>(),
    TROV::row<&E::insertItemsU, &P::doInsertItemsU>(),
    TROV::row<&E::removeItems, &P::doRemoveItems>(),
    TROV::row<&E::setSelection, &P::doSetSelection>(),
    TROV::row<&E::clearSelection, &P::doClearSelection>(),
    TROV::row<&E::setCurrentRow, &P::doSetCurrentRow>(),
    TROV::row<&E::setSelectionMode, &P::doSetSelectionMode>(),
    TROV::row<&E::getItems, &P::doGetItems>(),
    TROV::row<&E::getItemsU, &P::doGetItemsU>(),
    TROV::row<&E::getItemAt, &P::doGetItemAt>(),
    TROV::row<&E::getItemAtU, &P::doGetItemAtU>(),
    TROV::row<&E::getSelections, &P::doGetSelections>(),
    TROV::row<&E::getSelectionMode, &P::doGetSelectionMode>(),
    TROV::row<&E::getCurrentRow, &P::doGetCurrentRow>(),
    asUserRow<&E::select, &P::doimSelect>(),
    asUserRow<&E::selectByString, &P::doimSelectByString>(),
    TROV::row<&E::count, &P::doCount>(),
    TROV::row<&E::eraseItem, &P::doEraseItem>());
// clang-format on

template <class Text>
bool isSimple(const Text& text)
{
    return text.find('&') == Text::npos;
}

/// Qt prepares its search first, at a third of what an item costs.
template <class Text>
QString simplified(const Text& text)
{
    QString shown = toQString(text);
    if (!isSimple(text))
        shown.replace(QStringLiteral("&nbsp;"), QStringLiteral(" "));
    return shown;
}

/// Keeps its text behind itself, in the same piece of memory, until that is changed. Qt's own has a
/// list of values for it, which costs more than the text.
class TextItem final : public QListWidgetItem
{
public:
    static TextItem* make(QStringView text)
    {
        TextItem* const item = make(text.size());
        std::memcpy(static_cast<void*>(item->ownUnits()), text.data(), bytesOf(text.size()));
        return item;
    }
    static TextItem* makeSimplified(const std::string& text) { return make(simplified(text)); }
    static TextItem* makeSimplified(const std::wstring& text)
    {
        if (isSimple(text)) {
            TextItem* const item = make(static_cast<qsizetype>(text.size()));
            if (unitsInto(item->ownUnits(), text))
                return item;
            delete item;
        }
        return make(simplified(text));
    }

    QListWidgetItem* clone() const override
    {
        return m_isChanged ? QListWidgetItem::clone() : make(ownText());
    }
    QVariant data(int role) const override
    {
        return isText(role) && !m_isChanged ? ownText().toString() : QListWidgetItem::data(role);
    }
    void setData(int role, const QVariant& value) override
    {
        m_isChanged = m_isChanged || isText(role);
        QListWidgetItem::setData(role, value);
    }

    static void operator delete(void* memory) { ::operator delete(memory); }

private:
    explicit TextItem(qsizetype length) : m_length(length) {}

    static TextItem* make(qsizetype length)
    {
        return ::new (::operator new(sizeof(TextItem) + bytesOf(length))) TextItem(length);
    }
    QChar* ownUnits() { return reinterpret_cast<QChar*>(this + 1); }
    QStringView ownText() const { return {reinterpret_cast<const QChar*>(this + 1), m_length}; }
    static std::size_t bytesOf(qsizetype length)
    {
        return static_cast<std::size_t>(length) * sizeof(QChar);
    }
    static bool isText(int role) { return role == Qt::DisplayRole || role == Qt::EditRole; }

    const qsizetype m_length;
    bool m_isChanged = false;
};

template <class Text, class Convert>
auto textsOf(const QListWidget& list, Convert convert)
{
    Text texts;
    texts.reserve(static_cast<std::size_t>(list.count()));
    for (int row = 0; row < list.count(); ++row)
        texts.push_back(convert(list.item(row)->text()));
    return texts;
}

} // namespace

QtListBox2::QtListBox2(VXListBox2* object, VXListBox2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    setBackgroundRole(QPalette::Base);
    connect(this, &QListWidget::itemEntered, this, &QtListBox2::slotItemEntered);
}

// Requests ----------------------------------------------------------------------------------------

void QtListBox2::doAddItems(const VXStringList& items, const Icon&) { insertTexts(count(), items); }

void QtListBox2::doAddItemsU(const std::vector<std::wstring>& items, const Icon&)
{
    insertTexts(count(), items);
}

void QtListBox2::doInsertItems(int row, const VXStringList& items, const Icon&)
{
    insertTexts(row, items);
}

void QtListBox2::doInsertItemsU(int row, const std::vector<std::wstring>& items, const Icon&)
{
    insertTexts(row, items);
}

void QtListBox2::doRemoveItems(int row)
{
    const QtSignalBlocker blocker(this);
    if (row == -1)
        clear();
    else if (QListWidgetItem* at = item(row))
        setItemWidget(at, nullptr);
    else
        ignored(*this, Reason::NoIndex);
}

void QtListBox2::doSetSelection(int row, bool selected)
{
    const QtSignalBlocker blocker(this);
    if (QListWidgetItem* at = item(row))
        at->setSelected(selected);
    else
        ignored(*this, Reason::NoIndex);
}

void QtListBox2::doClearSelection()
{
    const QtSignalBlocker blocker(this);
    clearSelection();
}

void QtListBox2::doSetCurrentRow(int row)
{
    const QtSignalBlocker blocker(this);
    if (row < -1 || row >= count())
        ignored(*this, Reason::NoIndex);
    setCurrentRow(row);
}

void QtListBox2::doSetSelectionMode(VOXI::SelectionMode mode) { setSelectionMode(VX2Qt(mode)); }

VXStringList QtListBox2::doGetItems()
{
    return textsOf<VXStringList>(*this, [](const QString& text) { return toStdString(text); });
}

std::vector<std::wstring> QtListBox2::doGetItemsU()
{
    return textsOf<std::vector<std::wstring>>(
        *this, [](const QString& text) { return toStdWString(text); });
}

std::string QtListBox2::doGetItemAt(int row)
{
    const QListWidgetItem* at = item(row);
    return at ? toStdString(at->text()) : std::string();
}

std::wstring QtListBox2::doGetItemAtU(int row)
{
    const QListWidgetItem* at = item(row);
    return at ? toStdWString(at->text()) : std::wstring();
}

std::vector<int> QtListBox2::doGetSelections()
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    std::vector<int> rows;
    rows.reserve(static_cast<std::size_t>(selected.size()));
    for (const QModelIndex& index : selected)
        rows.push_back(index.row());
    return rows;
}

VOXI::SelectionMode QtListBox2::doGetSelectionMode() { return Qt2VX(selectionMode()); }
int QtListBox2::doGetCurrentRow() { return currentRow(); }

void QtListBox2::doimSelect(int row)
{
    if (QListWidgetItem* at = item(row))
        at->setSelected(true);
}

void QtListBox2::doimSelectByString(const std::string& text)
{
    for (QListWidgetItem* match : findItems(toQString(text), Qt::MatchExactly))
        match->setSelected(true);
}

int QtListBox2::doCount() { return count(); }

void QtListBox2::doEraseItem(int row)
{
    const QtSignalBlocker blocker(this);
    if (row < 0 || row >= count())
        ignored(*this, Reason::NoIndex);
    delete takeItem(row);
}

// Reports -----------------------------------------------------------------------------------------

void QtListBox2::connectSignals()
{
    connect(this, &QListWidget::itemSelectionChanged, this, &QtListBox2::slotItemSelectionChanged);
    connect(this, &QListWidget::itemDoubleClicked, this, &QtListBox2::slotItemDoubleClicked);
}

void QtListBox2::slotItemSelectionChanged()
{
    if (isHeard(&E::selectionChanged))
        report(&E::selectionChanged, doGetSelections());
}

void QtListBox2::slotItemDoubleClicked(QListWidgetItem* item)
{
    report(&E::doubleClicked, row(item));
}

void QtListBox2::slotItemEntered(QListWidgetItem* item)
{
    QToolTip::showText(QPoint(0, 0), QString());
    if (item->sizeHint().width() > viewport()->width())
        QToolTip::showText(viewport()->mapToGlobal(visualItemRect(item).topLeft()), item->text());
}

bool QtListBox2::event(QEvent* event)
{
    // Delete is the list's, whatever shortcut the window has.
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete)
        event->accept();
    return QtWidget2Shim::event(event);
}

// Helpers -----------------------------------------------------------------------------------------

template <class Text>
QString QtListBox2::simplifyItemString(const Text& text)
{
    return simplified(text);
}

template <class Texts>
void QtListBox2::insertTexts(int row, const Texts& texts)
{
    const QtSignalBlocker blocker(this);
    if (row < count()) {
        QStringList shown;
        shown.reserve(static_cast<qsizetype>(texts.size()));
        for (const auto& text : texts)
            shown.push_back(simplifyItemString(text));
        insertItems(row, shown);
    } else {
        append(texts);
    }
}

/// Qt takes items of one's own only one by one. Behind all others, where no selection is parted, it
/// does to tell the view of them together.
template <class Texts>
void QtListBox2::append(const Texts& texts)
{
    const int first = count();
    {
        const QtSignalBlocker quiet(model());
        int row = first;
        for (const auto& text : texts)
            insertItem(row++, TextItem::makeSimplified(text));
    }
    if (count() > first)
        rowsInserted(QModelIndex(), first, count() - 1);
}

} // namespace VOXI

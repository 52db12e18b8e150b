#include "voxi2_qt/controls/qtcombobox2.h"

#include "../kernel/qtignored.h"
#include "qtaccessiblecombobox.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QAbstractItemView>
#include <QStandardItemModel>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

using E = VXComboBox2Emitters;
using P = QtComboBox2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::insertItems, &P::doInsertItems>(),
    TROV::row<&E::insertSeparator, &P::doInsertSeparator>(),
    TROV::row<&E::setItem, &P::doSetItem>(),
    TROV::row<&E::getItem, &P::doGetItem>(),
    TROV::row<&E::removeItem, &P::doRemoveItem>(),
    TROV::row<&E::clear, &P::doClear>(),
    TROV::row<&E::count, &P::doCount>(),
    TROV::row<&E::findUid, &P::doFindUid>(),
    TROV::row<&E::findText, &P::doFindText>(),
    TROV::row<&E::setCurrentIndex, &P::doSetCurrentIndex>(),
    TROV::row<&E::getCurrentIndex, &P::doGetCurrentIndex>(),
    TROV::row<&E::setCurrentUid, &P::doSetCurrentUid>(),
    TROV::row<&E::getCurrentUid, &P::doGetCurrentUid>(),
    TROV::row<&E::setCurrentText, &P::doSetCurrentText>(),
    TROV::row<&E::getCurrentText, &P::doGetCurrentText>(),
    asUserRow<&E::choose, &P::doimChoose>(),
    TROV::row<&E::setPlaceholder, &P::doSetPlaceholder>(),
    TROV::row<&E::getPlaceholder, &P::doGetPlaceholder>(),
    TROV::row<&E::setEditable, &P::doSetEditable>(),
    TROV::row<&E::isEditable, &P::doIsEditable>(),
    TROV::row<&E::setInsertPolicy, &P::doSetInsertPolicy>(),
    TROV::row<&E::getInsertPolicy, &P::doGetInsertPolicy>(),
    TROV::row<&E::setMaximumVisibleItems, &P::doSetMaximumVisibleItems>(),
    TROV::row<&E::getMaximumVisibleItems, &P::doGetMaximumVisibleItems>(),
    TROV::row<&E::setMinimumCharacters, &P::doSetMinimumCharacters>(),
    TROV::row<&E::getMinimumCharacters, &P::doGetMinimumCharacters>(),
    TROV::row<&E::setViewModel, &P::doSetViewModel>(),
    TROV::row<&E::getViewModel, &P::doGetViewModel>(),
    TROV::row<&E::setModelColumn, &P::doSetModelColumn>(),
    TROV::row<&E::getModelColumn, &P::doGetModelColumn>());
// clang-format on

constexpr int UidRole = Qt::UserRole;
constexpr int IconRole = Qt::UserRole + 1; ///< as the program has set it

/// Keeps its text itself until that is changed. Qt's own makes a list of values for it, which costs
/// more than the text.
class TextItem final : public QStandardItem
{
public:
    explicit TextItem(QString text) : m_text(std::move(text)) {}

    QVariant data(int role) const override
    {
        return isText(role) && !m_text.isNull() ? m_text : QStandardItem::data(role);
    }
    void setData(const QVariant& value, int role) override
    {
        if (isText(role))
            m_text = QString();
        QStandardItem::setData(value, role);
    }

private:
    static bool isText(int role) { return role == Qt::DisplayRole || role == Qt::EditRole; }

    QString m_text;
};

void set(QStandardItem& item, int role, bool isThere, const QVariant& value)
{
    item.setData(isThere ? value : QVariant(), role);
}

/// `isNew`: it has a text and nothing else; most items never get more, and each thing costs.
void fill(QStandardItem& item, const ComboItem& data, bool isNew)
{
    if (item.isEnabled() != data.isEnabled)
        item.setEnabled(data.isEnabled);
    if (!isNew || data.uid != 0)
        set(item, UidRole, data.uid != 0, data.uid);
    if (!isNew || !data.toolTip.empty())
        set(item, Qt::ToolTipRole, !data.toolTip.empty(), toQString(data.toolTip));
    if (!isNew || !data.icon.isNull()) {
        set(item, Qt::DecorationRole, !data.icon.isNull(), VX2Qt(data.icon));
        set(item, IconRole, !data.icon.isNull(), QVariant::fromValue(data.icon));
    }
}

} // namespace

QtComboBox2::QtComboBox2(VXComboBox2* object, VXComboBox2Emitters* emitters, QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent)
{
    QtAccessibleComboBox::install();
}

// Requests ----------------------------------------------------------------------------------------

void QtComboBox2::doInsertItems(int index, const std::vector<ComboItem>& items)
{
    if (!hasOwnItems())
        return;
    const QtProgramScope scope;
    QList<QStandardItem*> made;
    made.reserve(static_cast<qsizetype>(items.size()));
    for (const ComboItem& item : items) {
        made.push_back(new TextItem(toQString(item.text)));
        fill(*made.back(), item, true);
    }
    if (!made.isEmpty())
        this->items().invisibleRootItem()->insertRows(itemAt(index) ? index : count(), made);
}

void QtComboBox2::doInsertSeparator(int index)
{
    if (!hasOwnItems())
        return;
    const QtProgramScope scope;
    insertSeparator(itemAt(index) ? index : count());
}

void QtComboBox2::doSetItem(int index, const ComboItem& item)
{
    const QtProgramScope scope;
    if (QStandardItem* const at = itemAt(index)) {
        at->setText(toQString(item.text));
        fill(*at, item, false);
    } else {
        ignored(*this, Reason::NoIndex);
    }
}

ComboItem QtComboBox2::doGetItem(int index)
{
    if (m_model)
        return modelItem(index);
    const QStandardItem* const at = itemAt(index);
    if (!at)
        return {};
    return {toStdWString(at->text()), at->data(UidRole).toUInt(), at->data(IconRole).value<Icon>(),
            toStdWString(at->toolTip()), at->isEnabled()};
}

void QtComboBox2::doRemoveItem(int index)
{
    if (!hasOwnItems())
        return;
    if (index < 0 || index >= count())
        ignored(*this, Reason::NoIndex);
    const QtProgramScope scope;
    removeItem(index);
}

void QtComboBox2::doClear()
{
    if (!hasOwnItems())
        return;
    const QtProgramScope scope;
    clear();
}

int QtComboBox2::doCount() { return count(); }

int QtComboBox2::doFindUid(unsigned uid)
{
    if (m_model)
        return modelRow(uid);
    return uid == 0 ? -1 : findData(uid, UidRole);
}

int QtComboBox2::doFindText(const std::wstring& text)
{
    return findText(toQString(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

void QtComboBox2::doSetCurrentIndex(int index)
{
    if (index < -1 || index >= count()) {
        ignored(*this, Reason::NoIndex);
        return;
    }
    const QtProgramScope scope;
    setCurrentIndex(index);
}

int QtComboBox2::doGetCurrentIndex() { return currentIndex(); }

void QtComboBox2::doSetCurrentUid(unsigned uid)
{
    const QtProgramScope scope;
    if (const int index = doFindUid(uid); index != -1)
        setCurrentIndex(index);
}

unsigned QtComboBox2::doGetCurrentUid()
{
    return m_model ? modelUid(currentIndex()) : currentData(UidRole).toUInt();
}

void QtComboBox2::doSetCurrentText(const std::wstring& text)
{
    const QtProgramScope scope;
    // The text that stands stays with its cursor.
    if (const QString shown = toQString(text); shown != currentText())
        setCurrentText(shown);
}

std::wstring QtComboBox2::doGetCurrentText() { return toStdWString(currentText()); }

void QtComboBox2::doimChoose(int index)
{
    constexpr Qt::ItemFlags CanBeChosen = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const QModelIndex at = model()->index(index, modelColumn());
    if (isEnabled() && at.isValid() && (at.flags() & CanBeChosen) == CanBeChosen)
        setCurrentIndex(index);
}

void QtComboBox2::doSetPlaceholder(const std::wstring& text)
{
    setPlaceholderText(toQString(text));
}
std::wstring QtComboBox2::doGetPlaceholder() { return toStdWString(placeholderText()); }

void QtComboBox2::doSetEditable(bool editable)
{
    const QtProgramScope scope;
    setEditable(editable);
    if (m_model && editable)
        setCompleter(nullptr); // it would look at all rows
    if (m_model)
        fitList();
}

bool QtComboBox2::doIsEditable() { return isEditable(); }
void QtComboBox2::doSetInsertPolicy(ComboInsertPolicy policy) { setInsertPolicy(VX2Qt(policy)); }
ComboInsertPolicy QtComboBox2::doGetInsertPolicy() { return Qt2VX(insertPolicy()); }
void QtComboBox2::doSetMaximumVisibleItems(int count) { setMaxVisibleItems(std::max(count, 0)); }
int QtComboBox2::doGetMaximumVisibleItems() { return maxVisibleItems(); }

void QtComboBox2::doSetMinimumCharacters(int count)
{
    m_minimumCharacters = std::max(count, 0);
    adjustWidth();
}

int QtComboBox2::doGetMinimumCharacters() { return m_minimumCharacters; }

// Reports -----------------------------------------------------------------------------------------

void QtComboBox2::connectSignals()
{
    connect(this, &QComboBox::currentIndexChanged, this, &QtComboBox2::slotCurrentIndexChanged);
    connect(this, &QComboBox::editTextChanged, this, &QtComboBox2::slotEditTextChanged);
}

void QtComboBox2::slotCurrentIndexChanged(int index)
{
    if (!QtProgramScope::isActive() && !isModelTalking())
        report(&E::currentChanged, index, doGetCurrentUid());
}

void QtComboBox2::slotEditTextChanged(const QString& text)
{
    if (!QtProgramScope::isActive() && !isModelTalking())
        report(&E::textEdited, toStdWString(text));
}

void QtComboBox2::hearList()
{
    QItemSelectionModel* const list = view()->selectionModel();
    if (!list || list == m_heardList)
        return;
    connect(this, &QComboBox::currentIndexChanged, this, &QtComboBox2::slotSelectChosen,
            Qt::UniqueConnection);
    m_heardList = list;
    slotSelectChosen();
    // Later: the user's row is selected first, and then made the current one.
    connect(list, &QItemSelectionModel::selectionChanged, this, &QtComboBox2::slotChooseSelected,
            Qt::QueuedConnection);
}

void QtComboBox2::slotSelectChosen()
{
    if (!view()->isVisible())
        view()->setCurrentIndex(model()->index(currentIndex(), modelColumn(), rootModelIndex()));
}

void QtComboBox2::slotChooseSelected()
{
    const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
    if (selected.size() != 1 || selected.front() == view()->currentIndex())
        return;
    const QPointer<QtComboBox2> self(this);
    const int row = selected.front().row();
    hidePopup();
    if (self)
        doimChoose(row);
}

// Helpers -----------------------------------------------------------------------------------------

QStandardItemModel& QtComboBox2::items() const
{
    return static_cast<QStandardItemModel&>(*model());
}

bool QtComboBox2::hasOwnItems(CallPlace where) const
{
    if (m_model)
        ignored(*this, "it shows a model", where);
    return !m_model;
}

QStandardItem* QtComboBox2::itemAt(int index) const
{
    return m_model ? nullptr : items().item(index);
}

/// The widest item decides only where that does not mean to ask a model for all of them.
void QtComboBox2::adjustWidth()
{
    constexpr int OfModel = 16;
    const int count = m_minimumCharacters > 0 || !m_model ? m_minimumCharacters : OfModel;
    setSizeAdjustPolicy(count > 0 ? AdjustToMinimumContentsLengthWithIcon
                                  : AdjustToContentsOnFirstShow);
    setMinimumContentsLength(count);
}

} // namespace VOXI

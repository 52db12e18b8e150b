#include "voxi2/modelview/vxmemorymodel2.h"

#include "voxi2/kernel/ignored.h"
#include "vxmemorymodel2data.h"

#include <algorithm>
#include <cwctype>
#include <utility>

namespace VOXI {

namespace {

constexpr const char* NoCell = "there is no such row or column";
constexpr const char* NoRow = "there is no such row";
constexpr const char* NoColumn = "there is no such column";

} // namespace

/// Tells, unless `isThere`, why a request is ignored; what stands for a model that is gone ignores
/// them all.
bool VXMemoryModel2::check(bool isThere, const char* why, CallPlace where) const
{
    if (!isThere && !isStandIn())
        ignored(this, why, where);
    return isThere;
}

VXMemoryModel2::VXMemoryModel2(VXObject2* parent, std::vector<CellUIData> headers)
    : VXAbstractViewModel2(parent, ModelTrait::QueriesUnderLock | ModelTrait::KnowsShape
                                       | ModelTrait::HasBuilder),
      m_data(std::make_unique<Data>(this))
{
    for (CellUIData& header : headers)
        m_data->insertColumn(0, std::move(header));
}

VXMemoryModel2::~VXMemoryModel2() { retire(); }

// Columns and cells -------------------------------------------------------------------------------

unsigned VXMemoryModel2::insertColumn(unsigned before, CellUIData header)
{
    const VXObjectDataLocker lock;
    return isStandIn() ? 0 : m_data->insertColumn(before, std::move(header));
}

void VXMemoryModel2::removeColumn(unsigned column)
{
    const VXObjectDataLocker lock;
    if (check(m_data->hasColumn(column), NoColumn))
        m_data->removeColumn(column);
}

void VXMemoryModel2::setColumnHeader(unsigned column, CellUIData header)
{
    const VXObjectDataLocker lock;
    if (check(m_data->hasColumn(column), NoColumn)) {
        m_data->findColumn(column)->header = std::move(header);
        changeHeader({column});
    }
}

std::vector<unsigned> VXMemoryModel2::columns() const
{
    const VXObjectDataLocker lock;
    std::vector<unsigned> result;
    for (const Data::Column& column : m_data->m_columns)
        result.push_back(column.uid);
    return result;
}

void VXMemoryModel2::setCell(unsigned row, unsigned column, CellUIData cell)
{
    const VXObjectDataLocker lock;
    const auto change = [&](CellUIData& old) { old = std::move(cell); };
    check(m_data->changeCell(row, column, change), NoCell);
}

void VXMemoryModel2::setValue(unsigned row, unsigned column, CellValue value)
{
    const VXObjectDataLocker lock;
    const auto change = [&](CellUIData& old) { old.setValue(std::move(value)); };
    check(m_data->changeCell(row, column, change), NoCell);
}

CellUIData VXMemoryModel2::cell(unsigned row, unsigned column) const
{
    const VXObjectDataLocker lock;
    return m_data->cell(row, column);
}

// Rows --------------------------------------------------------------------------------------------

bool VXMemoryModel2::hasRow(unsigned row) const
{
    const VXObjectDataLocker lock;
    return m_data->hasRow(row);
}

std::size_t VXMemoryModel2::rowCount() const
{
    const VXObjectDataLocker lock;
    return m_data->size();
}

unsigned VXMemoryModel2::addRow(unsigned parent, unsigned before, std::vector<CellUIData> cells)
{
    const VXObjectDataLocker lock;
    if (isStandIn())
        return 0;
    const unsigned row = m_data->add(parent, before, std::move(cells));
    check(row != 0, "there is no such parent");
    return row;
}

void VXMemoryModel2::moveRow(unsigned row, unsigned parent, unsigned before)
{
    const VXObjectDataLocker lock;
    check(m_data->move(row, parent, before),
          "there is no such row or parent, or it lies in the row");
}

void VXMemoryModel2::removeRow(unsigned row)
{
    const VXObjectDataLocker lock;
    if (check(m_data->hasRow(row), NoRow))
        m_data->remove(row);
}

void VXMemoryModel2::clear()
{
    const VXObjectDataLocker lock;
    m_data->clear();
}

std::vector<unsigned> VXMemoryModel2::shownRows(unsigned parent) const
{
    const VXObjectDataLocker lock;
    return m_data->shownRows(parent);
}

unsigned VXMemoryModel2::parentOf(unsigned row) const
{
    const VXObjectDataLocker lock;
    return m_data->hasRow(row) ? m_data->parentOf(row) : 0;
}

void VXMemoryModel2::promiseChildren(unsigned row, bool has)
{
    const VXObjectDataLocker lock;
    if (check(m_data->hasRow(row), NoRow))
        m_data->promiseChildren(row, has);
}

// Sorting and filtering ---------------------------------------------------------------------------

void VXMemoryModel2::setSorting(unsigned column, SortOrder order)
{
    const VXObjectDataLocker lock;
    if (!isStandIn() && check(column == 0 || m_data->hasColumn(column), NoColumn))
        m_data->sort({column, order});
}

SortIndicator VXMemoryModel2::sorting() const
{
    const VXObjectDataLocker lock;
    return m_data->m_sorting;
}

void VXMemoryModel2::setComparison(Comparison comparison)
{
    const VXObjectDataLocker lock;
    if (isStandIn())
        return;
    m_data->m_comparison = std::move(comparison);
    if (m_data->m_sorting.column != 0)
        m_data->sort(m_data->m_sorting);
}

void VXMemoryModel2::setFilter(Filter filter)
{
    const VXObjectDataLocker lock;
    if (!isStandIn())
        m_data->filter(std::move(filter));
}

void VXMemoryModel2::setFilterText(const AnyText& text)
{
    const auto lower = [](std::wstring wide) {
        for (wchar_t& each : wide)
            each = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(each)));
        return wide;
    };
    if (text.isEmpty())
        return setFilter(nullptr);
    setFilter([this, lower, wanted = lower(text.toWide())](unsigned row) {
        return std::any_of(
            m_data->m_columns.begin(), m_data->m_columns.end(), [&](const Data::Column& column) {
                const std::wstring shown = m_data->cell(row, column.uid).value().textU();
                return lower(shown).find(wanted) != std::wstring::npos;
            });
    });
}

void VXMemoryModel2::Data::filter(Filter function)
{
    const auto filter = function ? std::make_shared<const Filter>(std::move(function)) : nullptr;
    const auto former = std::exchange(m_filter, filter);
    const unsigned model = m_model->id();
    std::vector<unsigned> all;
    for (unsigned uid = m_rows[0].first; uid != 0; uid = following(uid))
        all.push_back(uid);
    std::vector<Judgement> judgements;
    try {
        for (const unsigned uid : all) {
            if (const auto judgement = judge(uid))
                judgements.push_back(*judgement);
            if (!VXObject::isObjectValid(model) || m_filter != filter)
                return; // another one has come meanwhile, and looks at all rows
        }
    } catch (...) {
        // What it throws leaves all as it was.
        if (VXObject::isObjectValid(model) && m_filter == filter)
            m_filter = former;
        throw;
    }
    std::erase_if(judgements, [this](const Judgement& each) { return !accept(each); });
    // First all that goes, then all that comes: neighbours go and come together.
    for (const Judgement& each : judgements) {
        if (!each.passes && m_rows[each.uid].shownChildren == 0)
            conceal(each.uid);
    }
    for (const Judgement& each : judgements) {
        if (each.passes && !m_rows[each.uid].isShown)
            reveal(each.uid);
    }
}

std::optional<VXMemoryModel2::Data::Judgement> VXMemoryModel2::Data::judge(unsigned uid)
{
    const auto found = m_rows.find(uid);
    if (found == m_rows.end())
        return std::nullopt;
    Judgement judgement{uid, ++found->second.judged, true};
    if (const auto filter = m_filter) {
        const unsigned model = m_model->id();
        judgement.passes = (*filter)(uid);
        if (!VXObject::isObjectValid(model))
            return std::nullopt;
    }
    return judgement;
}

bool VXMemoryModel2::Data::accept(const Judgement& judgement)
{
    const auto found = m_rows.find(judgement.uid);
    const bool isLast = found != m_rows.end() && found->second.judged == judgement.number;
    if (isLast)
        found->second.passes = judgement.passes;
    return isLast;
}

void VXMemoryModel2::Data::update(unsigned uid)
{
    const auto judgement = judge(uid);
    if (!judgement || !accept(*judgement))
        return;
    const Row& row = m_rows[uid];
    if (row.passes && !row.isShown)
        reveal(uid);
    else if (!row.passes && row.shownChildren == 0)
        conceal(uid);
}

// What views ask ----------------------------------------------------------------------------------

void VXMemoryModel2::query(const ViewQuery2& query)
{
    QueryResult2 result;
    result.reserve(query.rows().size() * query.columns().size());
    for (const unsigned row : query.rows()) {
        if (!m_data->hasRow(row))
            continue;
        for (const unsigned column : query.columns())
            result.set(row, column, m_data->cell(row, column));
    }
    for (const unsigned row : query.expanderRows()) {
        if (m_data->hasRow(row))
            result.setHasChildren(row, m_data->hasChildren(row));
    }
    answer(query, std::move(result));
}

void VXMemoryModel2::queryHeader(const HeaderQuery2& query)
{
    HeaderQueryResult2 result;
    for (const unsigned section : query.sections()) {
        if (query.orientation() == Orientation::Horizontal && m_data->hasColumn(section))
            result.set(section, m_data->findColumn(section)->header);
    }
    answer(query, std::move(result));
}

std::vector<SizeChange2> VXMemoryModel2::shape() const
{
    std::vector<SizeChange2> changes{SizeChange2::appendColumns(columns())};
    m_data->describeBelow(0, [&](SizeChange2 change) { changes.push_back(std::move(change)); });
    return changes;
}

} // namespace VOXI

#include "voxi2/modelview/viewmodellink2.h"

#include "voxi2/modelview/vxabstractviewmodel2.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace VOXI {

namespace {

std::atomic<unsigned> s_lastNumber{0};

/// Never 0, also when the numbers begin anew.
unsigned nextNumber()
{
    unsigned number = ++s_lastNumber;
    while (number == 0)
        number = ++s_lastNumber;
    return number;
}

} // namespace

void ViewInterest2::set(std::vector<unsigned> rows, std::vector<unsigned> columns)
{
    std::sort(rows.begin(), rows.end());
    std::sort(columns.begin(), columns.end());
    std::shared_ptr<const Sight> sight =
        std::make_shared<const Sight>(Sight{std::move(rows), std::move(columns)});
    const std::lock_guard lock(m_lock);
    m_sight.swap(sight);
}

bool ViewInterest2::wants(const std::vector<unsigned>& rows,
                          const std::vector<unsigned>& columns) const
{
    if (m_isOver)
        return false;
    std::shared_ptr<const Sight> sight;
    {
        const std::lock_guard lock(m_lock);
        sight = m_sight;
    }
    const auto meet = [](const std::vector<unsigned>& some, const std::vector<unsigned>& sorted) {
        return std::any_of(some.begin(), some.end(), [&](unsigned uid) {
            return std::binary_search(sorted.begin(), sorted.end(), uid);
        });
    };
    return !sight || (meet(columns, sight->m_columns) && meet(rows, sight->m_rows));
}

ViewModelLink2::ViewModelLink2(VXAbstractViewModel2* model)
    : m_asker(nextNumber()),
      m_interest(std::make_shared<ViewInterest2>())
{
    const VXObjectDataLocker lock;
    const bool isValid = model && VXObject::isObjectValid(model);
    m_model = isValid ? model->id() : 0;
    if (isValid)
        model->beginView(m_interest);
    else
        m_interest->end();
}

ViewModelLink2::~ViewModelLink2()
{
    m_interest->end();
    const VXObjectDataLocker lock;
    if (VXAbstractViewModel2* const asked = model())
        asked->endView(m_interest);
}

VXAbstractViewModel2* ViewModelLink2::model() const { return VXAbstractViewModel2::byId(m_model); }

std::vector<SizeChange2> ViewModelLink2::shape() const
{
    const VXObjectDataLocker lock;
    const VXAbstractViewModel2* const asked = model();
    return asked ? asked->shape() : std::vector<SizeChange2>();
}

ViewQuery2 ViewModelLink2::ask(unsigned parent, std::vector<unsigned> rows,
                               std::vector<unsigned> expanderRows, std::vector<unsigned> columns)
{
    const VXObjectDataLocker lock;
    VXAbstractViewModel2* const asked = model();
    if (!asked)
        return {};
    ViewQuery2 query({.model = m_model,
                      .asker = m_asker,
                      .id = nextNumber(),
                      .parent = parent,
                      .rows = std::move(rows),
                      .expanderRows = std::move(expanderRows),
                      .columns = std::move(columns),
                      .interest = m_interest});
    asked->send(query);
    return query;
}

HeaderQuery2 ViewModelLink2::askHeader(Orientation orientation, std::vector<unsigned> sections)
{
    const VXObjectDataLocker lock;
    VXAbstractViewModel2* const asked = model();
    if (!asked)
        return {};
    HeaderQuery2 query({.model = m_model,
                        .asker = m_asker,
                        .id = nextNumber(),
                        .orientation = orientation,
                        .sections = std::move(sections)});
    asked->send(query);
    return query;
}

} // namespace VOXI

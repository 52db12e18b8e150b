#include "voxi2/modelview/vxabstractviewmodel2.h"

#include "shapelog.h"
#include "voxi2/modelview/viewmodellink2.h"

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

/// For answers that were made from what was before.
template <class Result>
void dropAll(std::vector<Result>& results)
{
    for (Result& result : results) {
        Result dropped;
        dropped.setQuery(result.query());
        dropped.setDropped();
        result = std::move(dropped);
    }
}

} // namespace

/// What the views learn in their next turn, in the order of the members: what is cleared goes
/// first, results come before changes that make them old.
struct VXAbstractViewModel2::Outbox
{
    bool m_clearsCells = false;
    bool m_clearsHeaders = false;
    std::vector<SizeChange2> m_sizeChanges;
    std::vector<QueryResult2> m_results;
    std::vector<HeaderQueryResult2> m_headerResults;
    DataChanges m_dataChanges;
    std::vector<unsigned> m_headerChanges;
};

/// By id: the model may have gone when it arrives.
struct VXAbstractViewModel2::Flush
{
    unsigned m_model;
    void deliver() const
    {
        const VXObjectDataLocker lock;
        if (VXAbstractViewModel2* const model = byId(m_model))
            model->sendOutbox();
    }
};

template <class Query>
struct VXAbstractViewModel2::QueuedQuery
{
    Query m_query;

    void deliver() const
    {
        VXAbstractViewModel2* model = nullptr;
        try {
            {
                const VXObjectDataLocker lock;
                model = byId(m_query.model());
                if (!model)
                    return;
                if (model->m_traits.testFlag(ModelTrait::QueriesUnderLock)) {
                    model->run(m_query);
                    return;
                }
            }
            model->run(m_query);
        } catch (...) {
            // Unanswered it would be pending for ever.
            answerBlank(m_query);
            throw;
        }
    }
};

VXAbstractViewModel2::VXAbstractViewModel2(VXObject2* parent, VXFlags<ModelTrait> traits)
    : VXObject2(parent),
      m_emitters(VXObject2::m_emitters),
      m_traits(traits),
      m_shape(traits.testFlag(ModelTrait::KnowsShape) ? nullptr : std::make_unique<ShapeLog>())
{
    if (!traits.testFlag(ModelTrait::HasBuilder))
        finishBuilding(this);
}

VXAbstractViewModel2::~VXAbstractViewModel2()
{
    retire();
    const VXObjectDataLocker lock;
    for (const auto& interest : m_views)
        interest->end();
}

VXAbstractViewModel2* VXAbstractViewModel2::byId(unsigned id)
{
    return id != 0 ? static_cast<VXAbstractViewModel2*>(objectById(id)) : nullptr;
}

void VXAbstractViewModel2::createItemModel(VXObject2* parent)
{
    VXFactory2* const factory = VXFactory2::current();
    if (factory && id() != 0 && !servingThread())
        factory->createViewModel2.emitAndWait(this, &m_emitters, parent);
}

// Views -------------------------------------------------------------------------------------------

bool VXAbstractViewModel2::isShown() const
{
    const VXObjectDataLocker lock;
    return !m_views.empty();
}

void VXAbstractViewModel2::beginView(const std::shared_ptr<ViewInterest2>& interest)
{
    // The new view begins with what there is now: the others have to know it before.
    if (m_views.empty())
        m_viewThread = TROV::ThreadRef(TROV::Thread::getCurrentThread());
    else
        sendOutbox();
    m_views.push_back(interest);
}

void VXAbstractViewModel2::endView(const std::shared_ptr<ViewInterest2>& interest)
{
    std::erase(m_views, interest);
    if (m_views.empty())
        m_outbox.reset();
}

std::vector<SizeChange2> VXAbstractViewModel2::shape() const
{
    return m_shape ? m_shape->shape() : std::vector<SizeChange2>();
}

VXAbstractViewModel2::Outbox* VXAbstractViewModel2::outbox()
{
    if (!m_outbox && !m_views.empty()) {
        m_outbox = std::make_unique<Outbox>();
        m_viewThread->enqueue(Flush{id()});
    }
    return m_outbox.get();
}

void VXAbstractViewModel2::flushChanges()
{
    const VXObjectDataLocker lock;
    sendOutbox();
}

void VXAbstractViewModel2::sendOutbox()
{
    if (m_isSending || !TROV::Thread::isCurrent(m_viewThread.get()))
        return;
    const unsigned self = id();
    m_isSending = true;
    // A listener that waits for another thread gives the lock up, and anything may happen.
    const auto send = [self](const auto& event, const auto& value) {
        if (isObjectValid(self))
            event(value);
    };
    while (isObjectValid(self) && m_outbox) {
        const std::unique_ptr<Outbox> box = std::move(m_outbox);
        if (box->m_clearsCells)
            m_emitters.clearCachedUIData();
        if (isObjectValid(self) && box->m_clearsHeaders)
            m_emitters.clearCachedHeaderUIData();
        if (!box->m_sizeChanges.empty())
            send(m_emitters.sizeChanged, VXSizeChangeEvent2(this, std::move(box->m_sizeChanges)));
        for (const QueryResult2& result : box->m_results)
            send(m_emitters.queryResult, result);
        for (const HeaderQueryResult2& result : box->m_headerResults)
            send(m_emitters.headerQueryResult, result);
        if (!box->m_dataChanges.empty())
            send(m_emitters.dataChanged, VXDataChangeEvent2(this, std::move(box->m_dataChanges)));
        if (!box->m_headerChanges.empty())
            send(m_emitters.headerChanged, box->m_headerChanges);
    }
    if (isObjectValid(self))
        m_isSending = false;
}

// Queries and answers -----------------------------------------------------------------------------

void VXAbstractViewModel2::setQueryThread(TROV::Thread* thread)
{
    const VXObjectDataLocker lock;
    m_queryThread = TROV::ThreadRef(thread);
}

template <class Query>
void VXAbstractViewModel2::send(const Query& query)
{
    TROV::Thread* const thread =
        m_queryThread ? m_queryThread.get() : TROV::Thread::getCurrentThread();
    thread->enqueue(QueuedQuery<Query>{query});
}

template void VXAbstractViewModel2::send(const ViewQuery2&);
template void VXAbstractViewModel2::send(const HeaderQuery2&);

void VXAbstractViewModel2::queryHeader(const HeaderQuery2& query) { answerBlank(query); }

void VXAbstractViewModel2::answerBlank(const ViewQuery2& query)
{
    QueryResult2 blank;
    for (const unsigned row : query.rows()) {
        for (const unsigned column : query.columns())
            blank.set(row, column, {});
    }
    answer(query, std::move(blank));
}

template <class Query, class Result>
void VXAbstractViewModel2::takeAnswer(const Query& query, Result& result,
                                      std::vector<Result> Outbox::*results)
{
    const VXObjectDataLocker lock;
    VXAbstractViewModel2* const model = byId(query.model());
    if (Outbox* const outbox = model ? model->outbox() : nullptr) {
        result.setQuery(query);
        (outbox->*results).push_back(std::move(result));
    }
}

void VXAbstractViewModel2::answer(const ViewQuery2& query, QueryResult2 result)
{
    takeAnswer(query, result, &Outbox::m_results);
}

void VXAbstractViewModel2::answer(const HeaderQuery2& query, HeaderQueryResult2 result)
{
    takeAnswer(query, result, &Outbox::m_headerResults);
}

// Changes -----------------------------------------------------------------------------------------

void VXAbstractViewModel2::changeSize(SizeChange2 change)
{
    const VXObjectDataLocker lock;
    if (m_shape && !isStandIn())
        m_shape->add(change);
    if (Outbox* const box = outbox()) {
        std::vector<SizeChange2>& changes = box->m_sizeChanges;
        const bool isCertain = m_traits.testFlag(ModelTrait::KnowsShape);
        if (changes.empty() || !changes.back().join(change, isCertain))
            changes.push_back(std::move(change));
    }
}

void VXAbstractViewModel2::changeSize(std::vector<SizeChange2> changes)
{
    const VXObjectDataLocker lock;
    for (SizeChange2& change : changes)
        changeSize(std::move(change));
}

void VXAbstractViewModel2::changeData(unsigned row, unsigned column)
{
    const VXObjectDataLocker lock;
    if (Outbox* const box = outbox())
        box->m_dataChanges[row].insert(column);
}

void VXAbstractViewModel2::changeData(const DataChanges& changes)
{
    const VXObjectDataLocker lock;
    if (Outbox* const box = outbox()) {
        for (const auto& [row, columns] : changes)
            box->m_dataChanges[row].insert(columns.begin(), columns.end());
    }
}

void VXAbstractViewModel2::changeHeader(const std::vector<unsigned>& sections)
{
    const VXObjectDataLocker lock;
    if (Outbox* const box = outbox())
        box->m_headerChanges.insert(box->m_headerChanges.end(), sections.begin(), sections.end());
}

void VXAbstractViewModel2::clearCachedUIData()
{
    const VXObjectDataLocker lock;
    if (Outbox* const box = outbox()) {
        box->m_clearsCells = true;
        dropAll(box->m_results);
    }
}

void VXAbstractViewModel2::clearCachedHeaderUIData()
{
    const VXObjectDataLocker lock;
    if (Outbox* const box = outbox()) {
        box->m_clearsHeaders = true;
        dropAll(box->m_headerResults);
    }
}

} // namespace VOXI

#pragma once

#include "trov/emitterstable.h"
#include "trov/thread.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2/modelview/queryresult2.h"
#include "voxi2/modelview/sizechange2.h"
#include "voxi2/modelview/viewquery2.h"
#include "voxi2/modelview/vxviewmodelevents2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/vxflags.h"

#include <memory>
#include <vector>

namespace VOXI {

class ShapeLog;
class ViewInterest2;

/// What the views of a model listen to, in the order in which they begin.
struct VXAbstractViewModel2Emitters : TROV::EmittersTable<VXObject2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void()> clearCachedUIData{*this};
    TROV::Event<void()> clearCachedHeaderUIData{*this};
    TROV::Event<void(const QueryResult2&)> queryResult{*this};
    TROV::Event<void(const HeaderQueryResult2&)> headerQueryResult{*this};
    TROV::Event<void(const VXDataChangeEvent2&)> dataChanged{*this};
    TROV::Event<void(const VXSizeChangeEvent2&)> sizeChanged{*this};
    TROV::Event<void(const std::vector<unsigned>&)> headerChanged{*this};
};

/// What a model does otherwise than most.
enum class ModelTrait : unsigned {
    None = 0,
    QueriesUnderLock = 1, ///< queries come under the object lock, which guards the data
    KnowsShape = 2,       ///< it overrides `shape`, and need not be remembered what it told
    HasBuilder = 4 ///< the constructor of a derived kind of the toolkit says when it is whole
};
template <>
inline constexpr bool EnableFlags<ModelTrait> = true;

/// Data for tables and trees, wherever it lives: the base of an application's own models.
///
///     class Readings : public VXAbstractViewModel2 {
///     public:
///         Readings()
///         {
///             changeSize(SizeChange2::appendColumns({1, 2}));
///             changeSize(SizeChange2::appendRows(m_database.keys()));
///         }
///         void query(const ViewQuery2& q) override
///         {
///             m_database.read(q.rows(), q.columns(),
///                             [q](QueryResult2 cells) { answer(q, std::move(cells)); });
///         }
///     };
///
/// The model says which rows and columns there are, by numbers of its own (never 0); views ask for
/// the cells that they come to show, a block at a time, and remember the answers until they hear of
/// a change. Several views may show one model; who gives the model to a view keeps it. Everything
/// here may be called from any thread.
///
/// Changes and answers reach the views in their next turn, those of one turn together; a view that
/// is asked something before has them already.
///
/// What an application gets wrong costs no more than what it is about: answers to queries that were
/// never sent or are answered already, numbers of rows and columns that are not there, or there
/// already, are passed over.
class VOXI2_EXPORT VXAbstractViewModel2 : public VXObject2
{
public:
    ~VXAbstractViewModel2() override;

    /// The thread that queries come on, which runs a loop; with null, as in the beginning, that of
    /// the view.
    void setQueryThread(TROV::Thread* thread);

    /// Whether a view shows the model.
    bool isShown() const;

    /// Has the views learn at once of what changed in this turn. On their thread only; elsewhere
    /// they do before they see anything that is sent after it.
    void flushChanges();

    /// Has the back end make an item model of its own kind for the model, for hosts that show it in
    /// views of their own: `lookup(model)` is that item model. Toolkit views need none.
    void createItemModel(VXObject2* parent = nullptr);

    /// For back ends.
    VXAbstractViewModel2Emitters* modelEmitters() noexcept { return &m_emitters; }

protected:
    explicit VXAbstractViewModel2(VXObject2* parent = nullptr, VXFlags<ModelTrait> traits = {});

    /// Asks for cells; answer now or later, from any thread, by `answer`. As any handler it must
    /// not be running on another thread while the model is destroyed. If it throws, the cells are
    /// empty.
    virtual void query(const ViewQuery2& query) = 0;
    /// Asks for sections of a header. By itself it answers that they show their numbers.
    virtual void queryHeader(const HeaderQuery2& query);

    /// Answers a query, once; does nothing when the model is gone, so nobody needs to wait for it.
    /// What is missing in the answer is asked for again when it comes into sight.
    static void answer(const ViewQuery2& query, QueryResult2 result);
    static void answer(const HeaderQuery2& query, HeaderQueryResult2 result);

    /// Answers that the cells are empty, or that sections show their numbers.
    static void answerBlank(const ViewQuery2& query);
    static void answerBlank(const HeaderQuery2& query) { answer(query, {}); }

    /// Rows and columns come, go or move.
    void changeSize(SizeChange2 change);
    void changeSize(std::vector<SizeChange2> changes);
    /// Cells have changed: views ask anew for those that they remember.
    void changeData(unsigned row, unsigned column);
    void changeData(const DataChanges& changes);
    /// Sections of headers have changed.
    void changeHeader(const std::vector<unsigned>& sections);
    /// All cells, or all sections, have changed.
    void clearCachedUIData();
    void clearCachedHeaderUIData();

    /// The changes that lead from nothing to the rows and columns that there are, for each view
    /// that begins; called under the object lock. What was told by `changeSize` is remembered for
    /// it, unless the model overrides it and says so by its trait.
    virtual std::vector<SizeChange2> shape() const;

    /// Whether it stands for models that are gone: then it takes nothing in.
    bool isStandIn() const noexcept { return id() == 0; }

private:
    friend class ViewModelLink2;
    struct Outbox;
    struct Flush;
    template <class Query>
    struct QueuedQuery;

    static VXAbstractViewModel2* byId(unsigned id);
    template <class Query, class Result>
    static void takeAnswer(const Query& query, Result& result,
                           std::vector<Result> Outbox::*results);
    void beginView(const std::shared_ptr<ViewInterest2>& interest);
    void endView(const std::shared_ptr<ViewInterest2>& interest);
    template <class Query>
    void send(const Query& query);
    void run(const ViewQuery2& each) { query(each); }
    void run(const HeaderQuery2& each) { queryHeader(each); }
    Outbox* outbox();
    void sendOutbox();

    VXAbstractViewModel2Emitters m_emitters;
    const VXFlags<ModelTrait> m_traits;

    // Guarded by the object lock.
    TROV::ThreadRef m_queryThread;
    TROV::ThreadRef m_viewThread; // of the first view; what changes is sent from there
    std::vector<std::shared_ptr<ViewInterest2>> m_views;
    std::unique_ptr<Outbox> m_outbox; // what the views have not learned yet
    bool m_isSending = false;
    std::unique_ptr<ShapeLog> m_shape; // null where the model knows
};

} // namespace VOXI

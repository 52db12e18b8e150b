#pragma once

#include "voxi2/modelview/sizechange2.h"
#include "voxi2/modelview/viewquery2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/spinlock.h"

#include <atomic>
#include <memory>
#include <vector>

namespace VOXI {

class VXAbstractViewModel2;

/// What a view has in sight, for those who answer its queries. Any thread.
class VOXI2_EXPORT ViewInterest2
{
public:
    void set(std::vector<unsigned> rows, std::vector<unsigned> columns);
    void end() noexcept { m_isOver = true; }
    bool wants(const std::vector<unsigned>& rows, const std::vector<unsigned>& columns) const;

private:
    struct Sight // sorted
    {
        std::vector<unsigned> m_rows;
        std::vector<unsigned> m_columns;
    };

    std::atomic<bool> m_isOver{false};
    mutable SpinLock m_lock;
    std::shared_ptr<const Sight> m_sight; ///< guarded; null wants everything
};

/// A view's end of its model, for back ends. It belongs to the view's thread, which is where the
/// model's events come from as long as all of its views are there.
///
/// A peer makes it, applies `shape`, and listens to the model's events, all under one hold of the
/// object lock: then it misses nothing and hears nothing twice.
class VOXI2_EXPORT ViewModelLink2
{
public:
    explicit ViewModelLink2(VXAbstractViewModel2* model);
    ~ViewModelLink2();
    ViewModelLink2(const ViewModelLink2&) = delete;
    ViewModelLink2& operator=(const ViewModelLink2&) = delete;

    /// The changes that lead from nothing to the rows and columns that there are.
    std::vector<SizeChange2> shape() const;

    /// Sends a query, which is never run from here, and returns it; one of id 0 when the model has
    /// gone. Answers to all views of the model come by the same event: look for the id, and forget
    /// it then.
    ViewQuery2 ask(unsigned parent, std::vector<unsigned> rows, std::vector<unsigned> expanderRows,
                   std::vector<unsigned> columns);
    HeaderQuery2 askHeader(Orientation orientation, std::vector<unsigned> sections);

    /// Tells what is in sight.
    void setInSight(std::vector<unsigned> rows, std::vector<unsigned> columns)
    {
        m_interest->set(std::move(rows), std::move(columns));
    }

private:
    VXAbstractViewModel2* model() const; // object lock held

    unsigned m_model;
    unsigned m_asker;
    std::shared_ptr<ViewInterest2> m_interest;
};

} // namespace VOXI

#pragma once

#include "voxi2/modelview/vxabstractviewmodel2.h"
#include "voxi2/voxi2_export.h"

#include <memory>

namespace VOXI {

/// Where the cells of a `VXSourceModel2` come from: something slow, a database, a network.
///
/// All its functions are called on one thread of the model's own, one after the other.
class VOXI2_EXPORT ModelSource2
{
public:
    ModelSource2() = default;
    virtual ~ModelSource2();
    ModelSource2(const ModelSource2&) = delete;
    ModelSource2& operator=(const ModelSource2&) = delete;

    /// Returns the cells that are asked for. One that takes long looks at `query.isWanted()` now
    /// and then, and returns what it has when it is not. What it throws is reported as that of a
    /// queue is, and the cells are empty.
    virtual QueryResult2 read(const ViewQuery2& query) = 0;
    /// By itself all sections show their numbers.
    virtual HeaderQueryResult2 readHeader(const HeaderQuery2& query);
};

/// A model that has its cells read by a source on a thread of its own, so that nothing waits for
/// them.
///
///     class Readings : public ModelSource2 {
///         QueryResult2 read(const ViewQuery2& query) override
///         {
///             QueryResult2 cells;
///             for (unsigned row : query.rows())
///                 cells.set(row, 1, m_database.name(row));
///             return cells;
///         }
///     };
///     auto* model = new VXSourceModel2(std::make_shared<Readings>(), window);
///     model->changeSize({SizeChange2::appendColumns({1}), SizeChange2::appendRows(keys)});
///
/// What is in sight is read first, the latest before the others; what is not in sight any more is
/// not read at all. The source is not needed any more when the last call to it is through, which
/// may be after the model has ended; the end of the program waits for that.
class VOXI2_EXPORT VXSourceModel2 : public VXAbstractViewModel2
{
public:
    using ToolkitClass = VXSourceModel2;

    explicit VXSourceModel2(std::shared_ptr<ModelSource2> source = nullptr,
                            VXObject2* parent = nullptr);
    ~VXSourceModel2() override;

    using VXAbstractViewModel2::changeData;
    using VXAbstractViewModel2::changeHeader;
    using VXAbstractViewModel2::changeSize;
    using VXAbstractViewModel2::clearCachedHeaderUIData;
    using VXAbstractViewModel2::clearCachedUIData;

protected:
    void query(const ViewQuery2& query) override;
    void queryHeader(const HeaderQuery2& query) override;

private:
    class Worker;
    std::shared_ptr<Worker> m_worker; // null without a source
};

} // namespace VOXI

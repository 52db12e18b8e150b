#pragma once

#include "voxi2/kernel/vxclock2.h"
#include "voxi2/modelview/modelcell2.h"

#include <QBasicTimer>
#include <QObject>

#include <memory>
#include <vector>

namespace VOXI {

class QtAbstractView2;

/// Puts cells into the clipboard, when all of them are known. Until then they count as in sight, so
/// that they are answered and stay; what does not come is copied as empty.
class QtCopyJob final : public QObject
{
public:
    QtCopyJob(QtAbstractView2& view, std::vector<ModelBlock> cells);

    /// What has to be known, beside what is in sight.
    const std::vector<unsigned>& rows() const { return m_rows; }
    const std::vector<unsigned>& columns() const { return m_columns; }

    /// Asks for what is missing; at the latest now.
    void start();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Cell
    {
        unsigned row;
        unsigned column;
    };

    void findMissing();
    bool isMissing(const Cell& cell) const;
    /// Whether some cells have come, or gone.
    bool takeKnown();
    void goOn();
    void wait();
    void finish();

    QtAbstractView2& m_view;
    const std::vector<ModelBlock> m_cells;
    std::vector<unsigned> m_rows;
    std::vector<unsigned> m_columns;
    std::vector<Cell> m_missing;
    QBasicTimer m_lookTimer;
    std::unique_ptr<VXClock2::Timer> m_patience;
};

} // namespace VOXI

#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/modelview/vxsourcemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <atomic>
#include <chrono>
#include <numeric>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

constexpr unsigned Rows = 1'000'000;
constexpr unsigned Columns = 20;
constexpr int Slices = 10;

/// Takes its time for each block of cells, and gives up when it is not wanted any more.
class SlowSource : public ModelSource2
{
public:
    QueryResult2 read(const ViewQuery2& query) override
    {
        for (int slice = 0; slice < Slices && query.isWanted(); ++slice)
            std::this_thread::sleep_for(std::chrono::milliseconds(m_delay / Slices));
        QueryResult2 cells;
        for (const unsigned row : query.rows()) {
            for (const unsigned column : query.columns())
                cells.set(row, column, std::to_string(row) + " x " + std::to_string(column));
        }
        return cells;
    }

    void setDelay(int milliseconds) { m_delay = milliseconds; }

private:
    std::atomic<int> m_delay{300};
};

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    const auto source = std::make_shared<SlowSource>();
    auto* const model = new VXSourceModel2(source, page.panel);
    std::vector<unsigned> uids(Rows);
    std::iota(uids.begin(), uids.end(), 1U);
    model->changeSize({SizeChange2::appendColumns({uids.begin(), uids.begin() + Columns}),
                       SizeChange2::appendRows(uids)});
    auto* const table = new VXTableView2(page.panel);
    table->setAccessibleName("Slow data");
    table->setObjectName("slow-table");
    table->setViewModel(model);
    table->setSelectionMode(SelectionMode::Extended);
    table->setMinimumSize({0, 300});
    page.layout->addWidget(table, 1);
    table->selectionChanged().connect(&log, [&log](const VXViewSelectionChangeEvent2& event) {
        log.add("selected: " + std::to_string(event.numberOfCells()) + " cells");
    });
    const std::vector<int> delays{0, 50, 300, 2000};
    alternatives(page, "For 100 cells", {"no time", "50 ms", "300 ms", "2 s"}, 2,
                 [=](std::size_t i) { source->setDelay(delays[i]); });
    const Box line = row(page);
    command(line, "To the middle", [=] { table->scrollTo({Rows / 2, 1, nullptr}); });
    command(line, "Forget all", [=] { model->clearCachedUIData(); });
    line.layout->addStretch();
    return page.panel;
}

} // namespace

Page slowModelPage()
{
    return {"slowmodel", "Slow data",
            "A million rows that a thread of the model's reads, and takes its time for. The window "
            "stays responsive; what is in sight comes first.",
            &create};
}

} // namespace gallery

#pragma once

#include "voxi_util/any.h"
#include "voxi_util/voxi_util_export.h"

#include <functional>
#include <memory>

namespace VOXI {

/// Data that are made when somebody first asks for them: in place of the data of a format in a
/// VXMimeData2, whose readers get what was made.
///
///     data.setData("application/x-report", VXLazyData([report] { return any(report->print()); }));
///
/// `make` runs on the thread that asks. What it gives is kept for all copies, but for an empty
/// value: then there are no data this time, and it is called again the next. What it throws reaches
/// who asks. Where two threads ask at once it may run on both; where it asks for its own data it
/// gets an empty value. Other programs ask too for what is on the clipboard: see VXClipboard2.
class VOXI_UTIL_EXPORT VXLazyData
{
public:
    explicit VXLazyData(std::function<any()> make);

    /// Makes the data, if they were not made before.
    any get() const;

    /// Whether one is a copy of the other.
    friend bool operator==(const VXLazyData&, const VXLazyData&) = default;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace VOXI

#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QSplitterHandle>

namespace VOXI {

/// A splitter's handle, with a grip of dots along its middle.
class VOXI2_QT_EXPORT QtSplitterHandle : public QSplitterHandle
{
    Q_OBJECT

public:
    using QSplitterHandle::QSplitterHandle;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace VOXI

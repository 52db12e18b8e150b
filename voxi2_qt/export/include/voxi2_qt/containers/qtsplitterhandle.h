#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QList>
#include <QSplitterHandle>

#include <new>

namespace VOXI {

/// A splitter's handle, with a grip of dots along its middle. With the focus it is filled, and
/// moved by the arrows, by Home and End to where it can go no further. Return leaves it; Escape,
/// too, and puts it where it was.
class VOXI2_QT_EXPORT QtSplitterHandle final : public QSplitterHandle
{
    Q_OBJECT

public:
    using QSplitterHandle::QSplitterHandle;

    /// The splitter deletes the handle of a pane that leaves at once. This waits, with the handle
    /// out of the splitter, while a handler runs: Qt may be going through the splitter's children.
    static void operator delete(QtSplitterHandle* handle, std::destroying_delete_t);

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int place() const;
    void moveBy(int distance);
    void putBack();

    QList<int> m_sizesBefore; // of the splitter, when the focus came
};

} // namespace VOXI

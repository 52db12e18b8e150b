#pragma once

#include "qtviewdelegate2.h"
#include "qtviewsight.h"

#include <QEvent>
#include <QPointer>

#include <deque>
#include <memory>

QT_BEGIN_NAMESPACE
class QInputEvent;
QT_END_NAMESPACE

namespace VOXI {

class QtAbstractView2;

/// What a view does for its delegate and its sight, and for the editors that come and go: above all
/// it keeps what the user does while an editor has been asked for and not come.
class QtViewHost final : public QtViewDelegate2::View, public QtViewSight::View
{
public:
    explicit QtViewHost(QtAbstractView2& view) : m_view(view) {}

    // For the delegate
    Uids uidsOf(const QModelIndex& index) const override;
    const CellRecord* cellRecord(const QModelIndex& index) const override;
    bool isKnown(const QModelIndex& index) const override;
    int fixedRowHeight(const QModelIndex& index) const override;
    void makeCurrent(const QModelIndex& index) override;
    void startEditing(const QModelIndex& index) override;
    void setEditing(bool isEditing) override;
    void forgetEditor(QWidget* widget) override;
    void forwardQueuedEvents(QWidget* editor) override;
    void reportEditRequest(Uids cell) override;
    void reportEditComplete(Uids cell, unsigned editor, bool isCommitted) override;

    // For the sight
    QAbstractItemView& itemView() const override;
    QtViewModel2& viewModel() const override;
    std::vector<int> sectionsIn(const QRect& area) const override;
    QModelIndex firstRowIn(const QRect& area, const std::vector<int>& sections) const override;
    QModelIndex rowBelow(const QModelIndex& index) const override;
    void layOutNow() override;
    void addWanted(std::vector<unsigned>& rows, std::vector<unsigned>& columns) const override;

    /// The current cell has changed: what waits was meant for another one. Not while the delegate
    /// makes it the current one.
    void clearQueuedEvents();

    /// Whether one is to come: it has been asked for, or will be when its cell is known.
    bool waitsForEditor() const;
    /// To be asked before the view handles an event: whether the editor, being above the view, got
    /// it first and did not want it.
    bool comesFromEditor(const QInputEvent& event) const;
    /// What the view has handled, for the editor that there is or that has been asked for.
    void passToEditor(const QInputEvent& event);

private:
    void send(QWidget& editor, const QInputEvent& event);

    QtAbstractView2& m_view;
    std::deque<std::unique_ptr<QInputEvent>> m_queue;
    bool m_isMakingCurrent = false;
    /// A button went down on the view itself, so that Qt brings the view all until it is let go.
    bool m_hasPress = false;
};

} // namespace VOXI

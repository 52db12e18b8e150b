#pragma once

#include "qtviewdelegate2.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

#include <memory>
#include <vector>

namespace VOXI {

/// A table that uses the delegate as the views of the toolkit do, without what else these do.
class DelegateView : public QTableView, public QtViewDelegate2::View
{
public:
    struct Completion
    {
        unsigned row;
        unsigned editor;
        bool isCommitted;
    };

    DelegateView() : m_delegate(std::make_unique<QtViewDelegate2>(*this, *this))
    {
        setItemDelegate(m_delegate.get());
        setModel(&m_model);
        for (int row = 0; row < 4; ++row)
            m_model.appendRow({item(), item()});
        resize(400, 300);
    }

    QModelIndex at(int row, int column = 0) const { return m_model.index(row, column); }
    QtViewDelegate2& delegate() { return *m_delegate; }
    bool isInEditing() const { return state() == EditingState; }
    QStyleOptionViewItem option() const
    {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        return option;
    }

    Uids uidsOf(const QModelIndex& index) const override
    {
        return {static_cast<unsigned>(index.row() + 1), static_cast<unsigned>(index.column() + 1)};
    }
    const CellRecord* cellRecord(const QModelIndex&) const override { return m_record; }
    void makeCurrent(const QModelIndex& index) override { setCurrentIndex(index); }
    void startEditing(const QModelIndex& index) override { edit(index, AllEditTriggers, nullptr); }
    void setEditing(bool isEditing) override { setState(isEditing ? EditingState : NoState); }
    void forgetEditor(QWidget* widget) override { editorDestroyed(widget); }
    void forwardQueuedEvents(QWidget*) override { ++m_forwarded; }
    void reportEditRequest(Uids cell) override { m_requests.push_back(cell.row); }
    void reportEditComplete(Uids cell, unsigned editor, bool isCommitted) override
    {
        m_completions.push_back({cell.row, editor, isCommitted});
    }

    using QTableView::edit;

    std::vector<unsigned> m_requests;
    std::vector<Completion> m_completions;
    int m_forwarded = 0;
    const CellRecord* m_record = nullptr;
    QStandardItemModel m_model;

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override
    {
        QTableView::edit(index, trigger, event);
        return isInEditing();
    }
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override
    {
        if (m_delegate->isOfEditor(editor)) {
            m_delegate->closeIndexWidget(m_delegate->getEditorIndex(),
                                         hint != QAbstractItemDelegate::RevertModelCache);
        }
    }
    void commitData(QWidget*) override {}

private:
    static QStandardItem* item() { return new QStandardItem(QStringLiteral("text")); }

    std::unique_ptr<QtViewDelegate2> m_delegate; // ends first
};

} // namespace VOXI

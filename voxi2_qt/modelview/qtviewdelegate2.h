#pragma once

#include "trov/listener.h"

#include <QItemDelegate>
#include <QList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyleOptionViewItem>

#include <memory>
#include <unordered_map>

QT_BEGIN_NAMESPACE
class QAbstractItemView;
QT_END_NAMESPACE

namespace VOXI {

class CellPainter;
class VXWidget2;

/// Draws the cells of a view, as controls where their model says so, and looks after the one editor
/// that a view can have at a time. The editor is a widget of the application: the delegate puts it
/// over the cell, moves the focus in it, and lets it go, alone and hidden, when editing ends.
class QtViewDelegate2 : public QItemDelegate, public TROV::Listener
{
public:
    /// What it needs of its view beside what every item view has.
    class View
    {
    public:
        struct Uids
        {
            unsigned row = 0;
            unsigned column = 0;
        };

        virtual Uids uidsOf(const QModelIndex& index) const = 0;

        /// Makes the index the current one; what waits for the editor is not dropped by that.
        virtual void makeCurrent(const QModelIndex& index) = 0;
        /// Qt's `edit` with all triggers.
        virtual void startEditing(const QModelIndex& index) = 0;
        /// The view is in the state of editing from now on, or no longer.
        virtual void setEditing(bool isEditing) = 0;
        /// Qt's `editorDestroyed`: it forgets the widget and deletes nothing.
        virtual void forgetEditor(QWidget* widget) = 0;
        /// Sends what the user did since the editor was requested to it. Anything may happen.
        virtual void forwardQueuedEvents(QWidget* editor) = 0;

        virtual void reportEditRequest(Uids cell) = 0;
        /// `editor` is null if it has been destroyed.
        virtual void reportEditComplete(Uids cell, VXWidget2* editor, bool isCommitted) = 0;

        /// How high the row was set to be; -1 where its content decides. For trees.
        virtual int fixedRowHeight(const QModelIndex&) const { return -1; }

    protected:
        ~View() = default;
    };

    /// `view` and `itemView`, which is also the parent, are the same view.
    QtViewDelegate2(View& view, QAbstractItemView& itemView);
    ~QtViewDelegate2() override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Puts the application's editor into `parent`, or asks for one. Always null: Qt never owns it.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Values do not travel through the item model.
    void setEditorData(QWidget*, const QModelIndex&) const override {}
    void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Qt has lost the editor's index, as when its row is removed: lets the editor go.
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    /// Asks the application for an editor, unless it was asked for the same one last.
    void requestIndexWidget(const QModelIndex& index);
    /// Places the application's answer; null ends the editing of the index, committing. Handlers
    /// may run, and end anything.
    void setIndexWidget(const QModelIndex& index, QWidget* widget);
    /// Takes the editor off the index and reports the end of the editing, if it is the one.
    void closeIndexWidget(const QModelIndex& index, bool isCommitted);

    QModelIndex getEditorIndex() const { return m_editorIndex; }
    /// Null also when the application has destroyed it.
    QWidget* getEditorWidget() const { return m_editor; }
    bool isEditing() const { return m_editor && m_editorIndex.isValid(); }
    /// Whether an editor was requested for the index and has not come.
    bool isPendingEdit(const QModelIndex& index) const
    {
        return m_pendingIndex.isValid() && m_pendingIndex == index;
    }
    /// The index for which one was requested; invalid for none.
    QModelIndex getPendingIndex() const { return m_pendingIndex; }
    /// Whether `closeEditor` for the widget means the editor that is open. Qt sends it late, so it
    /// may be about one that is closed or dead: the widget is only compared.
    bool isOfEditor(const QWidget* widget) const;

    void focusNextEditorChild(QWidget* widget);
    void focusPrevEditorChild(QWidget* widget);
    /// The widget in the editor that gets the focus after, or before, the one that has it; null
    /// if there is no other.
    QWidget* findNextPrevEditorFocusChild(QWidget* widget, bool next) const;
    /// From the editor and all in it that the delegate listens to.
    void removeEditorEventFilter(QWidget* widget);

    QPalette getHighlightedPalette(const QStyleOptionViewItem& option, const QWidget* widget) const;

    /// The view has another model, font or style.
    void clearPaintCache();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    /// A widget that a cell carries while nobody edits it.
    struct Embedded
    {
        QPersistentModelIndex index;
        QPointer<QWidget> widget;
    };

    // Painting
    using Renderer = void (QtViewDelegate2::*)(QPainter*, const QStyleOptionViewItem&,
                                               const QModelIndex&) const;
    bool hasIndexWidget(const QModelIndex& index) const;
    QStyleOptionViewItem optionOf(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const;
    void renderCell(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                    int kind) const;
    void renderButton(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const;
    void renderCheckBox(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const;
    void renderComboBox(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const;
    void renderHyperLink(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const;
    void renderText(QPainter* painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const;

    // Embedded widgets
    void wantEmbedded(const QModelIndex& index, unsigned id) const;
    void placeEmbedded();
    bool isEmbeddedAt(const QModelIndex& index, const QWidget* widget) const;
    void releaseEmbedded(const QModelIndex& index);

    // The editor
    bool canHold(const QWidget* widget) const;
    void place(const QModelIndex& index, QWidget* widget);
    void listenTo(QWidget* widget) const;
    void takeOff(QWidget* widget);
    void editorDestroyed();
    bool isFocusRouted(QEvent* event, QWidget* widget);

    View& m_view;
    QAbstractItemView& m_itemView;
    QPersistentModelIndex m_editorIndex;
    QPersistentModelIndex m_pendingIndex;
    QPointer<QWidget> m_editor;
    View::Uids m_editorUids;
    /// What the delegate listens to for keys and focus: the editor, or those in it.
    mutable QList<QPointer<QWidget>> m_listenedTo;
    /// Whether the editor has its focus proxy from the delegate.
    mutable bool m_hasOurProxy = false;
    mutable std::unordered_map<unsigned, Embedded> m_embedded; ///< by the widget's id
    mutable bool m_isPlacing = false;                          ///< some of them wait for it
    std::unique_ptr<CellPainter> m_cellPainter;
};

} // namespace VOXI

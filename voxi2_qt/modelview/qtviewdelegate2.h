#pragma once

#include "trov/listener.h"

#include <QHash>
#include <QItemDelegate>
#include <QList>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyleOptionViewItem>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemView;
QT_END_NAMESPACE

namespace VOXI {

class CellRecord;
class TextLayouts;

/// Draws the cells of a view, as controls where their model says so, and looks after the one editor
/// that a view can have at a time. The editor is a widget of the application: the delegate puts it
/// over the cell, moves the focus in it, and lets it go, alone and hidden, when editing ends.
///
/// Handlers run when all is done, but they may run before a function returns, and end anything.
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
        /// What is known of a cell; null also where the model has no records.
        virtual const CellRecord* cellRecord(const QModelIndex&) const { return nullptr; }
        /// Whether the model need not be asked for it first.
        virtual bool isKnown(const QModelIndex&) const { return true; }
        /// How high the row was set to be; -1 where its content decides.
        virtual int fixedRowHeight(const QModelIndex&) const { return -1; }

        /// Makes the index the current one. What waits for the editor is not dropped by that.
        virtual void makeCurrent(const QModelIndex& index) = 0;
        /// Qt's `edit` with all triggers.
        virtual void startEditing(const QModelIndex& index) = 0;
        /// The view is in Qt's state of editing from now on, or no longer.
        virtual void setEditing(bool isEditing) = 0;
        /// Qt's `editorDestroyed`: it forgets the widget and deletes nothing.
        virtual void forgetEditor(QWidget* widget) = 0;
        /// Sends the editor what the user did since it was requested.
        virtual void forwardQueuedEvents(QWidget* editor) = 0;

        virtual void reportEditRequest(Uids cell) = 0;
        /// `editor` is the id of the abstract object, 0 for none. What comes before the report may
        /// destroy it, so it is to be looked up when the event is made.
        virtual void reportEditComplete(Uids cell, unsigned editor, bool isCommitted) = 0;

    protected:
        ~View() = default;
    };

    /// `view` and `itemView`, which is also the parent, are the same view. It deletes this before
    /// anything else of it goes.
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
    /// Qt gives the widget up, as when its row is removed: lets it go. The end of editing is
    /// reported with the next turn, as Qt is in the middle of a change.
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    /// Asks the application for an editor, unless it was asked for the same one last.
    void requestIndexWidget(const QModelIndex& index);
    /// Places the application's answer; null ends the editing of the index, committing.
    void setIndexWidget(const QModelIndex& index, QWidget* widget);
    /// Takes the editor off the index and reports the end of editing, if it is there.
    void closeIndexWidget(const QModelIndex& index, bool isCommitted);

    QModelIndex getEditorIndex() const { return m_editorIndex; }
    /// Null also when the application has destroyed it.
    QWidget* getEditorWidget() const { return m_editor; }
    bool isEditing() const { return m_editor && m_editorIndex.isValid(); }
    /// The index for which an editor was requested and has not come; invalid for none.
    QModelIndex getPendingIndex() const { return m_pendingIndex; }
    bool isPendingEdit(const QModelIndex& index) const
    {
        return m_pendingIndex.isValid() && m_pendingIndex == index;
    }
    /// Whether Qt's `closeEditor(widget)` means the editor that is open. It may come late, for one
    /// that is closed or dead: the widget is only compared.
    bool isOfEditor(const QWidget* widget) const;

    void focusNextEditorChild(QWidget* widget);
    void focusPrevEditorChild(QWidget* widget);
    /// What in the editor gets the focus after, or before, the one that has it; null for none.
    QWidget* findNextPrevEditorFocusChild(QWidget* widget, bool next) const;
    /// From the editor and all in it that the delegate listens to.
    void removeEditorEventFilter(QWidget* widget);

    /// With the colours of the selection where the option is selected.
    QPalette getHighlightedPalette(const QStyleOptionViewItem& option, const QWidget* widget) const;

    /// To be called after the view's font or style has changed.
    void clearPaintCache();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    struct PlainCell;

    // Painting
    bool hasIndexWidget(const QModelIndex& index) const;
    void paintUnderWidget(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const;
    void paintControl(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index, int kind) const;
    QSize controlSize(const QStyleOptionViewItem& option, const QModelIndex& index) const;
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

    // Plain texts
    bool paintRecord(QPainter* painter, const QStyleOptionViewItem& option,
                     const CellRecord& record) const;
    bool paintPlain(QPainter* painter, const QStyleOptionViewItem& option,
                    const PlainCell& cell) const;

    // Widgets that cells carry while nobody edits them
    bool isEmbedded(QWidget* widget) const { return m_embedded.contains(widget); }
    bool carriesOther(const QModelIndex& index) const;
    void wantSettled(const QModelIndex& index) const;
    void settleAll();
    void settle(const QModelIndex& index);
    void embed(const QModelIndex& index, QWidget* widget);

    // The editor
    bool canHold(const QWidget* widget) const;
    void place(const QModelIndex& index, QWidget* widget);
    void adopt(QWidget* parent);
    /// To be told when it is destroyed.
    void attach(QWidget* widget);
    void listenTo(QWidget* widget);
    bool handleKey(QWidget* widget, QEvent* event);
    bool handleFocusOut(QEvent* event);

    // Its end
    void end(bool isCommitted);
    void endHidden(const QPointer<QWidget>& editor);
    /// It goes, or has gone, by itself.
    void lose();
    /// Of an editor, or a widget that a cell carries.
    void leaveTo(QWidget* widget);
    void leaveForEnd(QWidget* widget);
    void forgetEditor();
    void forgetDead(QWidget* widget);
    void forgetInView(QWidget* widget);
    void takeOff(QWidget* widget);
    void detach(QWidget* widget);
    static void letGo(QWidget* widget);

    View& m_view;
    QAbstractItemView& m_itemView;
    QPersistentModelIndex m_editorIndex;
    QPersistentModelIndex m_pendingIndex;
    QPointer<QWidget> m_editor;
    unsigned m_editorId = 0;
    View::Uids m_editorCell;
    /// Whose keys and focus the delegate follows: the editor, or what is in it.
    QList<QPointer<QWidget>> m_listenedTo;
    bool m_isAdopted = false;   // it stands in the view and is listened to
    bool m_hasOurProxy = false; // its focus proxy is the delegate's doing
    QHash<QWidget*, QPersistentModelIndex> m_embedded;
    mutable QList<QPersistentModelIndex> m_unsettled; ///< cells that want another embedded widget
    std::shared_ptr<TextLayouts> m_layouts;
};

} // namespace VOXI

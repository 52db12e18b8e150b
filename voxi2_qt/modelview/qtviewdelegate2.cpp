#include "qtviewdelegate2.h"

#include "../kernel/qttakeout.h"
#include "textlayouts.h"
#include "voxi2_qt/kernel/qteventblocker.h"
#include "voxi2_qt/kernel/qtobject2.h"
#include "voxi2_qt/kernel/qtreporthold.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFontMetricsF>
#include <QtMath>

#include <utility>

namespace VOXI {

QtViewDelegate2::QtViewDelegate2(View& view, QAbstractItemView& itemView)
    : QItemDelegate(&itemView),
      m_view(view),
      m_itemView(itemView),
      m_layouts(TextLayouts::shared())
{}

QtViewDelegate2::~QtViewDelegate2() = default;

QSize QtViewDelegate2::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // A tree measures rows far away, each of which would be asked for, and all above it with it
    // when the answer comes. What is not known is as high as a text.
    QSize size(0, qCeil(QFontMetricsF(option.font).height()));
    if (m_view.isKnown(index))
        size = QItemDelegate::sizeHint(option, index).expandedTo(controlSize(option, index));
    if (const int height = m_view.fixedRowHeight(index); height >= 0)
        size.setHeight(height);
    return size;
}

// Asking for an editor ----------------------------------------------------------------------------

QWidget* QtViewDelegate2::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                       const QModelIndex& index) const
{
    // Qt thinks of one that makes widgets, and that does not change by it.
    auto* const self = const_cast<QtViewDelegate2*>(this);
    if (isEditing() && m_editorIndex == index)
        self->adopt(parent);
    else
        self->requestIndexWidget(index);
    return nullptr;
}

void QtViewDelegate2::requestIndexWidget(const QModelIndex& index)
{
    if (!index.isValid() || isPendingEdit(index))
        return;
    m_pendingIndex = index;
    m_view.reportEditRequest(m_view.uidsOf(index));
}

// Placing it --------------------------------------------------------------------------------------

void QtViewDelegate2::setIndexWidget(const QModelIndex& index, QWidget* widget)
{
    if (!index.isValid() || (widget && m_editorIndex == index && m_editor == widget))
        return;
    const QPointer<QtViewDelegate2> self(this);
    const QPointer<QWidget> editor(widget);
    {
        // The handlers of what this does find it done.
        const QtReportHold hold;
        const QPersistentModelIndex place(index);
        if (m_editor)
            end(true);
        if (isPendingEdit(place))
            m_pendingIndex = QPersistentModelIndex();
        if (widget && canHold(widget))
            this->place(place, widget);
    }
    if (self && editor && m_editor == editor && isEditing())
        m_view.forwardQueuedEvents(editor);
}

bool QtViewDelegate2::canHold(const QWidget* widget) const
{
    return !isWithin(widget, &m_itemView) && widget != m_itemView.viewport();
}

void QtViewDelegate2::place(const QModelIndex& index, QWidget* widget)
{
    const QtEventBlocker blocker(widget,
                                 {WidgetEvent::Show, WidgetEvent::Hide, WidgetEvent::FocusIn});
    // Qt would delete what stands there.
    if (QWidget* const former = m_itemView.indexWidget(index); former && former != widget)
        takeOff(former);
    if (isEmbedded(widget) && m_embedded.value(widget) != index)
        takeOff(widget);
    const QtObject2* const peer = peerOf(widget);
    m_editorIndex = index;
    m_editor = widget;
    m_editorId = peer ? peer->getUID() : 0;
    m_editorCell = m_view.uidsOf(index);
    attach(widget);

    m_view.makeCurrent(m_editorIndex);
    m_view.startEditing(m_editorIndex);
    if (!m_isAdopted) // the model says that the cell cannot be edited, or does not know yet
        adopt(m_itemView.viewport());
    m_itemView.setIndexWidget(m_editorIndex, widget);
    m_view.setEditing(true);
    if (!m_listenedTo.isEmpty())
        m_listenedTo.front()->setFocus(Qt::OtherFocusReason);
}

void QtViewDelegate2::adopt(QWidget* parent)
{
    m_isAdopted = true;
    m_editor->removeEventFilter(this);
    takeOutFor(parent, m_editor);
    if (m_editor->parentWidget() != parent)
        m_editor->setParent(parent);
    m_editor->installEventFilter(this); // it is to stay there

    QWidget* target = m_editor;
    while (QWidget* const proxy = target->focusProxy())
        target = proxy;
    if (target == m_editor) {
        if (QWidget* const inner = findNextPrevEditorFocusChild(m_editor, true))
            target = inner;
        m_hasOurProxy = target != m_editor; // also of a form, which takes no focus itself
        if (m_hasOurProxy)
            m_editor->setFocusProxy(target);
    }
    if (target->focusPolicy() != Qt::NoFocus)
        listenTo(target);
}

void QtViewDelegate2::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                           const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

// Its end -----------------------------------------------------------------------------------------

void QtViewDelegate2::closeIndexWidget(const QModelIndex& index, bool isCommitted)
{
    if (!isEditing() || m_editorIndex != index)
        return;
    const QtReportHold hold;
    end(isCommitted);
}

void QtViewDelegate2::endHidden(const QPointer<QWidget>& editor)
{
    if (editor && editor == m_editor && editor->isHidden())
        closeIndexWidget(m_editorIndex, true);
}

void QtViewDelegate2::end(bool isCommitted)
{
    QWidget* const editor = m_editor;
    const QPersistentModelIndex index = m_editorIndex;
    const unsigned id = m_editorId;
    forgetEditor();
    m_view.setEditing(false);
    if (isWithin(editor, editor->window()->focusWidget()))
        m_itemView.setFocus(Qt::OtherFocusReason);
    if (isEmbedded(editor) && m_embedded.value(editor) == index)
        editor->installEventFilter(this); // the cell carries it
    else
        takeOff(editor);
    m_view.reportEditComplete(m_editorCell, id, isCommitted);
}

void QtViewDelegate2::lose()
{
    const View::Uids cell = m_editorCell;
    const unsigned id = m_editorId;
    forgetEditor();
    QMetaObject::invokeMethod(
        this, [this, cell, id] { m_view.reportEditComplete(cell, id, false); },
        Qt::QueuedConnection);
}

void QtViewDelegate2::forgetEditor()
{
    removeEditorEventFilter(m_editor);
    m_editor = nullptr;
    m_editorIndex = QPersistentModelIndex();
    m_editorId = 0;
    m_isAdopted = false;
}

void QtViewDelegate2::attach(QWidget* widget)
{
    QObject::disconnect(widget, &QObject::destroyed, this, nullptr);
    QObject::connect(widget, &QObject::destroyed, this, [this, widget] { forgetDead(widget); });
}

void QtViewDelegate2::forgetDead(QWidget* widget)
{
    m_embedded.remove(widget);
    if (m_isAdopted && !m_editor)
        lose();
    forgetInView(widget);
}

void QtViewDelegate2::forgetInView(QWidget* widget)
{
    m_view.forgetEditor(widget);
    if (isEditing())
        m_view.setEditing(true); // Qt takes each for the one that is edited with
}

void QtViewDelegate2::destroyEditor(QWidget* editor, const QModelIndex&) const
{
    auto* const self = const_cast<QtViewDelegate2*>(this);
    const QtReportHold hold;
    if (editor == m_editor) {
        self->lose();
        m_view.setEditing(false);
    }
    self->m_embedded.remove(editor);
    QObject::disconnect(editor, &QObject::destroyed, this, nullptr);
    editor->removeEventFilter(self);
    editor->removeEventFilter(&m_itemView);
    letGo(editor);
}

void QtViewDelegate2::leaveTo(QWidget* widget)
{
    if (widget == m_editor) {
        lose();
        m_view.setEditing(false);
    }
    detach(widget);
}

void QtViewDelegate2::leaveForEnd(QWidget* widget)
{
    const QtReportHold hold;
    const bool hasFocus = isWithin(widget, widget->window()->focusWidget());
    leaveTo(widget);
    if (hasFocus)
        m_itemView.setFocus(Qt::OtherFocusReason);
}

void QtViewDelegate2::takeOff(QWidget* widget)
{
    const QtEventBlocker blocker(widget, {WidgetEvent::Hide});
    detach(widget);
    letGo(widget);
}

void QtViewDelegate2::detach(QWidget* widget)
{
    m_embedded.remove(widget);
    widget->removeEventFilter(this);
    widget->removeEventFilter(&m_itemView);
    QObject::disconnect(widget, &QObject::destroyed, this, nullptr);
    forgetInView(widget);
}

void QtViewDelegate2::letGo(QWidget* widget)
{
    // Where cells are out of sight, Qt has hidden it, and not the program.
    if (widget->isHidden())
        widget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
    takeOutAlone(widget);
}

} // namespace VOXI

#include "qtviewhost.h"

#include "qtviewmodel2.h"
#include "voxi2_qt/modelview/qtabstractview2.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace VOXI {

using E = VXAbstractView2Emitters;

namespace {

/// For a program that asks for nothing and answers nothing, while the user goes on.
constexpr std::size_t MostQueued = 1'000;

QWidget& focusProxyOf(QWidget& widget)
{
    QWidget* last = &widget;
    while (last->focusProxy())
        last = last->focusProxy();
    return *last;
}

/// What is typed replaces what is there, as in Qt's own editors.
void selectText(QWidget& editor)
{
    QWidget& field = focusProxyOf(editor);
    if (auto* const line = qobject_cast<QLineEdit*>(&field))
        line->selectAll();
    else if (auto* const box = qobject_cast<QAbstractSpinBox*>(&field))
        box->selectAll();
}

} // namespace

// For the delegate --------------------------------------------------------------------------------

QtViewDelegate2::View::Uids QtViewHost::uidsOf(const QModelIndex& index) const
{
    const QtViewModel2& model = m_view.viewModel();
    return {model.rowFromIndex(index), model.columnFromIndex(index)};
}

const CellRecord* QtViewHost::cellRecord(const QModelIndex& index) const
{
    return m_view.viewModel().cell(index);
}

bool QtViewHost::isKnown(const QModelIndex& index) const
{
    return m_view.viewModel().isKnown(index);
}

int QtViewHost::fixedRowHeight(const QModelIndex& index) const
{
    return m_view.fixedRowHeight(index);
}

void QtViewHost::makeCurrent(const QModelIndex& index)
{
    const QtProgramScope scope;
    const bool was = std::exchange(m_isMakingCurrent, true);
    m_view.itemView().setCurrentIndex(index);
    m_isMakingCurrent = was;
}

void QtViewHost::startEditing(const QModelIndex& index)
{
    m_view.edit(index, QAbstractItemView::AllEditTriggers, nullptr);
}

void QtViewHost::setEditing(bool isEditing) { m_view.setEditing(isEditing); }
void QtViewHost::forgetEditor(QWidget* widget) { m_view.forgetEditor(widget); }

void QtViewHost::forwardQueuedEvents(QWidget* editor)
{
    const QtDeletionHold hold(&m_view);
    const QPointer<QWidget> receiver(editor);
    selectText(*editor);
    // Taken first: the editor's handlers may begin the next editing, or end the view.
    const auto waiting = std::exchange(m_queue, {});
    for (const auto& event : waiting) {
        if (hold.isAlive() && receiver && receiver == m_view.viewDelegate().getEditorWidget())
            send(*receiver, *event);
    }
}

void QtViewHost::reportEditRequest(Uids cell)
{
    m_view.report(&E::editRequested, cell.row, cell.column);
}

/// The editor is looked up when it is told: what is told before may be its end.
void QtViewHost::reportEditComplete(Uids cell, unsigned editor, bool isCommitted)
{
    const auto report = [cell, editor, isCommitted](const QtObject2& peer) {
        const auto& view = static_cast<const QtAbstractView2&>(peer);
        view.reportMade(&E::editCompleted, [&] {
            return VXEditCompleteEvent2(
                static_cast<VXAbstractView2*>(view.abstractWidget()), cell.row, cell.column,
                dynamic_cast<VXWidget2*>(VXObject::objectById(editor)), isCommitted);
        });
    };
    if (QtReportHold::isActive())
        QtReportHold::add(m_view, report);
    else
        report(m_view);
}

// For the sight -----------------------------------------------------------------------------------

QAbstractItemView& QtViewHost::itemView() const { return m_view.itemView(); }
QtViewModel2& QtViewHost::viewModel() const { return m_view.viewModel(); }

std::vector<int> QtViewHost::sectionsIn(const QRect& area) const
{
    const QHeaderView& header = m_view.columnHeader();
    std::vector<int> sections;
    int first = header.visualIndexAt(area.left());
    int last = header.visualIndexAt(area.right());
    if (header.isRightToLeft())
        std::swap(first, last);
    if (header.length() <= 0 || first < 0)
        return sections;
    if (last < 0)
        last = header.count() - 1;
    for (int visual = first; visual <= last; ++visual) {
        const int section = header.logicalIndex(visual);
        if (!header.isSectionHidden(section))
            sections.push_back(section);
    }
    return sections;
}

QModelIndex QtViewHost::firstRowIn(const QRect& area, const std::vector<int>& sections) const
{
    const int x = m_view.columnHeader().sectionViewportPosition(sections.front());
    return m_view.itemView().indexAt({std::max(0, x), area.top()});
}

QModelIndex QtViewHost::rowBelow(const QModelIndex& index) const { return m_view.rowBelow(index); }
void QtViewHost::layOutNow() { m_view.layOutNow(); }

void QtViewHost::addWanted(std::vector<unsigned>& rows, std::vector<unsigned>& columns) const
{
    m_view.addWanted(rows, columns);
}

// Input -------------------------------------------------------------------------------------------

void QtViewHost::clearQueuedEvents()
{
    if (!m_isMakingCurrent)
        m_queue.clear();
}

bool QtViewHost::waitsForEditor() const
{
    return m_view.viewDelegate().getPendingIndex().isValid() || m_view.m_awaitedIndex.isValid();
}

bool QtViewHost::comesFromEditor(const QInputEvent& event) const
{
    const QWidget* const editor = m_view.viewDelegate().getEditorWidget();
    if (!editor)
        return false;
    if (event.type() == QEvent::KeyPress)
        return isWithin(editor, QApplication::focusWidget());
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    return !m_hasPress && editor->isVisible()
           && editor->rect().contains(editor->mapFromGlobal(mouse.globalPosition().toPoint()));
}

void QtViewHost::passToEditor(const QInputEvent& event)
{
    if (event.type() == QEvent::MouseButtonPress)
        m_hasPress = true;
    else if (event.type() == QEvent::MouseButtonRelease)
        m_hasPress = false;
    const QtViewDelegate2& delegate = m_view.viewDelegate();
    if (delegate.isEditing())
        send(*delegate.getEditorWidget(), event);
    else if (waitsForEditor() && m_queue.size() < MostQueued)
        m_queue.emplace_back(static_cast<QInputEvent*>(event.clone()));
}

void QtViewHost::send(QWidget& editor, const QInputEvent& event)
{
    if (event.type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(event);
        QKeyEvent copy(key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                       static_cast<quint16>(key.count()));
        QCoreApplication::sendEvent(&focusProxyOf(editor), &copy);
        return;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    QMouseEvent copy(mouse.type(), editor.mapFromGlobal(mouse.globalPosition()),
                     mouse.globalPosition(), mouse.button(), mouse.buttons(), mouse.modifiers());
    QCoreApplication::sendEvent(&editor, &copy);
}

} // namespace VOXI

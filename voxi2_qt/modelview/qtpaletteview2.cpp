#include "voxi2_qt/modelview/qtpaletteview2.h"

#include "../kernel/qtignored.h"
#include "paletteentries.h"
#include "palettemove.h"
#include "qtviewmodel2.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

#include <utility>

namespace VOXI {

namespace {

using E = VXPaletteView2Emitters;
using P = QtPaletteView2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setEntryLayout, &P::doSetEntryLayout>(),
    TROV::row<&E::getEntryLayout, &P::doGetEntryLayout>(),
    TROV::row<&E::setCurrentEntry, &P::doSetCurrentEntry>(),
    asUserRow<&E::setCurrentEntryAsUser, &P::doimSetCurrentEntry>(),
    TROV::row<&E::getCurrentEntry, &P::doGetCurrentEntry>(),
    TROV::row<&E::setSearchVisible, &P::doSetSearchVisible>(),
    TROV::row<&E::isSearchVisible, &P::doIsSearchVisible>(),
    TROV::row<&E::setSearchText, &P::doSetSearchText>(),
    asUserRow<&E::setSearchTextAsUser, &P::doimSetSearchText>(),
    TROV::row<&E::getSearchText, &P::doGetSearchText>(),
    TROV::row<&E::setFiltering, &P::doSetFiltering>(),
    TROV::row<&E::isFiltering, &P::doIsFiltering>(),
    TROV::row<&E::setReorderable, &P::doSetReorderable>(),
    TROV::row<&E::isReorderable, &P::doIsReorderable>(),
    asUserRow<&E::moveEntry, &P::doimMoveEntry>());
// clang-format on

} // namespace

QtPaletteView2::QtPaletteView2(VXPaletteView2* object, VXPaletteView2Emitters* emitters,
                               QWidget* parent)
    : QtOuterWidget2Shim(object, emitters, s_requests, parent),
      m_search(new QLineEdit(this))
{
    m_entries = new PaletteEntries(*this);
    const QString search = toQString(translated("Search"));
    m_search->setPlaceholderText(search);
    m_search->setAccessibleName(search);
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_search);
    layout->addWidget(m_entries, 1);
    QWidget::setFocusProxy(m_entries);
    connect(m_search, &QLineEdit::textChanged, this, &QtPaletteView2::slotSearchChanged);
}

QtPaletteView2::~QtPaletteView2()
{
    endPeer();
    m_search->removeEventFilter(this);
    m_entries->end();
    delete std::exchange(m_entries, nullptr);
}

// Requests ----------------------------------------------------------------------------------------

void QtPaletteView2::doSetMouseTracking(bool tracking)
{
    QtOuterWidget2Shim::doSetMouseTracking(tracking);
    m_entries->viewport()->setMouseTracking(tracking);
}

void QtPaletteView2::doSetAcceptDrops(bool accept)
{
    m_takesDrops = accept;
    setAcceptDrops(m_takesDrops || m_isReorderable);
}

bool QtPaletteView2::doCanAcceptDrops() { return m_takesDrops; }

void QtPaletteView2::doSetEntryLayout(PaletteLayout layout)
{
    m_entries->setGrid(layout != PaletteLayout::List);
}

PaletteLayout QtPaletteView2::doGetEntryLayout()
{
    return m_entries->isGrid() ? PaletteLayout::Grid : PaletteLayout::List;
}

void QtPaletteView2::doSetCurrentEntry(unsigned entry)
{
    const QtProgramScope scope;
    doimSetCurrentEntry(entry);
}

void QtPaletteView2::doimSetCurrentEntry(unsigned entry)
{
    if (entry == 0)
        m_entries->choose(0);
    else if (m_entries->canBeChosen(entry) && entry == m_entries->currentRow())
        noteCurrent(entry); // where it is, but it was not chosen
    else if (m_entries->canBeChosen(entry))
        m_entries->setCurrent(entry);
    else
        ignored(*this, "that is no entry that can be chosen");
}

unsigned QtPaletteView2::doGetCurrentEntry() { return m_entries->chosen(); }
void QtPaletteView2::doSetSearchVisible(bool visible) { m_search->setVisible(visible); }
bool QtPaletteView2::doIsSearchVisible() { return !m_search->isHidden(); }

void QtPaletteView2::doSetSearchText(const std::wstring& text)
{
    const QtProgramScope scope;
    m_search->setText(toQString(text));
}

void QtPaletteView2::doimSetSearchText(const std::wstring& text)
{
    m_search->setText(toQString(text));
}

std::wstring QtPaletteView2::doGetSearchText() { return toStdWString(m_search->text()); }

void QtPaletteView2::doSetFiltering(bool filtering)
{
    m_filters = filtering;
    applySearch();
}

bool QtPaletteView2::doIsFiltering() { return m_filters; }

void QtPaletteView2::doSetReorderable(bool reorderable)
{
    m_isReorderable = reorderable;
    setAcceptDrops(m_takesDrops || m_isReorderable);
}

bool QtPaletteView2::doIsReorderable() { return m_isReorderable; }

void QtPaletteView2::doimMoveEntry(unsigned entry, unsigned group, unsigned before)
{
    const QtDeletionHold hold(this);
    if (m_isReorderable && mayMove({entry, group, before}) && hold.isAlive())
        report(&E::entryMoved, entry, group, before);
}

// Reports -----------------------------------------------------------------------------------------

void QtPaletteView2::slotSearchChanged(const QString& text)
{
    applySearch();
    if (!QtProgramScope::isActive())
        report(&E::searchChanged, toStdWString(text));
}

void QtPaletteView2::noteCurrent(unsigned row)
{
    const QtReportHold hold; // told when all is done
    QtAbstractGroupView2::noteCurrent(row);
    if (!m_entries || !m_entries->canBeChosen(row) || m_entries->chosen() == row)
        return;
    m_entries->choose(row);
    if (!QtProgramScope::isActive())
        report(&E::currentEntryChanged, row);
}

bool QtPaletteView2::passPointer(QWidget& receiver, QMouseEvent& event)
{
    if (event.type() == QEvent::MouseButtonRelease)
        passMouseRelease();
    if (passOn(&receiver, event))
        return false;
    if (event.type() == QEvent::MouseButtonPress)
        passMousePress(event, receiver.mapTo(this, QPoint()));
    return event.type() != QEvent::MouseMove || passMouseMove(event);
}

bool QtPaletteView2::eventFilter(QObject* object, QEvent* event)
{
    if (object != m_search || event->type() != QEvent::KeyPress || !m_entries)
        return QtOuterWidget2Shim::eventFilter(object, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape && !m_search->text().isEmpty()) {
        m_search->clear();
        return true;
    }
    if (key == Qt::Key_Down) {
        const QtDeletionHold hold(this);
        m_entries->setFocus(Qt::ShortcutFocusReason);
        if (hold.isAlive())
            m_entries->goToFirst();
        return true;
    }
    return false;
}

// Helpers -----------------------------------------------------------------------------------------

FoldedView& QtPaletteView2::foldedView() const { return *m_entries; }

void QtPaletteView2::applySearch()
{
    m_entries->setFilter(m_filters ? m_search->text() : QString());
}

} // namespace VOXI

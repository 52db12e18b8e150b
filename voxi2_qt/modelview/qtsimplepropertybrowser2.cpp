#include "voxi2_qt/modelview/qtsimplepropertybrowser2.h"

#include "../kernel/qtignored.h"
#include "qtsimplepropertytree2.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QVBoxLayout>

#include <utility>

namespace VOXI {

namespace {

using E = VXSimplePropertyBrowser2Emitters;
using P = QtSimplePropertyBrowser2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::addProperty, &P::doAddProperty>(),
    TROV::row<&E::removeProperty, &P::doRemoveProperty>(),
    TROV::row<&E::clear, &P::doClear>(),
    TROV::row<&E::setSort, &P::doSetSort>(),
    TROV::row<&E::setEditorFactory, &P::doSetEditorFactory>(),
    TROV::row<&E::setEditor, &P::doSetEditor>(),
    TROV::row<&E::setPropertyToolTip, &P::doSetPropertyToolTip>(),
    TROV::row<&E::setReadonly, &P::doSetReadonly>(),
    TROV::row<&E::refreshDataOnKestraThread, &P::doRefreshDataOnKestraThread>(),
    TROV::row<&E::refreshUIOnUIThread, &P::doRefreshUIOnUIThread>(),
    TROV::row<&E::closeOpenEditor, &P::doCloseOpenEditor>(),
    TROV::row<&E::refreshNews, &P::doRefreshNews>(),
    TROV::row<&E::isReadonly, &P::doIsReadonly>(),
    TROV::row<&E::getProperties, &P::doGetProperties>(),
    TROV::row<&E::edit, &P::doEdit>(),
    TROV::row<&E::getEdited, &P::doGetEdited>(),
    TROV::row<&E::setExpanded, &P::doSetExpanded>(),
    TROV::row<&E::isExpanded, &P::doIsExpanded>(),
    TROV::row<&E::setCurrent, &P::doSetCurrent>(),
    TROV::row<&E::getCurrent, &P::doGetCurrent>(),
    TROV::row<&E::setFilter, &P::doSetFilter>(),
    TROV::row<&E::getFilter, &P::doGetFilter>(),
    asUserRow<&E::setExpandedAsUser, &P::doimSetExpanded>(),
    asUserRow<&E::doubleClick, &P::doimDoubleClick>());
// clang-format on

} // namespace

QtSimplePropertyBrowser2::QtSimplePropertyBrowser2(VXSimplePropertyBrowser2* object,
                                                   VXSimplePropertyBrowser2Emitters* emitters,
                                                   QWidget* parent)
    : QtOuterWidget2Shim(object, emitters, s_requests, parent),
      m_tree(new QtSimplePropertyTree2(*this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);
    QWidget::setFocusProxy(m_tree);
}

QtSimplePropertyBrowser2::~QtSimplePropertyBrowser2()
{
    endPeer();
    delete std::exchange(m_tree, nullptr);
}

// Requests ----------------------------------------------------------------------------------------

void QtSimplePropertyBrowser2::doAddProperty(Property property, Property group)
{
    if (group.id() == 0 || isShown(group))
        m_tree->addProperty(property, group);
}

void QtSimplePropertyBrowser2::doRemoveProperty(Property property)
{
    if (isShown(property))
        m_tree->removeProperty(property);
}

void QtSimplePropertyBrowser2::doClear() { m_tree->clearProperties(); }

void QtSimplePropertyBrowser2::doSetSort(
    const std::shared_ptr<VXSimplePropertyComparator2>& comparator)
{
    m_tree->setSort(comparator);
}

void QtSimplePropertyBrowser2::doSetEditorFactory(
    const std::shared_ptr<VXSimplePropertyEditorFactory2>& factory)
{
    m_tree->setEditorFactory(factory);
}

void QtSimplePropertyBrowser2::doSetEditor(Property property, unsigned editor)
{
    if (isShown(property))
        m_tree->setEditor(property, editor);
}

void QtSimplePropertyBrowser2::doSetPropertyToolTip(Property property, const std::wstring& text)
{
    if (isShown(property))
        m_tree->setPropertyToolTip(property, toQString(text));
}

void QtSimplePropertyBrowser2::doSetReadonly(bool readonly) { m_tree->setReadonly(readonly); }

void QtSimplePropertyBrowser2::doRefreshDataOnKestraThread()
{
    m_tree->refreshDataOnKestraThread();
}

void QtSimplePropertyBrowser2::doRefreshUIOnUIThread() { m_tree->refreshUIOnUIThread(); }
void QtSimplePropertyBrowser2::doCloseOpenEditor() { m_tree->closeOpenEditor(); }

void QtSimplePropertyBrowser2::doRefreshNews() { m_tree->refreshNews(); }

bool QtSimplePropertyBrowser2::doIsReadonly() { return m_tree->isReadonly(); }

std::vector<VXHandle<VXSimpleProperty2>> QtSimplePropertyBrowser2::doGetProperties(Property group)
{
    return m_tree->properties(group);
}

void QtSimplePropertyBrowser2::doEdit(Property property)
{
    if (isShown(property))
        m_tree->editProperty(property);
}

VXHandle<VXSimpleProperty2> QtSimplePropertyBrowser2::doGetEdited()
{
    return m_tree->editedProperty();
}

void QtSimplePropertyBrowser2::doSetExpanded(Property property, bool expanded)
{
    const QtProgramScope scope;
    if (isShown(property))
        m_tree->setPropertyExpanded(property, expanded);
}

bool QtSimplePropertyBrowser2::doIsExpanded(Property property)
{
    return m_tree->isPropertyExpanded(property);
}

void QtSimplePropertyBrowser2::doSetCurrent(Property property)
{
    const QtProgramScope scope;
    if (property.id() == 0 || isShown(property))
        m_tree->setCurrentProperty(property);
}

VXHandle<VXSimpleProperty2> QtSimplePropertyBrowser2::doGetCurrent()
{
    return m_tree->currentProperty();
}

void QtSimplePropertyBrowser2::doSetFilter(const std::wstring& text)
{
    m_tree->setFilter(toQString(text));
}

std::wstring QtSimplePropertyBrowser2::doGetFilter() { return toStdWString(m_tree->filter()); }

void QtSimplePropertyBrowser2::doimSetExpanded(Property property, bool expanded)
{
    if (isShown(property))
        m_tree->setPropertyExpanded(property, expanded);
}

void QtSimplePropertyBrowser2::doimDoubleClick(Property property)
{
    if (isShown(property))
        m_tree->doubleClickProperty(property);
}

// Helpers -----------------------------------------------------------------------------------------

/// Whether a request is about what is shown here, which is told if not: unless that has ended.
bool QtSimplePropertyBrowser2::isShown(Property property, CallPlace where) const
{
    const bool isHere = m_tree->hasProperty(property);
    if (!isHere && property.isValid())
        ignored(*this, Reason::NotInThis, where);
    return isHere;
}

} // namespace VOXI

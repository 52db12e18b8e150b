#include "voxi2/modelview/vxsimplepropertybrowser2.h"

#include "../kernel/notnull.h"

namespace VOXI {

VXSimplePropertyBrowser2::VXSimplePropertyBrowser2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createSimplePropertyBrowser2, this, &m_emitters, parent);
}

VXSimplePropertyBrowser2::~VXSimplePropertyBrowser2() { retire(); }

// Properties --------------------------------------------------------------------------------------

void VXSimplePropertyBrowser2::addProperty(VXSimpleProperty2* property, VXSimpleProperty2* group)
{
    const Property inside = handleOf(group);
    if (!group || inside.id() != 0)
        m_emitters.addProperty(handleOf(notNull(this, property)), inside);
}

void VXSimplePropertyBrowser2::removeProperty(VXSimpleProperty2* property)
{
    m_emitters.removeProperty(handleOf(notNull(this, property)));
}

void VXSimplePropertyBrowser2::clear() { m_emitters.clear(); }

std::vector<VXSimpleProperty2*> VXSimplePropertyBrowser2::properties(
    const VXSimpleProperty2* group) const
{
    const Property inside = handleOf(group);
    std::vector<VXSimpleProperty2*> result;
    if (group && inside.id() == 0)
        return result;
    for (const Property each : m_emitters.getProperties(inside)) {
        if (VXSimpleProperty2* property = each.get())
            result.push_back(property);
    }
    return result;
}

void VXSimplePropertyBrowser2::setSort(
    const std::shared_ptr<VXSimplePropertyComparator2>& comparator)
{
    m_emitters.setSort(comparator);
}

void VXSimplePropertyBrowser2::refresh() { m_emitters.refreshDataOnKestraThread(); }
void VXSimplePropertyBrowser2::refreshUI() { m_emitters.refreshUIOnUIThread(); }

void VXSimplePropertyBrowser2::setToolTip(VXSimpleProperty2* property, const AnyText& text)
{
    m_emitters.setPropertyToolTip(handleOf(notNull(this, property)), text.toWide());
}

// Editing -----------------------------------------------------------------------------------------

void VXSimplePropertyBrowser2::setEditorFactory(
    const std::shared_ptr<VXSimplePropertyEditorFactory2>& factory)
{
    m_emitters.setEditorFactory(factory);
}

void VXSimplePropertyBrowser2::setReadOnly(bool readOnly) { m_emitters.setReadonly(readOnly); }
bool VXSimplePropertyBrowser2::isReadOnly() const { return m_emitters.isReadonly(); }

void VXSimplePropertyBrowser2::setEditor(VXSimpleProperty2* property, VXWidget2* editor)
{
    const VXObjectDataLocker lock;
    if (!editor || isObjectValid(editor))
        m_emitters.setEditor(handleOf(notNull(this, property)), editor ? editor->id() : 0);
}

void VXSimplePropertyBrowser2::edit(VXSimpleProperty2* property)
{
    m_emitters.edit(handleOf(notNull(this, property)));
}

VXSimpleProperty2* VXSimplePropertyBrowser2::editedProperty() const
{
    return m_emitters.getEdited().get();
}

void VXSimplePropertyBrowser2::closeOpenEditor() { m_emitters.closeOpenEditor(); }

// What is seen ------------------------------------------------------------------------------------

void VXSimplePropertyBrowser2::setExpanded(VXSimpleProperty2* property, bool expanded)
{
    m_emitters.setExpanded(handleOf(notNull(this, property)), expanded);
}

bool VXSimplePropertyBrowser2::isExpanded(const VXSimpleProperty2* property) const
{
    return m_emitters.isExpanded(handleOf(property));
}

void VXSimplePropertyBrowser2::setCurrent(VXSimpleProperty2* property)
{
    m_emitters.setCurrent(handleOf(property));
}

VXSimpleProperty2* VXSimplePropertyBrowser2::current() const
{
    return m_emitters.getCurrent().get();
}

void VXSimplePropertyBrowser2::setFilter(const AnyText& text)
{
    text.passWideTo(m_emitters.setFilter);
}

std::wstring VXSimplePropertyBrowser2::filter() const { return m_emitters.getFilter(); }

void VXSimplePropertyBrowser2::imitateExpand(VXSimpleProperty2* property, bool expand)
{
    m_emitters.setExpandedAsUser(handleOf(notNull(this, property)), expand);
}

void VXSimplePropertyBrowser2::imitateDoubleClick(VXSimpleProperty2* property)
{
    m_emitters.doubleClick(handleOf(notNull(this, property)));
}

/// However many there are until the back end takes them, it is asked once.
void VXSimplePropertyBrowser2::tellNews(Property property)
{
    m_news.push_back(property);
    if (m_news.size() == 1)
        m_emitters.refreshNews();
}

/// None for null and for what has ended.
VXHandle<VXSimpleProperty2> VXSimplePropertyBrowser2::handleOf(const VXSimpleProperty2* property)
{
    if (!property)
        return {};
    const VXObjectDataLocker lock;
    return isObjectValid(property) ? Property(const_cast<VXSimpleProperty2*>(property))
                                   : Property();
}

} // namespace VOXI

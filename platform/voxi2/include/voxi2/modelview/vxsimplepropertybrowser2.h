#pragma once

#include "voxi2/kernel/vxhandle.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/modelview/vxpropertybrowserevents2.h"
#include "voxi2/modelview/vxsimpleproperty2.h"
#include "voxi2/modelview/vxsimplepropertycomparator2.h"
#include "voxi2/modelview/vxsimplepropertyeditorfactory2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VOXI {

struct VXSimplePropertyBrowser2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;
    using Property = VXHandle<VXSimpleProperty2>;

    TROV::Request<void(Property, Property)> addProperty{*this};
    TROV::Request<void(Property)> removeProperty{*this};
    TROV::Request<void()> clear{*this};
    TROV::Request<void(std::shared_ptr<VXSimplePropertyComparator2>)> setSort{*this};
    TROV::Request<void(std::shared_ptr<VXSimplePropertyEditorFactory2>)> setEditorFactory{*this};
    TROV::Request<void(Property, unsigned)> setEditor{*this};
    TROV::Request<void(Property, std::wstring)> setPropertyToolTip{*this};
    TROV::Request<void(bool)> setReadonly{*this};
    TROV::Request<void()> refreshDataOnKestraThread{*this};
    TROV::Request<void()> refreshUIOnUIThread{*this};
    TROV::Request<void()> closeOpenEditor{*this};
    TROV::Request<void()> refreshNews{*this};
    TROV::Request<bool()> isReadonly{*this};
    TROV::Request<std::vector<Property>(Property)> getProperties{*this};
    TROV::Request<void(Property)> edit{*this};
    TROV::Request<Property()> getEdited{*this};
    TROV::Request<void(Property, bool)> setExpanded{*this};
    TROV::Request<bool(Property)> isExpanded{*this};
    TROV::Request<void(Property)> setCurrent{*this};
    TROV::Request<Property()> getCurrent{*this};
    TROV::Request<void(std::wstring)> setFilter{*this};
    TROV::Request<std::wstring()> getFilter{*this};
    TROV::Request<void(Property, bool)> setExpandedAsUser{*this};
    TROV::Request<void(Property)> doubleClick{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXPropertyEvent2&)> propertyExpanded{*this};
    TROV::Event<void(const VXPropertyEvent2&)> propertyCollapsed{*this};
    TROV::Event<void(const VXPropertyEvent2&)> propertyDoubleClicked{*this};
    TROV::Event<void(const VXPropertyEvent2&)> editRequested{*this};
    TROV::Event<void(const VXPropertyEditorCloseEvent2&)> editorClosed{*this};
    TROV::Event<void(const VXPropertyEvent2&)> currentChanged{*this};
};

/// Shows properties in two columns, their names and their values, and lets the user edit these.
///
/// It does not own the properties. Null and dead ones, and those that it does not show where one of
/// its own is meant, are ignored.
class VOXI2_EXPORT VXSimplePropertyBrowser2 : public VXWidget2
{
public:
    using ToolkitClass = VXSimplePropertyBrowser2;

    explicit VXSimplePropertyBrowser2(VXObject2* parent = nullptr);
    ~VXSimplePropertyBrowser2() override;

    // Properties

    /// Appends a property to the topmost ones, or inside `group`, which may be any property that is
    /// shown. One that is there already moves, with what is in it; it is left where it is if that
    /// would be inside itself.
    void addProperty(VXSimpleProperty2* property, VXSimpleProperty2* group = nullptr);
    /// With what is in it. The properties live on.
    void removeProperty(VXSimpleProperty2* property);
    void clear();
    /// What is in `group`, or the topmost ones, in the order shown.
    std::vector<VXSimpleProperty2*> properties(const VXSimpleProperty2* group = nullptr) const;

    /// How properties are ordered wherever they stand side by side; null, as at first: as they were
    /// added, or as they stand. Orders what is there, and what comes with it, with the next turn of
    /// the toolkit's loop or before anything else is asked; later changes of names or values do
    /// not.
    void setSort(const std::shared_ptr<VXSimplePropertyComparator2>& comparator);

    /// Has what the properties can tell fetched and shown, in two steps: `refreshData` of each that
    /// has a source or overrides that, in the order in which they were made, on the thread named
    /// "KESTRA"; then all texts on the toolkit's thread. Returns at once. Where no thread of that
    /// name runs, both are done on the toolkit's thread. What is asked while a refresh is under way
    /// follows it, once.
    void refresh();
    /// The second step alone.
    void refreshUI();

    /// Shown while the pointer rests on the property.
    void setToolTip(VXSimpleProperty2* property, const AnyText& text);
    using VXWidget2::setToolTip;

    // Editing

    /// Makes the editors; null, as at first: `editRequested` is sent instead.
    void setEditorFactory(const std::shared_ptr<VXSimplePropertyEditorFactory2>& factory);
    /// Whether nothing is edited; not at first.
    void setReadOnly(bool readOnly);
    bool isReadOnly() const;
    /// Places a widget on the value of a property, until it is put elsewhere or the property is
    /// moved or removed; it then is alone and hidden. Null takes away what is there. It belongs to
    /// whom it belonged. A dead one is ignored, and so is one that the browser lies in.
    void setEditor(VXSimpleProperty2* property, VXWidget2* editor);
    /// Begins to edit as if the user wanted to.
    void edit(VXSimpleProperty2* property);
    /// What an editor of the factory is open for; null for none.
    VXSimpleProperty2* editedProperty() const;
    /// As if the user gave up, but not reported.
    void closeOpenEditor();

    // What is seen

    /// Whether what is in the property is shown; not at first.
    void setExpanded(VXSimpleProperty2* property, bool expanded);
    bool isExpanded(const VXSimpleProperty2* property) const;
    /// The property with the keyboard; null for none.
    void setCurrent(VXSimpleProperty2* property);
    VXSimpleProperty2* current() const;
    /// Shows only properties in whose name or value the text occurs, whatever the case, with what
    /// they are in, opened, and what is in them. All for an empty one.
    void setFilter(const AnyText& text);
    std::wstring filter() const;

    // As if the user had done it: reported

    void imitateExpand(VXSimpleProperty2* property, bool expand);
    void imitateDoubleClick(VXSimpleProperty2* property);

    // Events

    /// The user has opened a property that has others in it.
    TROV::Signal<void(const VXPropertyEvent2&)> propertyExpanded() const
    {
        return m_emitters.propertyExpanded.signal();
    }
    TROV::Signal<void(const VXPropertyEvent2&)> propertyCollapsed() const
    {
        return m_emitters.propertyCollapsed.signal();
    }
    TROV::Signal<void(const VXPropertyEvent2&)> propertyDoubleClicked() const
    {
        return m_emitters.propertyDoubleClicked.signal();
    }
    /// The user wants to edit, and there is no factory: the program may answer with `setEditor`.
    TROV::Signal<void(const VXPropertyEvent2&)> editRequested() const
    {
        return m_emitters.editRequested.signal();
    }
    /// The user has left an editor of the factory.
    TROV::Signal<void(const VXPropertyEditorCloseEvent2&)> editorClosed() const
    {
        return m_emitters.editorClosed.signal();
    }
    /// The user has gone to another property.
    TROV::Signal<void(const VXPropertyEvent2&)> currentChanged() const
    {
        return m_emitters.currentChanged.signal();
    }

    // For back ends, under the object lock

    /// The properties that have changed since this was asked for, each once.
    std::vector<VXHandle<VXSimpleProperty2>> takeNews() { return std::exchange(m_news, {}); }

private:
    friend class VXSimpleProperty2;
    using Property = VXHandle<VXSimpleProperty2>;

    static Property handleOf(const VXSimpleProperty2* property);
    void tellNews(Property property);
    void drop(VXSimpleProperty2* ended) { m_emitters.removeProperty(ended); }

    std::vector<Property> m_news; // guarded by the object lock
    VXSimplePropertyBrowser2Emitters m_emitters;
};

} // namespace VOXI

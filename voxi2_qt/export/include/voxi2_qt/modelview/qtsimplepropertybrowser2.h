#pragma once

#include "voxi2/kernel/ignored.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi2_qt/kernel/qtouterwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <memory>
#include <string>
#include <vector>

namespace VOXI {

class QtSimplePropertyTree2;

/// The peer of the property browser: owns the tree, which fills it and does the work.
class VOXI2_QT_EXPORT QtSimplePropertyBrowser2
    : public QtOuterWidget2Shim<VXSimplePropertyBrowser2, VXSimplePropertyBrowser2Emitters,
                                QtWidget2>
{
    Q_OBJECT

public:
    using Property = VXHandle<VXSimpleProperty2>;

    QtSimplePropertyBrowser2(VXSimplePropertyBrowser2* object,
                             VXSimplePropertyBrowser2Emitters* emitters, QWidget* parent);
    ~QtSimplePropertyBrowser2() override;

    // Requests, in the order of the emitters table
    virtual void doAddProperty(Property property, Property group);
    virtual void doRemoveProperty(Property property);
    virtual void doClear();
    virtual void doSetSort(const std::shared_ptr<VXSimplePropertyComparator2>& comparator);
    virtual void doSetEditorFactory(const std::shared_ptr<VXSimplePropertyEditorFactory2>& factory);
    virtual void doSetEditor(Property property, unsigned editor);
    virtual void doSetPropertyToolTip(Property property, const std::wstring& text);
    virtual void doSetReadonly(bool readonly);
    virtual void doRefreshDataOnKestraThread();
    virtual void doRefreshUIOnUIThread();
    virtual void doCloseOpenEditor();
    virtual void doRefreshNews();
    virtual bool doIsReadonly();
    virtual std::vector<Property> doGetProperties(Property group);
    virtual void doEdit(Property property);
    virtual Property doGetEdited();
    virtual void doSetExpanded(Property property, bool expanded);
    virtual bool doIsExpanded(Property property);
    virtual void doSetCurrent(Property property);
    virtual Property doGetCurrent();
    virtual void doSetFilter(const std::wstring& text);
    virtual std::wstring doGetFilter();
    virtual void doimSetExpanded(Property property, bool expanded);
    virtual void doimDoubleClick(Property property);

private:
    bool isShown(Property property, CallPlace where = CallPlace::current()) const;

    QtSimplePropertyTree2* m_tree; ///< whose making is an event already
};

} // namespace VOXI

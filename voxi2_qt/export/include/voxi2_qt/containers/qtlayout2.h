#pragma once

#include "voxi2/containers/vxlayout2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2_qt/kernel/qtpeerlevel.h"
#include "voxi2_qt/voxi2_qt_export.h"

QT_BEGIN_NAMESPACE
class QLayout;
class QLayoutItem;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// The base of the layouts' peers. A layout does not own the peers of its widgets.
class VOXI2_QT_EXPORT QtLayout2 : public QtPeerLevel<VXLayout2, VXLayout2Emitters, QtObject2>
{
public:
    void doSetParent(VXObject* widget) override;

    // Requests, in the order of the emitters table
    virtual void doAddWidget(VXObject* widget, Alignment alignment);
    virtual void doAddSpacer(Size<int> size, int expanding);
    virtual void doInvalidate();
    virtual void doRefresh();
    virtual void doRemoveWidget(VXObject* widget);
    virtual void doSetEnabled(bool enabled);
    virtual void doSetMargins(VXRect<int> margins);
    virtual void doSetSpacing(int spacing);
    virtual bool doIsEnabled();
    virtual VXRect<int> doGetMargins();
    virtual int doGetSpacing();
    virtual bool doRefuses(VXObject* widget);
    virtual void doSetAlignment(VXObject* item, Alignment alignment);
    virtual Alignment doGetAlignment(VXObject* item);
    virtual int doCount();
    virtual VXObject2* doGetItemAt(int index);
    virtual int doGetItemIndex(VXObject* item);

    /// The Qt layout of a peer; null for null or another kind.
    static QLayout* asQLayout(GuiObject* peer);

protected:
    /// The widget that a new layout fills: none if it has a layout, which it keeps; Qt would warn.
    static QWidget* freeWidget(const VXObject* layout, QWidget* parent);

    QtLayout2(VXLayout2* object, VXLayout2Emitters* emitters);

    /// The Qt layout that this peer is.
    QLayout* layout() const noexcept;

    /// To be called before a widget is added: takes it out of where it is. False when it cannot be
    /// laid out: null cannot, nor one that the layout itself lies in.
    bool prepareFor(QWidget* child, CallPlace where = CallPlace::current());
    /// To be called once it is in: a handler may have moved it elsewhere on the way, and the layout
    /// would not see it end there.
    void forgetStray(QWidget* child);

private:
    class ItemWatch;

    /// Null when it is not in the layout.
    QLayoutItem* itemOf(VXObject* item);

    ItemWatch* m_watch = nullptr; // belongs to the layout; made for one that fills no widget
};

} // namespace VOXI

#pragma once

#include "trov/listener.h"
#include "voxi2/kernel/direction.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QObject;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Makes the Qt peer for every abstract object, and ends them by id. One for the process.
///
/// A parent whose peer is of the wrong kind counts as none: the peer is then made without a parent.
class VOXI2_QT_EXPORT QtFactory2 : public TROV::Listener
{
public:
    ~QtFactory2() override;

    /// Makes the one instance and connects it to the factory's requests; again it does nothing.
    static void createFactory(VXFactory2* factory);

    void createAction2(VXAction2* object, VXAction2Emitters* emitters, VXObject* parent);
    void createBoxLayout2(VXBoxLayout2* object, VXBoxLayout2Emitters* emitters, VXObject* parent,
                          Direction direction);
    void createButton2(VXButton2* object, VXButton2Emitters* emitters, VXObject* parent);
    void createCheckBox2(VXCheckBox2* object, VXCheckBox2Emitters* emitters, VXObject* parent);
    void createDialog2(VXDialog2* object, VXDialog2Emitters* emitters, VXObject* parent,
                       unsigned flags);
    void createFileDialog2(VXFileDialog2* object, VXFileDialog2Emitters* emitters, VXObject* parent,
                           unsigned flags);
    void createDockWidget2(VXDockWidget2* object, VXDockWidget2Emitters* emitters,
                           VXObject* parent);
    void createDragManager2(VXObject2* object, VXDragManager2Emitters* emitters);
    void createDragDelegate2(VXDragDelegate2* object, VXDragDelegate2Emitters* emitters);
    void createFlowLayout2(VXFlowLayout2* object, VXFlowLayout2Emitters* emitters, VXObject* parent,
                           Direction direction);
    void createFrame2(VXFrame2* object, VXFrame2Emitters* emitters, VXObject* parent);
    void createGridLayout2(VXGridLayout2* object, VXGridLayout2Emitters* emitters,
                           VXObject* parent);
    void createGroupBox2(VXGroupBox2* object, VXGroupBox2Emitters* emitters, VXObject* parent);
    void createMenu2(VXMenu2* object, VXMenu2Emitters* emitters, VXObject* parent);
    void createMenuBar2(VXMenuBar2* object, VXMenuBar2Emitters* emitters, VXObject* parent);
    void createPanel2(VXPanel2* object, VXPanel2Emitters* emitters, VXObject* parent);
    void createRadioButton2(VXRadioButton2* object, VXRadioButton2Emitters* emitters,
                            VXObject* parent);
    void createScrollView2(VXScrollView2* object, VXScrollView2Emitters* emitters,
                           VXObject* parent);
    void createSplitter2(VXSplitter2* object, VXSplitter2Emitters* emitters, VXObject* parent,
                         Orientation orientation);
    void createTab2(VXTab2* object, VXTab2Emitters* emitters, VXObject* parent);
    void createTabContainer2(VXTabContainer2* object, VXTabContainer2Emitters* emitters,
                             VXObject* parent);
    void createText2(VXText2* object, VXText2Emitters* emitters, VXObject* parent);
    void createToolbar2(VXToolBar2* object, VXToolBar2Emitters* emitters, VXObject* parent);
    void createToolButton2(VXToolButton2* object, VXToolButton2Emitters* emitters,
                           VXObject* parent);
    void createToolTipWindow2(VXToolTipWindow2* object, VXToolTipWindow2Emitters* emitters,
                              VXObject* parent);
    void createWidgetStack2(VXWidgetStack2* object, VXWidgetStack2Emitters* emitters,
                            VXObject* parent);
    void createWindow2(VXWindow2* object, VXWindow2Emitters* emitters, VXObject* parent);

    /// Destroys the peer of the object with that id; unknown ids are ignored.
    void destroyObject(unsigned uid);

private:
    explicit QtFactory2(VXFactory2* factory);

    static QWidget* getQWidget(VXObject* object);
    static QObject* getQObject(VXObject* object);

    static QtFactory2* m_factory;
};

} // namespace VOXI

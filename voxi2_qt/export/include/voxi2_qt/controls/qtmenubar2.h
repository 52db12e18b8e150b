#pragma once

#include "voxi2/controls/vxmenubar2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QMenuBar>

namespace VOXI {

/// The peer of the menu bar.
class VOXI2_QT_EXPORT QtMenuBar2
    : public QtWidget2Shim<VXMenuBar2, VXMenuBar2Emitters, QtWidget2, QMenuBar>
{
    Q_OBJECT

public:
    QtMenuBar2(VXMenuBar2* object, VXMenuBar2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doGlAddMenu(const std::string& title, VXMenu2* menu);
    virtual void doAddMenuU(const std::wstring& title, VXMenu2* menu);
    virtual void doRemoveMenu(VXMenu2* menu);
    virtual void doClear();

private:
    void addTitled(const QString& title, VXMenu2* menu);
};

} // namespace VOXI

#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QWidgetAction>

namespace VOXI {

class QtWidget2;

/// What shows a widget in a tool bar. Qt's own kind would own the widget, hide it for good wherever
/// it goes next, and enable it with the action.
///
/// It belongs to the widget and ends when that leaves its bar, whoever takes it out.
class VOXI2_QT_EXPORT QtBarItem : public QWidgetAction
{
    Q_OBJECT

public:
    /// Registers itself as the widget's action; for a widget that is in no bar.
    explicit QtBarItem(QtWidget2& peer);
    ~QtBarItem() override;

    /// Takes the widget out of its bar: hidden until it is put elsewhere, unless the program has
    /// hidden it. No echoes.
    void leave();

    /// Has the bar show or hide now what it would show or hide a turn later, without echoes.
    void settle();

protected:
    QWidget* createWidget(QWidget* parent) override;
    void deleteWidget(QWidget* widget) override;
    bool event(QEvent* event) override;

private:
    QtWidget2& m_peer;
};

} // namespace VOXI

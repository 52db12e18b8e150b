#pragma once

#include <QDockWidget>

namespace VOXI {

/// Stands between a dock widget and the widget for its title: Qt reckons with the size hint, which
/// a widget without content does not have. Goes when that widget leaves.
class QtDockTitle : public QWidget
{
public:
    QtDockTitle(QDockWidget* dock, QWidget* title);

    QWidget* title() const { return m_title; }

protected:
    void childEvent(QChildEvent* event) override;

private:
    QWidget* m_title;
};

/// The widget for the title; null when there is none.
QWidget* dockTitleIn(const QDockWidget& dock);

} // namespace VOXI

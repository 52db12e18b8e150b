#pragma once

#include <QDockWidget>

namespace VOXI {

/// Stands between a dock widget and the widget for its title: Qt reckons with the size hint, which
/// a widget without content does not have. Goes when that widget leaves. Under a compositor it is
/// what a floating dock widget is moved by: Qt would move the window, which nobody may there.
class QtDockTitle : public QWidget
{
public:
    QtDockTitle(QDockWidget* dock, QWidget* title);

    QWidget* title() const { return m_title; }

protected:
    void childEvent(QChildEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool movesWindow() const;

    QWidget* m_title;
    QPoint m_pressedAt;
};

/// The widget for the title; null when there is none.
QWidget* dockTitleIn(const QDockWidget& dock);

} // namespace VOXI

#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QDockWidget;
QT_END_NAMESPACE

namespace VOXI {

/// The title of a dock widget that floats where no window manager gives it one: with its name, and
/// with buttons that dock and close it.
class QtFloatTitle : public QWidget
{
public:
    explicit QtFloatTitle(QDockWidget* dock);

    QSize sizeHint() const override { return {60, m_height}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QAbstractButton* makeButton(const QString& name);
    void adoptLooks();
    void placeButtons();

    QDockWidget* const m_dock;
    QAbstractButton* m_dockButton;
    QAbstractButton* m_closeButton;
    int m_height = 0;
    int m_textWidth = 0; // what the buttons leave
};

} // namespace VOXI

#pragma once

#include <QPixmap>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QDockWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Stands for a dock widget that the user drags out, in the window that it comes from, where no
/// window is shown of it before it is let go: a compositor places windows, and Qt gives none to
/// what is to be under the pointer. Goes with the dock widget.
class QtDragPicture : public QWidget
{
public:
    /// Whether one is needed now.
    static bool isMeant(const QDockWidget& dock);

    explicit QtDragPicture(QDockWidget& dock);

    /// To where Qt has the dock widget.
    void follow();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QDockWidget& m_dock;
    const QPixmap m_picture;
};

} // namespace VOXI

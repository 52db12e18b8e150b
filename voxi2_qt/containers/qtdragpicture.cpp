#include "qtdragpicture.h"

#include "../kernel/qtcompositor.h"

#include <QDockWidget>
#include <QPainter>

namespace VOXI {

bool QtDragPicture::isMeant(const QDockWidget& dock)
{
    return isUnderCompositor() && QWidget::mouseGrabber() == &dock && dock.isFloating()
           && dock.windowFlags().testFlag(Qt::BypassWindowManagerHint) && dock.parentWidget();
}

QtDragPicture::QtDragPicture(QDockWidget& dock)
    : QWidget(dock.parentWidget()),
      m_dock(dock),
      m_picture(dock.grab())
{
    connect(&dock, &QObject::destroyed, this, &QObject::deleteLater);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    resize(dock.size());
    follow();
    show();
}

void QtDragPicture::follow()
{
    move(parentWidget()->mapFromGlobal(m_dock.pos()));
    raise();
}

void QtDragPicture::paintEvent(QPaintEvent*)
{
    constexpr double Opacity = 0.7; // what is behind says where it will dock
    QPainter painter(this);
    painter.setOpacity(Opacity);
    painter.drawPixmap(0, 0, m_picture);
    painter.setOpacity(1);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace VOXI

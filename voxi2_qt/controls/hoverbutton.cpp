#include "voxi2_qt/controls/hoverbutton.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QPixmap>

namespace VOXI {

namespace {

constexpr int Rim = 2; // around the picture, on each side

QString resource(const QString& path) { return QStringLiteral(":/") + path; }

/// For both scales: Qt looks for the larger one only where a screen needs it at this moment.
void add(QIcon& pictures, const QString& path, QIcon::Mode mode)
{
    pictures.addFile(path, {}, mode);
    pictures.addFile(QString(path).replace(QLatin1String(".png"), QLatin1String("@2x.png")), {},
                     mode);
}

} // namespace

HoverButton::HoverButton(const QString& image, const QString& disabledImage, QWidget* parent)
    : QAbstractButton(parent)
{
    QIcon pictures;
    add(pictures, resource(image), QIcon::Normal);
    add(pictures, resource(disabledImage), QIcon::Disabled);
    setIcon(pictures);
    setIconSize(QPixmap(resource(image)).deviceIndependentSize().toSize());
    setFocusPolicy(Qt::TabFocus); // a click leaves it to the page
    setAttribute(Qt::WA_Hover);
    resize(HoverButton::sizeHint());
}

QSize HoverButton::sizeHint() const { return iconSize() + QSize(2 * Rim, 2 * Rim); }

bool HoverButton::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTipChange)
        setAccessibleName(toolTip());
    return QAbstractButton::event(event);
}

void HoverButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isEnabled() && (underMouse() || isDown())) {
        QColor glow = palette().color(QPalette::Highlight);
        glow.setAlpha(isDown() ? 120 : 60);
        painter.setPen(Qt::NoPen);
        painter.setBrush(glow);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawRoundedRect(rect(), 4, 4);
    }
    icon().paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (hasFocus()) { // styles show it only once the Tab key has been pressed
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 4, 4);
    }
}

} // namespace VOXI

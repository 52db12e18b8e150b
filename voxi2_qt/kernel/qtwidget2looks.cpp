// The part of QtWidget2 that is about what the widget looks like.

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtcursorregistry.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QWidget>

namespace VOXI {

namespace {

/// Where a toolkit colour role lives in a widget's palette.
struct PaletteEntry
{
    bool m_disabled;
    QPalette::ColorRole m_role;
};

PaletteEntry paletteEntry(ColorRole role, const QWidget& widget)
{
    const bool foreground = role == ColorRole::Foreground || role == ColorRole::DisabledForeground;
    return {role == ColorRole::DisabledBackground || role == ColorRole::DisabledForeground,
            foreground ? widget.foregroundRole() : widget.backgroundRole()};
}

} // namespace

// Requests ----------------------------------------------------------------------------------------

void QtWidget2::doSetColor(ColorRole role, Color color)
{
    QWidget* widget = asQWidget();
    const PaletteEntry entry = paletteEntry(role, *widget);
    const QBrush brush(QColor(color.red(), color.green(), color.blue()));
    QPalette palette = widget->palette();
    if (entry.m_disabled) {
        palette.setBrush(QPalette::Disabled, entry.m_role, brush);
    } else {
        palette.setBrush(QPalette::Active, entry.m_role, brush);
        palette.setBrush(QPalette::Inactive, entry.m_role, brush);
    }
    widget->setPalette(palette);
}

void QtWidget2::doSetFont(const VXFont& font) { asQWidget()->setFont(VX2Qt(font)); }
void QtWidget2::doSetToolTip(const std::string& text) { asQWidget()->setToolTip(toQString(text)); }

void QtWidget2::doSetToolTipU(const std::wstring& text)
{
    asQWidget()->setToolTip(toQString(text));
}

void QtWidget2::doSetCursor(const Cursor& cursor)
{
    asQWidget()->setCursor(QtCursorRegistry::toQCursor(cursor));
}

void QtWidget2::doUnsetCursor() { asQWidget()->unsetCursor(); }

void QtWidget2::doSetWidgetHighlight(bool on, int red, int green, int blue, int alpha)
{
    extras().m_highlighted = on;
    extras().m_highlightColor = QColor(red, green, blue, alpha).rgba();
    if (QAbstractScrollArea* area = scrollArea())
        area->viewport()->update();
    asQWidget()->update();
}

Color QtWidget2::doGetColor(ColorRole role)
{
    const QWidget* widget = asQWidget();
    const PaletteEntry entry = paletteEntry(role, *widget);
    return Qt2VX(widget->palette().color(entry.m_disabled ? QPalette::Disabled : QPalette::Active,
                                         entry.m_role));
}

VXFont QtWidget2::doGetFont() { return Qt2VX(asQWidget()->font()); }
std::string QtWidget2::doGetToolTip() { return toStdString(asQWidget()->toolTip()); }
std::wstring QtWidget2::doGetToolTipU() { return toStdWString(asQWidget()->toolTip()); }
Cursor QtWidget2::doGetCursor() { return QtCursorRegistry::toCursor(asQWidget()->cursor()); }
bool QtWidget2::doIsWidgetHighlighted() { return isWidgetHighlighted(); }

void QtWidget2::doSetAccessibleName(const std::wstring& name)
{
    asQWidget()->setAccessibleName(toQString(name));
    // What is met by the keyboard is the part that does the work.
    QWidget* const inner = asQWidget()->focusProxy();
    if (inner && asQWidget()->isAncestorOf(inner) && !peerOf(inner))
        inner->setAccessibleName(toQString(name));
}

void QtWidget2::doSetAccessibleDescription(const std::wstring& description)
{
    asQWidget()->setAccessibleDescription(toQString(description));
}

std::wstring QtWidget2::doGetAccessibleName()
{
    return toStdWString(asQWidget()->accessibleName());
}

std::wstring QtWidget2::doGetAccessibleDescription()
{
    return toStdWString(asQWidget()->accessibleDescription());
}

// Helpers -----------------------------------------------------------------------------------------

void QtWidget2::paintHighlight()
{
    constexpr qreal penWidth = 2;
    constexpr qreal radius = 4;
    QAbstractScrollArea* area = scrollArea();
    QWidget* surface = area ? area->viewport() : asQWidget();
    QPainter painter(surface);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor::fromRgba(m_extras->m_highlightColor), penWidth));
    painter.setBrush(Qt::NoBrush);
    const qreal inset = penWidth / 2;
    painter.drawRoundedRect(QRectF(surface->rect()).adjusted(inset, inset, -inset, -inset), radius,
                            radius);
}

} // namespace VOXI

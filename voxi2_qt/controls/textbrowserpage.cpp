// What is done with the page that a text browser shows.

#include "pageresources.h"
#include "voxi2_qt/controls/textbrowser.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QContextMenuEvent>
#include <QMimeData>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QWheelEvent>

#include <algorithm>

namespace VOXI {

namespace {

constexpr int LeastZoom = 10;
constexpr int MostZoom = 1000;
constexpr int ZoomStep = 10;

// Millimetres of paper.
constexpr double LeastSide = 50; // there are margins of 20
constexpr double MostSide = 5000;

bool isSide(double millimetres) { return millimetres >= LeastSide && millimetres <= MostSide; }

} // namespace

void TextBrowser::setZoom(int percent)
{
    m_zoom = std::clamp(percent, LeastZoom, MostZoom);
    applyZoom();
}

/// The size alone is its own: all else comes from its parent.
void TextBrowser::applyZoom()
{
    QFont sized;
    const QFont whole = parentWidget()->font();
    if (m_zoom != 100 && whole.pointSizeF() > 0)
        sized.setPointSizeF(std::max(1.0, whole.pointSizeF() * m_zoom / 100));
    else if (m_zoom != 100)
        sized.setPixelSize(std::max(1, whole.pixelSize() * m_zoom / 100));
    setFont(sized);
}

std::unique_ptr<QMimeData> TextBrowser::selectedData() const
{
    return std::unique_ptr<QMimeData>(createMimeDataFromSelection());
}

/// Into a copy that gets its pictures from here and is not zoomed.
bool TextBrowser::printToPdf(const QString& file, const QSizeF& millimetres)
{
    if (!isSide(millimetres.width()) || !isSide(millimetres.height()) || file.isEmpty())
        return false;
    const QtDeletionHold hold(&m_host.browserPeer());
    fetchNoted();
    QSaveFile out(file);
    if (!hold.isAlive() || !out.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&out);
        writer.setPageSize(QPageSize(millimetres, QPageSize::Millimeter));
        writer.setTitle(documentTitle());
        const std::unique_ptr<QTextDocument> copy(document()->clone(document()));
        copy->setDefaultFont(parentWidget()->font());
        copy->print(&writer);
    }
    return out.commit();
}

void TextBrowser::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_host.browserPeer().isHeard(&VXWidget2Emitters::contextMenu))
        event->ignore(); // it comes to the peer
    else
        QTextBrowser::contextMenuEvent(event);
}

/// Qt waits in here while the user drags a text, and goes on behind that.
void TextBrowser::mouseMoveEvent(QMouseEvent* event)
{
    const QtDeletionHold hold(&m_host.browserPeer());
    QTextBrowser::mouseMoveEvent(event);
}

void TextBrowser::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    constexpr int Notch = 120;
    m_wheel += event->angleDelta().y();
    const int former = m_zoom;
    setZoom(m_zoom + m_wheel / Notch * ZoomStep);
    m_wheel %= Notch;
    event->accept();
    if (m_zoom != former)
        Q_EMIT zoomChanged(m_zoom);
}

} // namespace VOXI

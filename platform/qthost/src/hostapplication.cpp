#include "hostapplication.h"

#include <QEvent>
#include <QPalette>

#include <cstdlib>

namespace VOXI {

namespace {

constexpr int Pale = 128;
constexpr int LeastDifference = 40; // of lightness

/// How light a colour that is not opaque looks on another one.
int lightnessOn(const QColor& background, const QColor& color)
{
    const int alpha = color.alpha();
    return (color.lightness() * alpha + background.lightness() * (255 - alpha)) / 255;
}

} // namespace

HostApplication::HostApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    keepPlaceholdersReadable();
}

bool HostApplication::event(QEvent* event)
{
    const bool done = QApplication::event(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        keepPlaceholdersReadable();
    return done;
}

void HostApplication::keepPlaceholdersReadable()
{
    const QPalette current = palette();
    const QColor base = current.color(QPalette::Base);
    const int seen = lightnessOn(base, current.color(QPalette::PlaceholderText));
    QColor color = current.color(QPalette::Text);
    color.setAlpha(Pale);
    // Where the text cannot be read either there is nothing to be had.
    if (std::abs(seen - base.lightness()) >= LeastDifference
        || std::abs(lightnessOn(base, color) - base.lightness()) < LeastDifference)
        return;
    QPalette mended = current;
    mended.setColor(QPalette::PlaceholderText, color);
    setPalette(mended);
}

} // namespace VOXI

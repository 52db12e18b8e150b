#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/kernel/vxhandle.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

namespace gallery {

using namespace VOXI;

namespace {

/// Has a frame painted anew with each second, by a thread of its own.
class Ticking
{
public:
    explicit Ticking(VXFrame2* frame)
        : m_frame(frame),
          m_thread([this](const std::stop_token& stop) { run(stop); })
    {}

private:
    void run(const std::stop_token& stop)
    {
        using namespace std::chrono;
        std::mutex mutex;
        std::condition_variable_any wake;
        std::unique_lock lock(mutex);
        while (!stop.stop_requested()) {
            const auto next = floor<seconds>(system_clock::now()) + seconds(1);
            wake.wait_until(lock, stop, next, [] { return false; });
            m_frame->update();
        }
    }

    const VXHandle<VXFrame2> m_frame;
    std::jthread m_thread; // last: it uses the others
};

/// A hand that points to a part of the way around.
void paintHand(VXCanvas2& canvas, double part, double length, double width, Color color)
{
    canvas.save();
    canvas.rotate(part * 360);
    canvas.setPen({.color = color, .width = width, .cap = PenCap::Round});
    canvas.drawLine({0, 12}, {0, -length});
    canvas.restore();
}

void paintDial(VXCanvas2& canvas)
{
    canvas.setPen(FrameColor, 3);
    canvas.setBrush(Brush::radial({0, 0}, 100, {{0, Color(255, 255, 255)}, {1, PadColor}}));
    canvas.drawCircle({0, 0}, 97);
    for (int minute = 0; minute < 60; ++minute) {
        const bool isHour = minute % 5 == 0;
        canvas.setPen(InkColor, isHour ? 2.5 : 1);
        canvas.drawLine({0, isHour ? -82.0 : -88.0}, {0, -92});
        canvas.rotate(6);
    }
    canvas.setFont(VXFont(std::string(), 11, VXFont::Bold));
    canvas.drawText({-30, -78, 60, 22}, "12", {.alignment = AlignmentFlag::Center});
    canvas.drawText({-30, 56, 60, 22}, "6", {.alignment = AlignmentFlag::Center});
}

void paintClock(VXCanvas2 canvas)
{
    const std::time_t now = std::time(nullptr);
    std::tm time{};
    localtime_r(&now, &time);
    const Size<double> size = canvas.size();
    canvas.translate(size.width / 2, size.height / 2);
    const double scale = std::min(size.width, size.height) / 200;
    canvas.scale(scale, scale);
    paintDial(canvas);
    const double minute = time.tm_min + time.tm_sec / 60.0;
    paintHand(canvas, (time.tm_hour % 12 + minute / 60) / 12, 50, 6, InkColor);
    paintHand(canvas, minute / 60, 74, 4, InkColor);
    paintHand(canvas, time.tm_sec / 60.0, 80, 1.5, BadColor);
    canvas.setNoPen();
    canvas.setBrush(BadColor);
    canvas.drawCircle({0, 0}, 5);
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    auto* clock = new VXFrame2(page.panel);
    clock->setObjectName("clock");
    clock->setAccessibleName("Clock");
    clock->setMinimumSize({240, 240});
    clock->setPainter([](VXCanvas2 canvas, const VXRect<int>&) { paintClock(canvas); });
    page.layout->addWidget(clock, 1);
    log.keep(std::make_shared<Ticking>(clock));

    const Box line = row(page);
    const Pixmap small = VXCanvas2::draw({32, 32}, 2, &paintClock);
    VXButton2* kept = button(line.panel, "&Now", "clock-now");
    kept->setIcon(Icon::fromPixmap(small));
    kept->clicked().connect(&log, [kept, &log] {
        kept->setIcon(Icon::fromPixmap(VXCanvas2::draw({32, 32}, 2, &paintClock)));
        log.add("clock: drawn into the button's icon");
    });
    line.layout->addWidget(kept);
    line.layout->addStretch();
    return page.panel;
}

} // namespace

Page clockPage()
{
    return {"clock", "Clock",
            "Painted by the program, as large as there is room, and anew when a thread of its own "
            "says so. The button's icon is drawn by the same function.",
            &create};
}

} // namespace gallery

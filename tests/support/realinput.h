#pragma once

#include "support/waitfor.h"

#include <QPoint>
#include <QProcess>

#include <gtest/gtest.h>

namespace VOXI {

/// How long the window manager and other programs may take.
constexpr auto Patience = std::chrono::seconds(20);

/// Moves the display's pointer and presses its keys: runs xdotool to its end while the event loop
/// turns.
inline void xdotool(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    ASSERT_TRUE(waitFor([&] { return process.state() == QProcess::NotRunning; }, Patience));
    EXPECT_EQ(process.exitCode(), 0) << qPrintable(arguments.join(u' '));
}

/// The same with arguments that have no spaces in them.
inline void xdotool(const QString& commands) { xdotool(commands.split(u' ')); }

/// The command that moves the pointer to a point on the screen.
inline QString at(const QPoint& point)
{
    return QStringLiteral("mousemove %1 %2").arg(point.x()).arg(point.y());
}

} // namespace VOXI

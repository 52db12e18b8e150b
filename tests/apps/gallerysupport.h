#pragma once

#include "gallerywindow.h"
#include "qthost/qthost.h"
#include "voxi2/kernel/vxwidget2.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace VOXI {

/// The gallery's window, for tests of one program that share it. A process has one host.
class GalleryTest : public testing::Test
{
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    /// Shows a page and waits until its window is active and all of it is seen.
    void show(const std::string& page);

    static gallery::GalleryWindow& gallery() { return *s_gallery; }
    static QWidget& window();
    /// What is shown of the page.
    static QWidget& page();
    /// What the mouse can use of the page: buttons, and whatever takes the focus. They may end.
    static std::vector<QPointer<QWidget>> controls();
    /// Closes the menus, dialogs and windows that were opened since.
    static void closeOthers();

private:
    static inline std::unique_ptr<QtHost> s_host;
    static inline std::unique_ptr<gallery::GalleryWindow> s_gallery;
};

/// How a widget is called in messages.
std::string nameOf(const QWidget* widget);
/// The widget, or the next one around it, that has an abstract object.
QWidget* controlOf(QWidget* widget);

/// Counts what a control reports that its user has done with it.
class Uses : public TROV::Listener
{
public:
    explicit Uses(QWidget* control);

    int count() const { return m_count; }
    /// Whether there is an event to wait for.
    bool isKnown() const { return m_isKnown; }
    bool isText() const { return m_isText; }
    bool isRange() const { return m_isRange; }
    /// One of a list, or some.
    bool isChoice() const { return m_isChoice; }
    /// Of a range: not what it has.
    double otherValue() const { return m_otherValue; }

private:
    template <class E>
    void listen(TROV::Signal<void(const E&)> signal)
    {
        m_isKnown = true;
        signal.connect(this, [this] { ++m_count; });
    }
    template <class Range>
    bool listenTo(VXWidget2* widget);

    int m_count = 0;
    bool m_isKnown = false;
    bool m_isText = false;
    bool m_isRange = false;
    bool m_isChoice = false;
    double m_otherValue = 0;
};

/// While it lives, menus and dialogs close as soon as they are open, so that what waits for them
/// goes on.
class Closing
{
public:
    Closing();

    /// Whether there was one, which is forgotten.
    bool hasClosed() { return std::exchange(m_hasClosed, false); }

private:
    QTimer m_timer;
    bool m_hasClosed = false;
};

} // namespace VOXI

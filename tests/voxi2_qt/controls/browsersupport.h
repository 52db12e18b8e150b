#pragma once

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/controls/vxtextbrowser2.h"
#include "voxi2/kernel/vxhandle.h"

#include <QAbstractButton>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

namespace VOXI {

/// A text browser that is shown, and what is inside it.
class BrowserTest : public testing::Test, public TROV::Listener
{
protected:
    BrowserTest()
    {
        m_browser->resize({400, 300});
        m_browser->show();
        turn();
    }
    ~BrowserTest() override
    {
        if (m_handle.isValid())
            delete m_browser;
        runDeletions();
    }

    QTextBrowser& view() const { return *qt(*m_browser)->findChild<QTextBrowser*>(); }

    QAbstractButton& button(const char* toolTip) const
    {
        for (auto* each : qt(*m_browser)->findChildren<QAbstractButton*>()) {
            if (each->toolTip() == QLatin1String(toolTip))
                return *each;
        }
        throw std::logic_error(toolTip);
    }

    /// Clicks the first link of the page.
    void clickLink() const
    {
        QTextDocument* const document = view().document();
        for (int at = 0; at < document->characterCount() - 1; ++at) {
            QTextCursor cursor(document);
            cursor.setPosition(at);
            cursor.movePosition(QTextCursor::NextCharacter);
            if (cursor.charFormat().isAnchor()) {
                const QPoint place = view().cursorRect(cursor).center();
                QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, place);
                return;
            }
        }
        FAIL() << "no link";
    }

    /// Whether the page shows a dot of that colour.
    bool shows(const QColor& colour) const
    {
        const QImage picture = view().viewport()->grab().toImage();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    }

    VXTextBrowser2* m_browser = new VXTextBrowser2;
    VXHandle<VXTextBrowser2> m_handle{m_browser};
};

} // namespace VOXI

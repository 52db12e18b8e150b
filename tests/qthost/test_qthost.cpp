#include "qthost/qthost.h"
#include "qthost/qtwidgets.h"
#include "support/watchdog.h"
#include "voxi/guiobject.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxfactory2.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

namespace VOXI {
namespace {

void tryEmbedding()
{
    VXWindow2 window;
    auto* const page = new VXPanel2(&window);
    auto* const row = new VXBoxLayout2(page);
    auto* const panel = new VXPanel2(page);
    const QPointer<QLineEdit> own = new QLineEdit;
    EXPECT_FALSE(embedQtWidget(nullptr, panel));
    EXPECT_FALSE(embedQtWidget(own, row));
    EXPECT_FALSE(embedQtWidget(own, page)) << "it has a layout";
    EXPECT_FALSE(embedQtWidget(qtWidgetOf(&window), panel)) << "that it lies in";
    ASSERT_TRUE(embedQtWidget(own, panel));
    row->addWidget(panel);
    window.setCentralWidget(page);
    window.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(own->size(), qtWidgetOf(panel)->size());
    EXPECT_EQ(panel->position().width,
              page->position().width - row->margins().marginLeft() - row->margins().marginRight());
    EXPECT_LE(own->minimumSizeHint().height(), panel->position().height);
    panel->setFocus();
    EXPECT_EQ(qtWidgetOf(&window)->focusWidget(), own);
    EXPECT_EQ(objectOf(qtWidgetOf(panel)), panel);
    EXPECT_EQ(objectOf(own), nullptr);
    EXPECT_EQ(qtWidgetOf(row), nullptr);
    delete panel;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(own.isNull());
}

// One test, because the toolkit comes up once in a process.
TEST(QtHostTest, bringsTheToolkitUpRunsItAndTakesItDown)
{
    const Watchdog watchdog(std::chrono::seconds(50), "host");
    EXPECT_THROW(QtHost(NarrowTextEncoding::Latin1, "libno_such_back_end.so"), std::runtime_error);
    EXPECT_THROW(QtHost(NarrowTextEncoding::Latin1, "libvoxi2.so"), std::runtime_error);
    EXPECT_EQ(VXFactory2::current(), nullptr);

    VXText2* survivor = nullptr;
    {
        // The program's own matters stay its own.
        qApp->setStyleSheet(QStringLiteral("QLabel { padding: 3px }"));
        const QString style = qApp->style()->objectName();
        const bool quits = QGuiApplication::quitOnLastWindowClosed();
        QtHost host;
        EXPECT_EQ(qApp->styleSheet(), QStringLiteral("QLabel { padding: 3px }"));
        EXPECT_EQ(qApp->style()->objectName(), style);
        EXPECT_EQ(QGuiApplication::quitOnLastWindowClosed(), quits);
        tryEmbedding();
        qApp->setStyleSheet(QString());
        ASSERT_NE(VXFactory2::current(), nullptr);
        VXWindow2 window;
        window.resize({120, 80});
        survivor = new VXText2;
        survivor->setText("alive");
        EXPECT_EQ(survivor->text(), "alive");
        survivor->setText("gr\xc3\xbcn");
        EXPECT_EQ(survivor->textU(), L"gr\u00fcn") << "UTF-8 unless one asks for another";
        EXPECT_THROW(QtHost{NarrowTextEncoding::Latin1}, std::runtime_error) << "too late";

        const QTemporaryDir folder;
        const std::string file = folder.filePath(QStringLiteral("window.png")).toStdString();
        window.show();
        EXPECT_TRUE(host.saveScreenshot(window, file));
        const QImage picture(QString::fromStdString(file));
        EXPECT_EQ(picture.size() / picture.devicePixelRatio(), QSize(120, 80));
        EXPECT_FALSE(host.saveScreenshot(window, folder.path().toStdString() + "/no/folder.png"));
        EXPECT_FALSE(host.saveScreenshot(VXBoxLayout2(), file));

        std::thread worker;
        QTimer::singleShot(0, qApp, [&] {
            worker = std::thread([&] {
                survivor->setText("from a worker");
                QtHost::quit(7);
            });
        });
        EXPECT_EQ(host.exec(), 7);
        worker.join();
        EXPECT_EQ(survivor->text(), "from a worker");
        std::thread([&] { EXPECT_EQ(survivor->text(), "") << "no loop answers"; }).join();

        // Asked to end before it runs, whatever runs first, it ends at once; but once only.
        QtHost::quit(3);
        VXDialog2 first;
        EXPECT_EQ(first.exec(), VXDialog2::Rejected);
        EXPECT_EQ(host.exec(), 3);
        QTimer::singleShot(0, qApp, [] { QtHost::quit(4); });
        EXPECT_EQ(host.exec(), 4);
        bool turned = false;
        QTimer::singleShot(0, qApp, [&] {
            turned = true;
            QCoreApplication::exit(5);
        });
        EXPECT_EQ(host.exec(), 5);
        EXPECT_TRUE(turned);
    }
    EXPECT_EQ(VXFactory2::current(), nullptr);
    EXPECT_EQ(lookup(survivor), nullptr);
    survivor->setText("nobody sees it");
    EXPECT_EQ(survivor->text(), "");
    delete survivor;
}

} // namespace
} // namespace VOXI

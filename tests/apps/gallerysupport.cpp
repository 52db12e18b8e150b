#include "gallerysupport.h"

#include "support/waitfor.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/controls/vxabstractbutton2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxdial2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vxhyperlink2.h"
#include "voxi2/controls/vxlistbox2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/modelview/vxabstractview2.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QPointer>
#include <QScrollArea>
#include <QStackedWidget>

namespace VOXI {

void GalleryTest::SetUpTestSuite()
{
    s_host = std::make_unique<QtHost>();
    s_gallery = std::make_unique<gallery::GalleryWindow>();
}

void GalleryTest::TearDownTestSuite()
{
    s_gallery.reset();
    s_host.reset();
}

void GalleryTest::show(const std::string& page)
{
    ASSERT_TRUE(gallery().select(page));
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window(), 20'000));
    gallery().settle(page);
}

QWidget& GalleryTest::window() { return *qWidgetOf(lookup(gallery().window())); }

QWidget& GalleryTest::page()
{
    for (QStackedWidget* const stack : window().findChildren<QStackedWidget*>()) {
        if (auto* const view = qobject_cast<QScrollArea*>(stack->currentWidget()))
            return *view->widget();
    }
    throw std::logic_error("no page is shown");
}

std::vector<QPointer<QWidget>> GalleryTest::controls()
{
    std::vector<QPointer<QWidget>> all;
    for (QWidget* const each : page().findChildren<QWidget*>()) {
        const bool takesFocus = (each->focusPolicy() & Qt::TabFocus) && !each->focusProxy();
        const bool isButton = qobject_cast<QAbstractButton*>(each);
        if ((takesFocus || isButton) && each->isVisible() && each->isEnabled() && peerOf(each))
            all.emplace_back(each);
    }
    return all;
}

void GalleryTest::closeOthers()
{
    for (QWidget* const each : QApplication::topLevelWidgets()) {
        if (each != &window() && each->isVisible())
            each->close();
    }
}

std::string nameOf(const QWidget* widget)
{
    if (!widget)
        return "nothing";
    std::string name = widget->metaObject()->className();
    const QString text = widget->property("text").toString();
    for (const QString& each : {widget->objectName(), widget->accessibleName(), text.left(30)}) {
        if (!each.isEmpty())
            name += " \"" + each.toStdString() + '"';
    }
    return name;
}

QWidget* controlOf(QWidget* widget)
{
    while (widget && !peerOf(widget))
        widget = widget->parentWidget();
    return widget;
}

/// Whether there is more than one to choose from.
bool hasChoice(const QWidget& control)
{
    if (const auto* const box = qobject_cast<const QComboBox*>(&control))
        return box->count() > 1;
    const auto* const view = qobject_cast<const QAbstractItemView*>(&control);
    return view && view->selectionMode() != QAbstractItemView::NoSelection
           && view->model()->rowCount(view->rootIndex()) > 1;
}

Uses::Uses(QWidget* control)
{
    auto* const widget = abstractObjectOf<VXWidget2>(control);
    if (auto* const button = dynamic_cast<VXAbstractButton2*>(widget)) {
        listen(button->clicked());
    } else if (auto* const link = dynamic_cast<VXHyperLink2*>(widget)) {
        listen(link->clicked());
    } else if (auto* const edit = dynamic_cast<VXEdit2*>(widget)) {
        m_isText = true;
        listen(edit->textEdited());
    } else if (auto* const area = dynamic_cast<VXEditArea2*>(widget)) {
        m_isText = true;
        listen(area->textEdited());
    } else if (auto* const group = dynamic_cast<VXGroupBox2*>(widget)) {
        listen(group->toggled());
    } else if (hasChoice(*control)) {
        m_isChoice = true;
        if (auto* const box = dynamic_cast<VXComboBox2*>(widget))
            listen(box->currentChanged());
        else if (auto* const list = dynamic_cast<VXListBox2*>(widget))
            listen(list->selectionChanged());
        else if (auto* const view = dynamic_cast<VXAbstractView2*>(widget))
            listen(view->selectionChanged());
    } else {
        m_isRange = listenTo<VXSlider2>(widget) || listenTo<VXDial2>(widget)
                    || listenTo<VXSpinBox2>(widget);
    }
}

template <class Range>
bool Uses::listenTo(VXWidget2* widget)
{
    auto* const range = dynamic_cast<Range*>(widget);
    if (!range)
        return false;
    m_otherValue = range->value() == 30 ? 31 : 30;
    listen(range->valueChanged());
    return true;
}

Closing::Closing()
{
    m_timer.callOnTimeout([this] {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const modal = QApplication::activeModalWidget();
        m_hasClosed = m_hasClosed || popup || modal;
        if (popup)
            popup->close();
        else if (auto* const dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
    });
    m_timer.start(5);
}

} // namespace VOXI

#include "qtfloattitle.h"

#include <QDockWidget>
#include <QEvent>
#include <QStyleOptionDockWidget>
#include <QStylePainter>
#include <QToolButton>

#include <algorithm>

namespace VOXI {

QtFloatTitle::QtFloatTitle(QDockWidget* dock)
    : QWidget(dock),
      m_dock(dock),
      // Qt has names for the buttons of its own title, in all its languages.
      m_dockButton(makeButton(QDockWidget::tr("Float"))),
      m_closeButton(makeButton(QDockWidget::tr("Close")))
{
    m_dockButton->setAccessibleDescription(
        QDockWidget::tr("Undocks and re-attaches the dock widget"));
    adoptLooks();
    connect(m_dockButton, &QAbstractButton::clicked, dock, [dock] { dock->setFloating(false); });
    connect(m_closeButton, &QAbstractButton::clicked, dock, &QWidget::close);
    connect(dock, &QWidget::windowTitleChanged, this, qOverload<>(&QWidget::update));
    connect(dock, &QDockWidget::featuresChanged, this, &QtFloatTitle::placeButtons);
}

void QtFloatTitle::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        adoptLooks();
    if (event->type() == QEvent::LayoutDirectionChange)
        placeButtons();
}

void QtFloatTitle::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionDockWidget option;
    option.initFrom(this);
    option.rect = QStyle::visualRect(layoutDirection(), rect(), QRect(0, 0, m_textWidth, height()));
    option.title = m_dock->windowTitle();
    option.closable = m_closeButton->isVisible();
    option.floatable = m_dockButton->isVisible();
    painter.drawControl(QStyle::CE_DockWidgetTitle, option);
}

void QtFloatTitle::resizeEvent(QResizeEvent*) { placeButtons(); }

QAbstractButton* QtFloatTitle::makeButton(const QString& name)
{
    auto* const button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(name);
    return button;
}

void QtFloatTitle::adoptLooks()
{
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const int margin = style()->pixelMetric(QStyle::PM_DockWidgetTitleMargin, nullptr, this);
    m_height = std::max(side + 4, fontMetrics().height()) + 2 * margin;
    m_dockButton->setIcon(style()->standardIcon(QStyle::SP_TitleBarNormalButton, nullptr, m_dock));
    m_closeButton->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton, nullptr, m_dock));
    updateGeometry();
    placeButtons();
}

void QtFloatTitle::placeButtons()
{
    const int side = m_height - 2;
    m_closeButton->setVisible(m_dock->features().testFlag(QDockWidget::DockWidgetClosable));
    m_dockButton->setVisible(m_dock->features().testFlag(QDockWidget::DockWidgetFloatable));
    m_textWidth = width();
    for (QAbstractButton* button : {m_closeButton, m_dockButton}) {
        if (button->isHidden())
            continue;
        m_textWidth -= side + 1;
        button->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), QRect(m_textWidth, 1, side, side)));
    }
    update();
}

} // namespace VOXI

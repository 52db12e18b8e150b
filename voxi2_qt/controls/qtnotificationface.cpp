#include "qtnotificationface.h"

#include "voxi2/kernel/translation.h"
#include "voxi2_qt/controls/qtelidinglabel.h"
#include "voxi2_qt/kernel/qtconvert.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QTextDocumentFragment>
#include <QToolButton>

namespace VOXI {

namespace {

struct Looks
{
    QStyle::StandardPixmap m_icon;
    QRgb m_color;
    LibraryText m_name;
};

/// What is none looks like the first.
const Looks& looksOf(NotificationKind kind)
{
    static constexpr Looks all[] = {
        {QStyle::SP_MessageBoxInformation, qRgb(46, 110, 190), "Information"},
        {QStyle::SP_DialogApplyButton, qRgb(36, 150, 72), "Success"},
        {QStyle::SP_MessageBoxWarning, qRgb(214, 130, 20), "Warning"},
        {QStyle::SP_MessageBoxCritical, qRgb(196, 44, 44), "Error"},
    };
    const auto index = static_cast<std::size_t>(kind);
    return all[index < std::size(all) ? index : 0];
}

/// So much of the way from one colour to another.
QColor between(const QColor& from, const QColor& to, double share)
{
    const auto mix = [share](int a, int b) { return a + static_cast<int>((b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

/// Wrapped, but never as wide as its longest word asks for: that may be a path.
class WrappedLabel : public QtElidingLabel
{
public:
    explicit WrappedLabel(QWidget* parent) : QtElidingLabel(parent) { setWordWrap(true); }

    QSize minimumSizeHint() const override
    {
        const QSize size = QtElidingLabel::minimumSizeHint();
        return {std::min(size.width(), fontMetrics().averageCharWidth() * 12), size.height()};
    }
};

constexpr qsizetype LongestText = 2000;
constexpr int EdgeWidth = 4;

} // namespace

QtNotificationFace::QtNotificationFace(QWidget* parent)
    : QWidget(parent),
      m_row(new QHBoxLayout(this)),
      m_iconLabel(new QLabel(this)),
      m_label(new WrappedLabel(this)),
      m_close(new QToolButton(this))
{
    m_row->addWidget(m_iconLabel);
    m_row->addWidget(m_label, 1);
    m_row->addWidget(m_close, 0, Qt::AlignTop);
    m_close->setAutoRaise(true);
    m_close->setAccessibleName(toQString(translated("Close")));
    connect(m_close, &QToolButton::clicked, this, &QtNotificationFace::closeClicked);
    connect(m_label, &QLabel::linkActivated, this, &QtNotificationFace::linkActivated);
    present(Notification{.isClosable = false});
}

void QtNotificationFace::present(const Notification& notification)
{
    m_kind = notification.kind;
    m_icon = notification.icon;
    showIcon();
    showText(toQString(notification.text), notification.isRichText);
    makeButtons(notification.buttons);
    m_close->setDown(false);
    m_close->setVisible(notification.isClosable);
    update();
}

QString QtNotificationFace::text() const
{
    return m_label->textFormat() == Qt::RichText
               ? QTextDocumentFragment::fromHtml(m_label->text()).toPlainText()
               : m_label->text();
}

QSize QtNotificationFace::sizeHint() const
{
    QSize size = QWidget::sizeHint();
    const int line = m_label->textFormat() == Qt::PlainText
                         ? m_label->fontMetrics().size(0, m_label->text()).width()
                         : 0;
    const int more = line - m_label->sizeHint().width();
    return {size.width() + std::clamp(more, 0, 600), size.height()};
}

void QtNotificationFace::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        showIcon();
}

void QtNotificationFace::paintEvent(QPaintEvent*)
{
    const QColor color = QColor::fromRgb(looksOf(m_kind).m_color);
    const QColor ground = palette().color(backgroundRole());
    QPainter painter(this);
    painter.fillRect(rect(), between(ground, color, 0.5));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), between(ground, color, 0.14));
    const int edge = layoutDirection() == Qt::RightToLeft ? width() - EdgeWidth : 0;
    painter.fillRect(edge, 0, EdgeWidth, height(), color);
}

void QtNotificationFace::showIcon()
{
    const Looks& looks = looksOf(m_kind);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const QIcon icon =
        m_icon.isNull() ? style()->standardIcon(looks.m_icon, nullptr, this) : VX2Qt(m_icon);
    m_iconLabel->setPixmap(icon.pixmap(QSize(side, side), devicePixelRatioF()));
    m_iconLabel->setAccessibleName(toQString(translated(looks.m_name)));
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton, nullptr, this));
}

void QtNotificationFace::showText(const QString& text, bool isRich)
{
    m_label->setTextFormat(isRich ? Qt::RichText : Qt::PlainText);
    // Breaking a very long text into lines takes longer than anybody would wait.
    m_label->setText(isRich || text.size() <= LongestText ? text
                                                          : text.left(LongestText) + QChar(0x2026));
    m_label->chooseInteraction(false);
}

/// New ones each time: a press that has begun must not become a click on what comes in its place.
void QtNotificationFace::makeButtons(const std::vector<NotificationButton>& buttons)
{
    for (QPushButton* button : m_buttons) {
        button->disconnect(this);
        button->hide();
        button->deleteLater();
    }
    m_buttons.clear();
    for (const NotificationButton& each : buttons) {
        auto* const button = new QPushButton(toQString(each.text), this);
        button->setAutoDefault(false);
        const int index = static_cast<int>(m_buttons.size());
        connect(button, &QPushButton::clicked, this,
                [this, index] { Q_EMIT buttonClicked(index); });
        m_row->insertWidget(m_row->count() - 1, button);
        m_buttons.push_back(button);
        QWidget::setTabOrder(index == 0 ? static_cast<QWidget*>(m_close) : m_buttons[index - 1],
                             button);
        button->show();
    }
    if (!m_buttons.isEmpty())
        QWidget::setTabOrder(m_buttons.back(), m_close);
}

} // namespace VOXI

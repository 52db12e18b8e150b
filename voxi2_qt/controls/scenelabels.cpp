#include "scenelabels.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace VOXI {

namespace {

constexpr int Side = SceneBillboard::MaxSide;
constexpr int TextFlags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextExpandTabs;
/// More would not fit, whatever the font, and takes its time to be measured.
constexpr std::size_t MostCharacters = 4096;
/// Between a background's edge and what is on it.
constexpr int Padding = 4;

QImage pictureOf(const SceneBillboard& billboard)
{
    const QImage image = toQImage(billboard.image);
    return image.width() > Side || image.height() > Side
               ? image.scaled(Side, Side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
               : image;
}

QImage draw(const SceneBillboard& billboard, double ratio)
{
    const QImage picture = pictureOf(billboard);
    const QString text = toQString(billboard.text.substr(0, MostCharacters));
    const QFont font = VX2Qt(billboard.font);
    const int textWidth = billboard.text.empty() ? 0 : Side;
    const QSize textSize =
        QFontMetrics(font).boundingRect(QRect(0, 0, textWidth, Side), TextFlags, text).size();
    const QSize content(std::max(picture.width(), text.isEmpty() ? 0 : textSize.width()),
                        picture.height() + (text.isEmpty() ? 0 : textSize.height()));
    const int padding = billboard.background.alpha() > 0 ? Padding : 0;
    const QSize size = (content + QSize(2 * padding, 2 * padding)).boundedTo({Side, Side});
    if (content.isEmpty())
        return {};

    QImage image(size * ratio, QImage::Format_RGBA8888_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(VX2Qt(billboard.background));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage((size.width() - picture.width()) / 2, padding, picture);
    painter.setFont(font);
    painter.setPen(VX2Qt(billboard.color));
    painter.drawText(QRect(QPoint(0, padding + picture.height()), size), TextFlags, text);
    return image;
}

} // namespace

const QImage& SceneLabels::imageOf(const Billboard& billboard, double ratio)
{
    Label& label = m_labels[billboard.get()];
    const bool isNew = !label.m_billboard;
    if (isNew || (!label.m_image.isNull() && label.m_image.devicePixelRatio() != ratio))
        label = {billboard, draw(*billboard, ratio)};
    return label.m_image;
}

void SceneLabels::sweep()
{
    std::erase_if(m_labels,
                  [](const auto& entry) { return entry.second.m_billboard.use_count() == 1; });
}

} // namespace VOXI

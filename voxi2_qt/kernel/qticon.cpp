#include "voxi2_qt/kernel/qticon.h"

#include "enumtable.h"
#include "voxi2_qt/kernel/qtgeometry.h"
#include "voxi2_qt/kernel/qtimage.h"
#include "voxi_util/imagecompositor.h"

#include <QCoreApplication>
#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace VOXI {

namespace {
constexpr auto Modes = enumTable<Icon::IconMode, QIcon::Mode>({
    {Icon::IconMode::Normal, QIcon::Normal},
    {Icon::IconMode::Disabled, QIcon::Disabled},
    {Icon::IconMode::Active, QIcon::Active},
    {Icon::IconMode::Selected, QIcon::Selected},
});

constexpr auto States = enumTable<Icon::IconState, QIcon::State>({
    {Icon::IconState::Off, QIcon::Off},
    {Icon::IconState::On, QIcon::On},
});

/// What an icon has been composed to, the last used first.
class IconPictures
{
public:
    explicit IconPictures(const Icon& icon) : m_icon(icon) {}

    const Icon& icon() const { return m_icon; }

    QPixmap picture(const QSize& pixels, QIcon::Mode mode, QIcon::State state)
    {
        const auto found =
            std::find_if(m_pictures.begin(), m_pictures.end(), [&](const Picture& picture) {
                return picture.m_pixels == pixels && picture.m_mode == mode
                       && picture.m_state == state;
            });
        if (found != m_pictures.end()) {
            std::rotate(m_pictures.begin(), found, found + 1);
        } else {
            if (m_pictures.size() == MaxPictures)
                m_pictures.pop_back();
            const Pixmap composed = ImageCompositor::compose(m_icon, Qt2VX(pixels),
                                                             Modes.toVx(mode), States.toVx(state));
            m_pictures.insert(m_pictures.begin(), {pixels, mode, state, toQPixmap(composed)});
        }
        return m_pictures.front().m_pixmap;
    }

private:
    /// Enough for a button: two states of four modes.
    static constexpr std::size_t MaxPictures = 8;

    struct Picture
    {
        QSize m_pixels;
        QIcon::Mode m_mode;
        QIcon::State m_state;
        QPixmap m_pixmap;
    };

    Icon m_icon;
    std::vector<Picture> m_pictures;
};

using SharedPictures = std::shared_ptr<IconPictures>;

/// The icons converted last, so that views, which convert for every cell they paint, compose once.
class RecentIcons
{
public:
    static SharedPictures picturesOf(const Icon& icon)
    {
        std::vector<SharedPictures>& recent = list();
        const auto found =
            std::find_if(recent.begin(), recent.end(), [&icon](const SharedPictures& pictures) {
                return pictures->icon().identity() == icon.identity();
            });
        if (found != recent.end()) {
            std::rotate(recent.begin(), found, found + 1);
            return recent.front();
        }
        if (recent.empty())
            qAddPostRoutine([] { list().clear(); }); // pixmaps must not outlive the application
        if (recent.size() == MaxIcons)
            recent.pop_back();
        return *recent.insert(recent.begin(), std::make_shared<IconPictures>(icon));
    }

private:
    static constexpr std::size_t MaxIcons = 64;

    static std::vector<SharedPictures>& list()
    {
        static std::vector<SharedPictures> recent;
        return recent;
    }
};

class ComposedIconEngine : public QIconEngine
{
public:
    explicit ComposedIconEngine(SharedPictures pictures) : m_pictures(std::move(pictures)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        const QPixmap picture = scaledPixmap(rect.size() * ratio, mode, state, ratio);
        if (!picture.isNull())
            painter->drawPixmap(rect, picture);
    }

    /// `size` is in device pixels, from whichever of QIcon's functions it comes.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_pictures->picture(size, mode, state);
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        QList<QSize> sizes;
        for (const Size<int>& size :
             m_pictures->icon().availableSizes(Modes.toVx(mode), States.toVx(state)))
            sizes.append(VX2Qt(size));
        return sizes;
    }

    bool isNull() override { return m_pictures->icon().isNull(); }
    QString key() const override { return QStringLiteral("VOXI::ComposedIconEngine"); }
    QIconEngine* clone() const override { return new ComposedIconEngine(*this); }

private:
    SharedPictures m_pictures;
};
} // namespace

QIcon VX2Qt(const Icon& icon)
{
    return icon.isNull() ? QIcon() : QIcon(new ComposedIconEngine(RecentIcons::picturesOf(icon)));
}

QSize toQIconSize(const Size<int>& size) noexcept
{
    return VX2Qt(size).boundedTo({Icon::MaxShownSide, Icon::MaxShownSide});
}

QIcon::Mode VX2Qt(Icon::IconMode mode) noexcept { return Modes.toQt(mode); }
QIcon::State VX2Qt(Icon::IconState state) noexcept { return States.toQt(state); }

} // namespace VOXI

#include "qtsavedstate.h"

#include <QDataStream>
#include <QIODevice>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace VOXI {

namespace {

/// What Qt itself takes as the longest side of a widget.
constexpr int MaxLength = QWIDGETSIZE_MAX;
/// The largest window that is believed in: a quarter of a gigabyte of picture.
constexpr qint64 MaxPixels = 1 << 26;
/// How deep panes may be split within each other. Qt goes down by recursion.
constexpr int MaxDepth = 200;

// The bytes by which Qt tells the parts of a saved layout.
constexpr int LayoutMarker = 0xff;
constexpr quint8 DocksMarker = 0xfd;
constexpr quint8 ToolBarsMarker = 0xfc;
constexpr quint8 TabsMarker = 0xfa;
constexpr quint8 PaneMarker = 0xfb;
constexpr quint8 SplitMarker = 0xfc;
constexpr int SideCount = 4;

constexpr quint32 GeometryMarker = 0x1D9D0CB;

/// Reads a stream of Qt's and says what is wrong with it; then it is not read on.
class Reader
{
public:
    explicit Reader(const QByteArray& bytes) : m_stream(bytes) {}

    void setVersion(QDataStream::Version version) { m_stream.setVersion(version); }
    bool isSound() const { return m_isSound && m_stream.status() == QDataStream::Ok; }
    bool isWhole() const { return isSound() && m_stream.atEnd(); }

    template <class T>
    T read()
    {
        T value{};
        if (isSound())
            m_stream >> value;
        return value;
    }

    /// A number from `least` to `most`; `least` when there is none.
    template <class T = qint32>
    T readWithin(T least, T most)
    {
        const T value = read<T>();
        require(value >= least && value <= most);
        return isSound() ? value : least;
    }

    template <class T>
    void expect(T value)
    {
        require(read<T>() == value);
    }

    void readLength(int least = 0) { readWithin<qint32>(least, MaxLength); }
    void readPosition() { readWithin<qint32>(-MaxLength, MaxLength); }

    void readSize()
    {
        readLength(-MaxLength); // where there was no room, Qt has computed less than none
        readLength(-MaxLength);
    }

    void readRect()
    {
        std::array<qint64, 4> edges{};
        for (qint64& edge : edges)
            edge = readWithin<qint32>(-MaxLength, MaxLength);
        requireWindow(edges[2] - edges[0] + 1, edges[3] - edges[1] + 1);
    }

    /// A window, unlike what a layout limits, gets the size that is asked for, and memory for it.
    void requireWindow(qint64 width, qint64 height)
    {
        require(width >= 0 && height >= 0 && width * height <= MaxPixels);
    }

    void require(bool condition) { m_isSound = m_isSound && condition; }

private:
    QDataStream m_stream;
    bool m_isSound = true;
};

/// Goes through what a main window saved, in the order in which Qt wrote it.
class LayoutReader
{
public:
    explicit LayoutReader(const QByteArray& state) : m_reader(state)
    {
        m_reader.setVersion(QDataStream::Qt_5_0);
        m_reader.expect<qint32>(LayoutMarker);
        m_reader.read<qint32>(); // the version, which Qt looks at
        m_reader.expect(DocksMarker);
        readDocks();
        m_reader.expect(ToolBarsMarker);
        readToolBars();
    }

    std::optional<QSet<QString>> names() const
    {
        return m_reader.isWhole() ? std::optional(m_names) : std::nullopt;
    }

private:
    void readDocks()
    {
        int former = -1;
        for (int sides = m_reader.readWithin(0, SideCount); sides > 0; --sides) {
            former = m_reader.readWithin(former + 1, SideCount - 1);
            m_reader.readSize();
            readPanes(0);
        }
        m_reader.readSize(); // of the centre
        using Areas = std::pair<int, int>;
        for (const auto& [beside, above] : {Areas{Qt::LeftDockWidgetArea, Qt::TopDockWidgetArea},
                                            {Qt::RightDockWidgetArea, Qt::TopDockWidgetArea},
                                            {Qt::LeftDockWidgetArea, Qt::BottomDockWidgetArea},
                                            {Qt::RightDockWidgetArea, Qt::BottomDockWidgetArea}}) {
            const int owner = m_reader.read<qint32>();
            m_reader.require(owner == beside || owner == above);
        }
    }

    /// Panes beside each other, each of which may be split again, or in tabs.
    void readPanes(int depth)
    {
        const auto marker = m_reader.read<quint8>();
        const bool hasTabs = marker == TabsMarker;
        m_reader.require((hasTabs || marker == SplitMarker) && depth < MaxDepth);
        const int inFront = hasTabs ? m_reader.read<qint32>() : -1;
        m_reader.readWithin<quint8>(Qt::Horizontal, Qt::Vertical);
        const int count = m_reader.read<qint32>();
        m_reader.require(count >= 0 && inFront >= -1 && inFront < std::max(count, 1));
        for (int i = 0; i < count && m_reader.isSound(); ++i) {
            if (const auto kind = m_reader.read<quint8>(); kind == PaneMarker) {
                readPane();
            } else {
                m_reader.require(kind == SplitMarker && !hasTabs);
                readPlace();
                if (m_reader.isSound())
                    readPanes(depth + 1);
            }
        }
    }

    void readPane()
    {
        enum Flag { Visible = 1, Floating = 2 };
        m_names.insert(m_reader.read<QString>());
        if (m_reader.readWithin<quint8>(0, Visible | Floating) & Floating) {
            m_reader.readPosition();
            m_reader.readPosition();
            const int width = m_reader.readWithin(0, MaxLength);
            m_reader.requireWindow(width, m_reader.readWithin(0, MaxLength));
        } else {
            readPlace();
        }
    }

    void readPlace()
    {
        m_reader.readPosition();
        m_reader.readLength(-1);
        m_reader.read<qint32>(); // limits of the size, which Qt skips
        m_reader.read<qint32>();
    }

    void readToolBars()
    {
        for (int lines = m_reader.read<qint32>(); lines > 0 && m_reader.isSound(); --lines) {
            m_reader.readWithin(0, SideCount - 1);
            for (int bars = m_reader.read<qint32>(); bars > 0 && m_reader.isSound(); --bars) {
                m_names.insert(m_reader.read<QString>());
                m_reader.readWithin<quint8>(0, 3); // shown, vertical
                m_reader.readPosition();
                m_reader.readLength(-1);
                // Where it floats, packed: a bit that says so, fifteen for the width and sixteen
                // for each other number.
                const auto width = m_reader.read<quint32>() >> 17;
                m_reader.requireWindow(width, m_reader.read<quint32>() >> 16);
            }
        }
    }

    Reader m_reader;
    QSet<QString> m_names;
};

} // namespace

std::optional<QSet<QString>> namesInSavedLayout(const QByteArray& state)
{
    return LayoutReader(state).names();
}

bool isSavedGeometry(const QByteArray& geometry)
{
    Reader reader(geometry);
    reader.setVersion(QDataStream::Qt_4_0);
    reader.expect(GeometryMarker);
    const auto version = reader.readWithin<quint16>(1, 3);
    reader.read<quint16>();           // the minor one, which Qt does not look at
    reader.readRect();                // with the frame
    reader.readRect();                // when neither maximised nor full screen
    reader.readWithin(-1, MaxLength); // the number of the screen
    reader.read<quint8>();            // whether it was maximised
    reader.read<quint8>();            // whether it filled the screen
    if (version > 1)
        reader.readWithin(0, MaxLength); // the screen's width
    if (version > 2)
        reader.readRect();
    return reader.isWhole();
}

} // namespace VOXI

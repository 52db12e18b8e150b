#include "svgguard.h"

#include <QBuffer>
#include <QHash>
#include <QImageReader>
#include <QString>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>
#include <zlib.h>

namespace VOXI {

namespace {

// What a drawing may be. Those that people make are far below.
constexpr qsizetype MostBytes = qsizetype(16) << 20;
constexpr int MostElements = 50'000;             // as drawn: what is used again counts again
constexpr int MostNesting = 200;                 // the same; Qt calls itself as deeply
constexpr qint64 MostGeometry = qint64(4) << 20; // characters, as drawn
constexpr qint64 MostText = qint64(1) << 20;
constexpr qint64 MostStyling = 200'000'000; // characters of style sheets times elements
constexpr qint64 MostPixels = qint64(16) << 20;
constexpr qsizetype MostEntityUses = 1000; // of entities of its own, 4096 characters each

QByteArray unpacked(const QByteArray& bytes)
{
    z_stream stream{};
    if (inflateInit2(&stream, MAX_WBITS + 16) != Z_OK)
        return {};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.constData()));
    stream.avail_in =
        static_cast<uInt>(std::min<qsizetype>(bytes.size(), std::numeric_limits<uInt>::max()));
    QByteArray whole;
    std::array<char, 65536> part;
    int status = Z_OK;
    while (status == Z_OK && whole.size() <= MostBytes) {
        stream.next_out = reinterpret_cast<Bytef*>(part.data());
        stream.avail_out = static_cast<uInt>(part.size());
        status = inflate(&stream, Z_NO_FLUSH);
        whole.append(part.data(), static_cast<qsizetype>(part.size() - stream.avail_out));
    }
    inflateEnd(&stream);
    return status == Z_STREAM_END ? whole : QByteArray();
}

/// Without the name space's prefix.
QStringView localName(QStringView name) { return name.mid(name.lastIndexOf(u':') + 1); }

/// Reads a drawing from the beginning to the end of its outermost element, as Qt does.
class SvgExamination
{
public:
    explicit SvgExamination(const QByteArray& text) : m_text(text), m_xml(text)
    {
        m_xml.setNamespaceProcessing(false);
    }

    bool isHarmless()
    {
        while (!m_xml.atEnd()) {
            if (!isHarmlessToken(m_xml.readNext()))
                return false;
            if (m_isOver)
                return workOf(0, 0) && m_styling * std::ssize(m_elements) <= MostStyling;
        }
        return false;
    }

private:
    struct Element
    {
        std::vector<int> m_inside; // and what it refers to
        qint64 m_geometry = 0;     // from here on with all that is inside
        int m_count = 1;
        int m_height = 1;
        bool m_isEntered = false;
        bool m_isLeft = false;
    };

    bool isHarmlessToken(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::Invalid:
            return false;
        case QXmlStreamReader::DTD:
            return m_xml.entityDeclarations().isEmpty() || m_text.count('&') <= MostEntityUses;
        case QXmlStreamReader::ProcessingInstruction:
            return m_xml.processingInstructionTarget() != u"xml-stylesheet";
        case QXmlStreamReader::StartElement:
            return isHarmlessElement();
        case QXmlStreamReader::EndElement:
            leaveElement();
            return true;
        case QXmlStreamReader::Characters:
            return isHarmlessText();
        default:
            return true;
        }
    }

    bool isHarmlessElement()
    {
        const QStringView name = localName(m_xml.name());
        if (m_open.empty() && name != u"svg")
            return false;
        if (m_elements.size() == MostElements || m_open.size() == MostNesting)
            return false;
        const int self = static_cast<int>(m_elements.size());
        m_elements.emplace_back();
        if (!m_open.empty())
            m_elements[static_cast<std::size_t>(m_open.back())].m_inside.push_back(self);
        m_open.push_back(self);
        if (m_textBegins == 0 && (name == u"style" || name.startsWith(u"text"))) {
            m_textBegins = m_open.size();
            m_isStyle = name == u"style";
        }
        const auto attributes = m_xml.attributes();
        return std::all_of(attributes.begin(), attributes.end(), [&](const auto& attribute) {
            return isHarmlessAttribute(name, localName(attribute.qualifiedName()),
                                       attribute.value());
        });
    }

    bool isHarmlessAttribute(QStringView element, QStringView name, QStringView value)
    {
        if (name == u"id")
            m_named.insert(value.toString(), m_open.back());
        else if (name == u"d" || name == u"points")
            m_elements.back().m_geometry += value.size();
        else if (name == u"href")
            return isHarmlessReference(element, value);
        return true;
    }

    /// To what lies in the drawing itself. A link, a script and a profile of colours are not
    /// followed by Qt.
    bool isHarmlessReference(QStringView element, QStringView target)
    {
        if (element == u"a" || element == u"script" || element == u"color-profile")
            return true;
        if (element == u"image")
            return target.isEmpty() || isHarmlessPicture(target);
        if (!target.isEmpty() && !target.startsWith(u'#'))
            return false;
        m_references.emplace_back(m_open.back(), target.mid(1).toString());
        return true;
    }

    /// Pixels in the drawing; of more than that Qt would look for a file of this name, or decode a
    /// drawing that nobody has looked at.
    bool isHarmlessPicture(QStringView url)
    {
        const qsizetype start = url.lastIndexOf(u"base64,");
        if (!url.startsWith(u"data:image/") || start < 0)
            return false;
        const auto decoded = QByteArray::fromBase64Encoding(
            url.mid(start + 7).toLatin1().simplified().replace(' ', QByteArray()),
            QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded || looksLikeSvg(*decoded))
            return false;
        QByteArray bytes = *decoded;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const QSize size = QImageReader(&buffer).size();
        m_pixels += qint64(size.width()) * size.height();
        return size.isValid() && size.width() < MostPixels && size.height() < MostPixels
               && m_pixels <= MostPixels;
    }

    bool isHarmlessText()
    {
        if (m_textBegins > 0)
            (m_isStyle ? m_styling : m_characters) += m_xml.text().size();
        return m_characters <= MostText && m_styling <= MostText;
    }

    void leaveElement()
    {
        if (m_open.size() == m_textBegins)
            m_textBegins = 0;
        m_open.pop_back();
        m_isOver = m_open.empty();
        if (!m_isOver)
            return;
        for (const auto& [element, name] : std::as_const(m_references)) {
            for (const int target : m_named.values(name))
                m_elements[static_cast<std::size_t>(element)].m_inside.push_back(target);
        }
    }

    /// Works out what an element costs with all that is drawn with it; false if that is too much,
    /// or has no end.
    bool workOf(int index, int depth)
    {
        Element& element = m_elements[static_cast<std::size_t>(index)];
        if (element.m_isLeft)
            return true;
        if (element.m_isEntered || depth == MostNesting)
            return false;
        element.m_isEntered = true;
        for (const int inside : element.m_inside) {
            if (!workOf(inside, depth + 1))
                return false;
            const Element& other = m_elements[static_cast<std::size_t>(inside)];
            element.m_geometry += other.m_geometry;
            element.m_count += other.m_count;
            element.m_height = std::max(element.m_height, other.m_height + 1);
            if (element.m_geometry > MostGeometry || element.m_count > MostElements
                || element.m_height > MostNesting)
                return false;
        }
        element.m_isLeft = true;
        return element.m_geometry <= MostGeometry;
    }

    const QByteArray& m_text;
    QXmlStreamReader m_xml;
    std::vector<Element> m_elements;
    std::vector<int> m_open;
    QMultiHash<QString, int> m_named;
    std::vector<std::pair<int, QString>> m_references;
    qint64 m_characters = 0;
    qint64 m_styling = 0;
    qint64 m_pixels = 0;
    std::size_t m_textBegins = 0; // at which nesting; 0 outside of texts and style sheets
    bool m_isStyle = false;
    bool m_isOver = false;
};

bool isCompressed(const QByteArray& bytes) { return bytes.startsWith("\x1f\x8b"); }

} // namespace

QByteArray harmlessSvg(const QByteArray& bytes)
{
    const QByteArray text = isCompressed(bytes) ? unpacked(bytes) : bytes;
    if (text.size() > MostBytes)
        return {};
    return SvgExamination(text).isHarmless() ? text : QByteArray();
}

bool looksLikeSvg(const QByteArray& bytes)
{
    const QByteArray start = bytes.first(std::min<qsizetype>(bytes.size(), 256));
    return isCompressed(start) || start.startsWith("\xef\xbb\xbf<")
           || start.trimmed().startsWith('<');
}

} // namespace VOXI

#include "pageresources.h"

#include "browserurls.h"
#include "voxi2_qt/controls/textbrowser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QPainter>
#include <QStringDecoder>

#include <utility>

namespace VOXI {

namespace {

using Reply = TextResourceQuery2::Reply;

bool isPicture(int type) { return type == QTextDocument::ImageResource; }

QByteArray view(const ByteArray& bytes)
{
    return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// What stands for pictures that there are not: where a page has none, Qt opens the file of that
// name.

QPixmap pictureToCome()
{
    QPixmap empty(1, 1);
    empty.fill(Qt::transparent);
    return empty;
}

QPixmap missingPicture()
{
    QPixmap frame(16, 16);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(QColor(150, 150, 150));
    painter.drawRect(0, 0, 15, 15);
    painter.drawLine(4, 4, 11, 11);
    painter.drawLine(4, 11, 11, 4);
    return frame;
}

QVariant shown(const Pixmap& pixmap)
{
    const QPixmap picture = toQPixmap(pixmap);
    return picture.isNull() ? missingPicture() : picture;
}

/// What Qt is given for bytes; a value of its own for none.
QVariant valueOf(int type, const QByteArray& bytes)
{
    if (!isPicture(type))
        return QByteArray(bytes.constData(), bytes.size());
    return shown(
        Pixmap::fromData(ByteArray(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

struct ValueOf
{
    int m_type;

    QVariant operator()(std::monostate) const { return valueOf(m_type, {}); }
    QVariant operator()(const std::wstring& text) const
    {
        return valueOf(m_type, toQString(text).toUtf8());
    }
    QVariant operator()(const ByteArray& bytes) const { return valueOf(m_type, view(bytes)); }
    QVariant operator()(const Pixmap& picture) const
    {
        return isPicture(m_type) ? shown(picture) : valueOf(m_type, {});
    }
};

QString decoded(const QByteArray& bytes, PageContent::Kind kind)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    if (kind == PageContent::Kind::Html) {
        if (auto named = QStringDecoder::decoderForHtml(bytes); named.isValid())
            decoder = std::move(named);
    }
    return decoder(bytes);
}

PageContent contentOfText(QString text, PageContent::Kind kind)
{
    if (kind == PageContent::Kind::Html && !Qt::mightBeRichText(text))
        kind = PageContent::Kind::Plain;
    return {kind, std::move(text)};
}

} // namespace

// Pages -------------------------------------------------------------------------------------------

PageResources::Answer PageResources::page(const QUrl& url, PageContent::Kind kind)
{
    Answer answer;
    answer.m_token = ++m_tokens;
    abandonPage();
    TextResource given;
    const QtDeletionHold hold(&m_host.browserPeer());
    const Reply reply = m_host.askForResource(TextResourceType::Page, browserText(url),
                                              answer.m_token, m_awaited, given);
    if (reply == Reply::Later)
        answer.m_found = Found::Later;
    if (reply == Reply::Later || !hold.isAlive())
        return answer;
    std::optional<PageContent> content;
    if (reply == Reply::Given) {
        content = contentOf(given, kind);
    } else if (const QString name = m_files.find(url, m_host.filePath()); !name.isNull()) {
        const QByteArray bytes = bytesOfFile(name);
        if (!bytes.isEmpty() && name.endsWith(QLatin1String(".txt")))
            content = PageContent{PageContent::Kind::Plain, QString::fromUtf8(bytes)};
        else if (!bytes.isEmpty())
            content = PageContent{kind, decoded(bytes, kind)};
    }
    if (content) {
        answer.m_found = Found::Here;
        answer.m_content = std::move(*content);
    }
    return answer;
}

std::optional<PageContent> PageResources::contentOf(const TextResource& resource,
                                                    PageContent::Kind kind)
{
    if (const auto* text = std::get_if<std::wstring>(&resource.content()))
        return contentOfText(toQString(*text), kind);
    if (const auto* bytes = std::get_if<ByteArray>(&resource.content()))
        return contentOfText(decoded(view(*bytes), kind), kind);
    return std::nullopt;
}

void PageResources::abandonPage()
{
    *m_awaited = false;
    m_awaited = newFlag();
}

// What belongs to the page ------------------------------------------------------------------------

void PageResources::begin()
{
    *m_wanted = false;
    m_wanted = newFlag();
    m_entries.clear();
    m_noted.clear();
}

QVariant PageResources::resource(int type, const QUrl& name, const QUrl& url)
{
    const auto known = m_entries.find(url);
    if (known != m_entries.end() && known->m_type == type) {
        known->m_names.insert(name);
        return known->m_value;
    }
    Entry entry{type, {name}, {}, 0};
    if (const auto data = dataOf(url)) {
        entry.m_value = valueOf(type, *data);
    } else if (m_host.isAnswering()) {
        entry.m_value = isPicture(type) ? QVariant(pictureToCome()) : QVariant(QByteArray(""));
        m_noted.push_back(url);
    } else {
        entry.m_value = ofFile(type, url);
    }
    return m_entries.insert(url, entry)->m_value;
}

std::vector<PageResources::Came> PageResources::ask()
{
    std::vector<Came> came;
    const QtDeletionHold hold(&m_host.browserPeer());
    const Flag page = m_wanted;
    for (const QUrl& url : std::exchange(m_noted, {})) {
        const int type = m_entries.value(url).m_type;
        const unsigned token = ++m_tokens;
        m_entries[url].m_token = token;
        TextResource given;
        const Reply reply = m_host.askForResource(isPicture(type) ? TextResourceType::Picture
                                                                  : TextResourceType::StyleSheet,
                                                  browserText(url), token, page, given);
        if (!hold.isAlive() || !*page)
            return {};
        if (reply == Reply::Later)
            continue;
        Entry& entry = m_entries[url];
        entry.m_value =
            reply == Reply::Given ? std::visit(ValueOf{type}, given.content()) : ofFile(type, url);
        came.push_back({type, entry.m_names, entry.m_value});
    }
    return came;
}

std::vector<PageResources::Came> PageResources::take(unsigned token, const TextResource& resource)
{
    for (Entry& entry : m_entries) {
        if (entry.m_token == token) {
            entry.m_value = std::visit(ValueOf{entry.m_type}, resource.content());
            return {{entry.m_type, entry.m_names, entry.m_value}};
        }
    }
    return {};
}

QVariant PageResources::ofFile(int type, const QUrl& url) const
{
    return valueOf(type, bytesOfFile(m_files.find(url, m_host.filePath())));
}

} // namespace VOXI

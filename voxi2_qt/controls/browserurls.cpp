#include "browserurls.h"

#include <QStringList>

#include <charconv>

namespace VOXI {

namespace {

QString scheme() { return QStringLiteral("buffer"); }
QString pathScheme() { return QStringLiteral("path"); }
QString address() { return QStringLiteral("buffer://"); }

/// The number that stands behind an internet address, as `QUrl` has made it of one; others stay.
QString numberOfHost(const QString& host)
{
    const QStringList parts = host.split(u'.');
    quint64 number = 0;
    for (const QString& part : parts) {
        bool isByte = false;
        number = number * 256 + part.toUShort(&isByte);
        if (!isByte)
            return host;
    }
    return parts.size() == 4 ? QString::number(number) : host;
}

} // namespace

QUrl browserUrl(const QString& text)
{
    QUrl url;
    if (!isBufferText(text)) {
        url = QUrl(text);
        if (url.scheme().isEmpty() && !(url.path().isEmpty() && url.host().isEmpty()))
            url.setScheme(pathScheme());
        return url;
    }
    url.setScheme(scheme());
    const bool hasAddress = text.startsWith(address());
    const QString rest = text.mid(hasAddress ? address().size() : scheme().size() + 1);
    url.setPath(hasAddress ? u'/' + rest : rest, QUrl::DecodedMode);
    return url;
}

QString browserText(const QUrl& url)
{
    if (!isBuffer(url))
        return url.toString(url.scheme() == pathScheme() ? QUrl::RemoveScheme : QUrl::None);
    QString text = url.path(QUrl::FullyDecoded);
    if (!url.host().isEmpty())
        text = address() + numberOfHost(url.host()) + text;
    else if (text.startsWith(u'/'))
        text = address() + text.mid(1);
    else
        text = scheme() + u':' + text;
    if (url.hasQuery())
        text += u'?' + url.query();
    if (url.hasFragment())
        text += u'#' + url.fragment();
    return text;
}

QUrl resolvedUrl(const QUrl& page, const QUrl& url)
{
    if (!url.isRelative() || page.isEmpty())
        return url;
    QUrl resolved = page.resolved(url);
    // Qt makes "../x" the root's, seen from "sub/page".
    if (resolved.scheme() == pathScheme() && !page.path().startsWith(u'/')
        && !url.path().startsWith(u'/') && resolved.path().startsWith(u'/'))
        resolved.setPath(resolved.path(QUrl::FullyDecoded).mid(1), QUrl::DecodedMode);
    return resolved;
}

bool isBuffer(const QUrl& url) { return url.scheme() == scheme(); }

bool isRelativeName(const QUrl& url)
{
    const QString path = url.path();
    return url.scheme() == pathScheme() && !path.startsWith(u'/') && !path.startsWith(u':');
}

bool isBufferText(const QString& text) { return text.startsWith(scheme() + u':'); }

bool isHostText(const QString& text)
{
    return text.startsWith(QLatin1String("kestra:"))
           || text.startsWith(QLatin1String("ddgrefresh:"));
}

std::optional<int> bufferNumber(const QString& text)
{
    // As the abstract side reads it, which refuses buffers that there are not: Qt would also take
    // blanks and a plus sign.
    const QByteArray rest = QString(text).remove(address()).toUtf8();
    int number = 0;
    const auto [behind, error] = std::from_chars(rest.begin(), rest.end(), number);
    const bool isNumber = error == std::errc() && behind == rest.end();
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<QByteArray> dataOf(const QUrl& url)
{
    if (url.scheme() != QLatin1String("data"))
        return std::nullopt;
    const QByteArray text = url.toEncoded().mid(5); // behind "data:"
    const qsizetype comma = text.indexOf(',');
    if (comma < 0)
        return std::nullopt;
    const QByteArray content = QByteArray::fromPercentEncoding(text.mid(comma + 1));
    return text.first(comma).endsWith(";base64") ? QByteArray::fromBase64(content) : content;
}

} // namespace VOXI

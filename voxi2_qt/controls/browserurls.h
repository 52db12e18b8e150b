#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace VOXI {

/// Addresses as pages and programs write them, and as `QUrl` can keep them.
///
/// It takes what stands behind "buffer://" for the name of a computer, and rewrites numbers as
/// addresses of the internet. So a buffer's text is kept as a path. Names of files have a scheme of
/// their own, "path:": Qt would resolve those in its history against the page that is left.

QUrl browserUrl(const QString& text);
/// The reverse, also for what Qt has read in a page by itself.
QString browserText(const QUrl& url);

/// Where a link or a picture of a page leads to.
QUrl resolvedUrl(const QUrl& page, const QUrl& url);

bool isBuffer(const QUrl& url);
/// Whether the program may mean it from where it is, as "sub/page.html".
bool isRelativeName(const QUrl& url);
bool isBufferText(const QString& text);
/// Whether it is an address that is for the program alone.
bool isHostText(const QString& text);
/// The number in a buffer's address; none where it is no number.
std::optional<int> bufferNumber(const QString& text);

/// What a "data:" address holds; none for others, and where it is none that can be read.
std::optional<QByteArray> dataOf(const QUrl& url);

} // namespace VOXI

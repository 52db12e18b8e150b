#include "allowedfiles.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace VOXI {

namespace {

bool isName(const QUrl& url) { return url.isRelative() || url.scheme() == QLatin1String("path"); }

bool isResource(const QUrl& url)
{
    return url.scheme() == QLatin1String("qrc")
           || (isName(url) && url.path().startsWith(QLatin1String(":/")));
}

/// In the program itself, out of which no name leads.
QString resourceName(const QUrl& url)
{
    const QString path = url.path(QUrl::FullyDecoded);
    const QString name = u':' + QDir::cleanPath(u'/' + path.mid(path.startsWith(u':') ? 1 : 0));
    return QFileInfo(name).isFile() ? name : QString();
}

/// Where the file really is, once for each place where it may be meant to be.
QStringList placesOf(const QUrl& url, const QStringList& searchPaths)
{
    // A file on another computer would be fetched over the network.
    const QString host = url.host();
    if (!(isName(url) || url.isLocalFile())
        || !(host.isEmpty() || host == QLatin1String("localhost")))
        return {};
    const QString name = url.path(QUrl::FullyDecoded);
    if (name.isEmpty() || name.contains(QChar::Null))
        return {};
    QStringList tries;
    if (!name.startsWith(u'/')) {
        for (const QString& path : searchPaths)
            tries += path + u'/' + name;
    }
    tries += name;
    QStringList places;
    for (const QString& each : tries) {
        const QFileInfo place(QFileInfo(each).canonicalFilePath());
        if (place.isFile())
            places += place.filePath();
    }
    return places;
}

bool isWithin(const QString& file, const QString& folder)
{
    return !folder.isEmpty()
           && file.startsWith(folder.endsWith(u'/') ? folder : QString(folder + u'/'));
}

} // namespace

void AllowedFiles::allow(const QUrl& url, const QStringList& searchPaths)
{
    const QStringList places = placesOf(url, searchPaths);
    if (places.isEmpty())
        return;
    m_files.insert(places.first());
    // Whoever shows a file in the root does not mean all there is.
    if (const QString folder = QFileInfo(places.first()).path(); folder != QLatin1String("/"))
        m_folders.insert(folder);
}

QString AllowedFiles::find(const QUrl& url, const QStringList& searchPaths) const
{
    if (isResource(url))
        return resourceName(url);
    const auto isAllowed = [&](const QString& place) {
        const auto holds = [&](const QString& folder) { return isWithin(place, folder); };
        return m_files.contains(place) || std::any_of(m_folders.begin(), m_folders.end(), holds)
               || std::any_of(searchPaths.begin(), searchPaths.end(), [&](const QString& path) {
                      return holds(QFileInfo(path).canonicalFilePath());
                  });
    };
    const QStringList places = placesOf(url, searchPaths);
    const auto found = std::find_if(places.begin(), places.end(), isAllowed);
    return found == places.end() ? QString() : *found;
}

} // namespace VOXI

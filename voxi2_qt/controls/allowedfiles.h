#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace VOXI {

/// Which files the pages of a text browser may read: those in the search paths, and what the
/// program itself has gone to with what is in its folder, each with all that is below; and the
/// program's resources. It counts where a file really is, behind ".." and symbolic links.
class AllowedFiles
{
public:
    /// The program goes there.
    void allow(const QUrl& url, const QStringList& searchPaths);

    /// The name to open; null where there is no such file, or it may not be read.
    QString find(const QUrl& url, const QStringList& searchPaths) const;

private:
    QSet<QString> m_files;
    QSet<QString> m_folders;
};

} // namespace VOXI

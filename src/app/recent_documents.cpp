#include "recent_documents.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace lineara {

namespace {

const QString settingsKey = QStringLiteral("recentDocuments");

/// A file that is gone has no path without links; the one it was asked for has to do.
QString settledPath(const QString& path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(QFileInfo(path).absoluteFilePath()) : canonical;
}

/// Settings may be damaged, or written by hand.
bool canBeFile(const QString& path)
{
    return QDir::isAbsolutePath(path) && !QFileInfo(path).isDir();
}

QStringList keptPaths()
{
    QStringList paths = QSettings().value(settingsKey).toStringList();
    paths.removeIf([](const QString& path) { return !canBeFile(path); });
    return paths.mid(0, RecentDocuments::most);
}

void keep(const QStringList& paths)
{
    QSettings().setValue(settingsKey, paths.mid(0, RecentDocuments::most));
}

} // namespace

QList<QUrl> RecentDocuments::recentDocumentUrls()
{
    QList<QUrl> urls;
    for (const QString& path : keptPaths())
        urls.append(QUrl::fromLocalFile(path));
    return urls;
}

void RecentDocuments::note(const QString& path)
{
    const QString settled = settledPath(path);
    QStringList paths = keptPaths();
    paths.removeAll(settled);
    paths.prepend(settled);
    keep(paths);
}

void RecentDocuments::remove(const QUrl& url)
{
    QStringList paths = keptPaths();
    if (paths.removeAll(url.toLocalFile()) > 0)
        keep(paths);
}

void RecentDocuments::clear()
{
    QSettings().remove(settingsKey);
}

} // namespace lineara

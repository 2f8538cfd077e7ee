#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace lineara {

/// The families that were opened or saved lately, kept in the user's settings, so that all running programs and all
/// later ones share them. A file is kept under the path that leads to it without links, and once only.
class RecentDocuments
{
public:
    /// More are forgotten, the oldest first.
    static constexpr int most = 12;

    /// The latest comes first. Files that are gone are listed, too: a disk that is not there today may be tomorrow.
    static QList<QUrl> recentDocumentUrls();

    /// Puts a file that was just opened or saved at the head of the list.
    static void note(const QString& path);

    /// Takes a file out of the list; the file itself stays as it is.
    static void remove(const QUrl& url);

    static void clear();
};

} // namespace lineara

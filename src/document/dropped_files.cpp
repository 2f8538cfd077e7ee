#include "document/dropped_files.h"

#include <QMimeData>
#include <QUrl>

namespace lineara {

QStringList droppedFiles(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace lineara

#include "document/dropped_files.h"

#include "document/family_opening.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace lineara {

namespace {

bool isNamedLikeFamily(const QString& path)
{
    return isNamedLikeGenealogy(path) ||
           QFileInfo(path).suffix().compare(QLatin1String("lineara"), Qt::CaseInsensitive) == 0;
}

} // namespace

QStringList droppedFamilies(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile() && isNamedLikeFamily(url.toLocalFile()))
            paths.append(url.toLocalFile());
    }
    return paths;
}

} // namespace lineara

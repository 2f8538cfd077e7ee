#include "shown_folder.h"

#include <QDir>

namespace lineara {

QString shownFolder(const QString& folder)
{
    const QString home = QDir::homePath();
    if (folder == home)
        return QStringLiteral("~");
    return folder.startsWith(home + QLatin1Char('/')) ? QLatin1Char('~') + folder.mid(home.size()) : folder;
}

} // namespace lineara

#include "document/family_origin.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QStandardPaths>

namespace lineara {

QString canonicalPath(const QString& path)
{
    const QFileInfo file(path);
    QString canonical = file.canonicalFilePath();
    if (!canonical.isEmpty())
        return canonical;
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? file.absoluteFilePath() : folder + QLatin1Char('/') + file.fileName();
}

/// Kept apart from the families, whose folders may be read-only, or shared with programs that would carry a strange
/// file elsewhere.
std::shared_ptr<FileLock> lockFamilyFile(const QString& path)
{
    const QByteArray name = QCryptographicHash::hash(canonicalPath(path).toUtf8(), QCryptographicHash::Sha1).toHex();
    return FileLock::tryTake(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                             QStringLiteral("/locks/") + QString::fromLatin1(name));
}

} // namespace lineara

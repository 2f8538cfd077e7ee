#include "store/atomic_file.h"
#include "store_texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace lineara::store {

namespace {

/// "family 2.lineara" for the second of "family.lineara".
QString numbered(const QString& fileName, int number)
{
    if (number == 1)
        return fileName;
    const QFileInfo name(fileName);
    const auto ending = name.suffix().isEmpty() ? QString() : u'.' + name.suffix();
    return u"%1 %2%3"_qs.arg(fileName.chopped(ending.size())).arg(number).arg(ending);
}

} // namespace

Outcome<QString> createFreeFile(const QString& folder, const QString& fileName,
                                const std::function<void(const QString& path)>& aboutToMake)
{
    constexpr int mostAttempts = 10'000;
    for (int number = 1; number <= mostAttempts; ++number) {
        const auto path = QDir(folder).filePath(numbered(fileName, number));
        aboutToMake(path);
        const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (file >= 0) {
            ::close(file);
            return path;
        }
        if (errno != EEXIST)
            return Failure{reasonOf(errno)};
    }
    return Failure{reasonOf(EEXIST)};
}

Outcome<Done> copyOver(const QString& from, const QString& to, const FileCalls& calls)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return Failure{StoreTexts::tr("“%1” can't be read: %2").arg(from, source.errorString())};
    const auto copyPieces = [&source](const ByteSink& sink) {
        constexpr qint64 pieceSize = 1024 * 1024;
        while (!source.atEnd()) {
            const auto piece = source.read(pieceSize);
            if (piece.isEmpty() || !sink({piece.constData(), static_cast<std::size_t>(piece.size())}))
                return false;
        }
        return source.error() == QFileDevice::NoError;
    };
    return replaceFile(to, copyPieces, calls);
}

} // namespace lineara::store

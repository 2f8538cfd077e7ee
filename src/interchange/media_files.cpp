#include "media_files.h"

#include "import_texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace lineara {
namespace {

constexpr qsizetype deepestPlace = 16;

bool isOnTheWeb(const QString& name)
{
    const auto scheme = name.indexOf(QStringLiteral("://"));
    return scheme > 1 && !name.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive);
}

/// The steps of a path that can lie below a folder: those after the last one that climbs out of one.
QStringList stepsOf(QString name)
{
    if (name.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive))
        name.remove(0, 5);
    name.replace(u'\\', u'/');
    QStringList steps;
    for (const QString& step : name.split(u'/', Qt::SkipEmptyParts)) {
        const bool isDrive = step.size() == 2 && step.endsWith(u':');
        if (step == QStringLiteral("..") || isDrive)
            steps.clear();
        else if (step != QStringLiteral(".") && !step.contains(QChar::Null))
            steps << step;
    }
    return steps.mid(std::max<qsizetype>(0, steps.size() - deepestPlace));
}

} // namespace

QStringList placesOf(const QString& name)
{
    QStringList places;
    if (isOnTheWeb(name))
        return places;
    // Version 7 writes names as addresses, in which %20 is a blank; older ones mean what they write.
    for (const QString& written : {name, QUrl::fromPercentEncoding(name.toUtf8())}) {
        const QStringList steps = stepsOf(written);
        for (qsizetype first = 0; first < steps.size(); ++first)
            places << steps.mid(first).join(u'/');
    }
    places.removeDuplicates();
    return places;
}

Failure mediaNotThere()
{
    return {ImportTexts::tr("the file is not there")};
}

Failure mediaTooLarge()
{
    return {ImportTexts::tr("the file has more than 64 MB")};
}

Outcome<QByteArray> NoMediaFiles::read(const QString&) const
{
    return mediaNotThere();
}

FolderMediaFiles::FolderMediaFiles(const QString& folder) : folder_(QFileInfo(folder).canonicalFilePath()) {}

Outcome<QByteArray> FolderMediaFiles::read(const QString& name) const
{
    if (isOnTheWeb(name))
        return Failure{ImportTexts::tr("it is on the web")};
    for (const QString& place : placesOf(name)) {
        const QString path = QFileInfo(QDir(folder_).filePath(place)).canonicalFilePath();
        const bool isBelow = path.startsWith(folder_.endsWith(u'/') ? folder_ : QString(folder_ + u'/'));
        if (path.isEmpty() || !isBelow || !QFileInfo(path).isFile())
            continue;
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return Failure{file.errorString()};
        QByteArray bytes = file.read(mostBytes + 1);
        if (bytes.size() > mostBytes)
            return mediaTooLarge();
        return bytes;
    }
    return mediaNotThere();
}

} // namespace lineara

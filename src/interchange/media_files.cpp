#include "media_files.h"

#include "import_texts.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

namespace lineara {
namespace {

constexpr qsizetype deepestPlace = 16;

/// Files or folders of one folder that are tried for one name.
constexpr qsizetype mostAlike = 8;

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

QStringList placesOfAny(const QStringList& names)
{
    QStringList places;
    for (const QString& written : names) {
        const QStringList steps = stepsOf(written);
        for (qsizetype first = 0; first < steps.size(); ++first)
            places << steps.mid(first).join(u'/');
    }
    places.removeDuplicates();
    return places;
}

} // namespace

QString decodedAddress(const QString& name)
{
    // Where a % is none of an address, nobody meant one.
    static const QRegularExpression stray(QStringLiteral("%(?![0-9A-Fa-f]{2})"));
    if (name.contains(stray))
        return name;
    const QString decoded = QUrl::fromPercentEncoding(name.toUtf8());
    return decoded.contains(QChar::ReplacementCharacter) ? name : decoded;
}

QString likenessOf(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

bool isOnTheWeb(const QString& name)
{
    const auto scheme = name.indexOf(QStringLiteral("://"));
    return scheme > 1 && !name.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive);
}

QStringList placesOf(const QString& name)
{
    // Version 7 writes names as addresses, in which %20 is a blank; older ones mean what they write.
    return isOnTheWeb(name) ? QStringList() : placesOfAny({name, decodedAddress(name)});
}

QStringList placesInArchive(const QString& name)
{
    return isOnTheWeb(name) ? QStringList() : placesOfAny({decodedAddress(name), name});
}

QByteArray hashOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

Failure mediaNotThere()
{
    return {ImportTexts::tr("the file is not there")};
}

Failure mediaTooLarge()
{
    return {ImportTexts::tr("the file has more than 64 MB")};
}

Outcome<MediaFile> NoMediaFiles::read(const QString&) const
{
    return mediaNotThere();
}

FolderMediaFiles::FolderMediaFiles(const QString& folder) : folder_(QFileInfo(folder).canonicalFilePath()) {}

QString FolderMediaFiles::find(const QString& name) const
{
    if (folder_.isEmpty())
        return {};
    for (const QString& place : placesOf(name)) {
        QString found = holds(place) ? place : resembling(place, {});
        if (!found.isEmpty())
            return found;
    }
    return {};
}

bool FolderMediaFiles::holds(const QString& place) const
{
    const QString path = QFileInfo(QDir(folder_).filePath(place)).canonicalFilePath();
    const bool isBelow = path.startsWith(folder_.endsWith(u'/') ? folder_ : QString(folder_ + u'/'));
    return !path.isEmpty() && isBelow && QFileInfo(path).isFile();
}

QString FolderMediaFiles::resembling(QStringView place, const QString& folder) const
{
    const qsizetype slash = place.indexOf(u'/');
    const bool isLast = slash < 0;
    const QString step = place.first(isLast ? place.size() : slash).toString();
    const Contents& contents = contentsOf(folder);
    QStringList names = (isLast ? contents.files : contents.folders).value(likenessOf(step));
    std::ranges::stable_partition(names, [&](const QString& name) { return name == step; });
    for (const QString& name : names.mid(0, mostAlike)) {
        const QString path = folder.isEmpty() ? name : QString(folder + u'/' + name);
        QString found = !isLast ? resembling(place.sliced(slash + 1), path) : holds(path) ? path : QString();
        if (!found.isEmpty())
            return found;
    }
    return {};
}

const FolderMediaFiles::Contents& FolderMediaFiles::contentsOf(const QString& folder) const
{
    const auto known = contents_.constFind(folder);
    if (known != contents_.constEnd())
        return *known;
    const QDir dir(QDir(folder_).filePath(folder));
    Contents contents;
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden, QDir::Name))
        contents.files[likenessOf(name)] << name;
    // A link to a folder above would lead round in circles.
    const auto folders = QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::NoSymLinks;
    for (const QString& name : dir.entryList(folders, QDir::Name))
        contents.folders[likenessOf(name)] << name;
    return *contents_.insert(folder, contents);
}

Outcome<MediaFile> FolderMediaFiles::read(const QString& name) const
{
    if (isOnTheWeb(name))
        return Failure{ImportTexts::tr("it is on the web")};
    const QString place = find(name);
    if (place.isEmpty())
        return mediaNotThere();
    QFile file(QDir(folder_).filePath(place));
    if (!file.open(QIODevice::ReadOnly))
        return Failure{file.errorString()};
    QByteArray bytes = file.read(mostBytes + 1);
    if (bytes.size() > mostBytes)
        return mediaTooLarge();
    return MediaFile{std::move(bytes), place};
}

} // namespace lineara

#include "migration_note.h"

#include "document/family_origin.h"
#include "store/atomic_file.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace lineara {

namespace {

const QString originalsKey = QStringLiteral("originals");
const QString temporaryKey = QStringLiteral("temporary");
const QString sizeKey = QStringLiteral("size");
const QString changedKey = QStringLiteral("changed");

/// Without waiting for the disk: where a loss of power takes the note, a file stays that does no harm.
store::FileCalls quickCalls()
{
    auto calls = store::FileCalls::ofTheSystem();
    calls.sync = [](int) { return 0; };
    return calls;
}

} // namespace

MigrationNote::MigrationNote(const QString& folder, const QString& path)
{
    if (folder.isEmpty())
        return;
    const auto name = QCryptographicHash::hash(canonicalPath(path).toUtf8(), QCryptographicHash::Sha1).toHex();
    notePath_ = QDir(folder).filePath(QString::fromLatin1(name) + u".json"_qs);
    read();
}

void MigrationNote::addOriginal(const QString& path)
{
    originals_ += path;
    write();
}

void MigrationNote::removeOriginals()
{
    for (const auto& original : originals_)
        QFile::remove(original);
    originals_.clear();
    write();
}

void MigrationNote::forgetOriginal(const QString& path)
{
    originals_.removeAll(path);
    write();
}

void MigrationNote::announceTemporary(const QString& path)
{
    // What is there already is somebody else's, and another name will be tried.
    if (QFile::exists(path))
        return;
    temporary_ = path;
    mark_.reset();
    write();
}

void MigrationNote::setTemporary(const QString& path, const QString& content)
{
    temporary_ = path;
    mark_ = FileMark::of(content);
    write();
}

bool MigrationNote::hasTemporary() const
{
    return !temporary_.isEmpty() && mark_ && FileMark::of(temporary_) == mark_;
}

void MigrationNote::removeTemporary()
{
    const auto there = temporary_.isEmpty() ? std::nullopt : FileMark::of(temporary_);
    if (there && (there->size == 0 || there == mark_) && lockFamilyFile(temporary_))
        QFile::remove(temporary_);
    forgetTemporary();
}

void MigrationNote::forgetTemporary()
{
    temporary_.clear();
    mark_.reset();
    write();
}

void MigrationNote::read()
{
    QFile file(notePath_);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const auto object = QJsonDocument::fromJson(file.readAll()).object();
    for (const auto& original : object[originalsKey].toArray())
        originals_ += original.toString();
    temporary_ = object[temporaryKey].toString();
    if (object.contains(sizeKey))
        mark_ = FileMark{object[sizeKey].toString().toLongLong(), object[changedKey].toString().toLongLong()};
}

void MigrationNote::write() const
{
    if (notePath_.isEmpty())
        return;
    if (originals_.isEmpty() && temporary_.isEmpty()) {
        QFile::remove(notePath_);
        return;
    }
    QDir().mkpath(QFileInfo(notePath_).path());
    QJsonObject object{{originalsKey, QJsonArray::fromStringList(originals_)}, {temporaryKey, temporary_}};
    if (mark_) {
        // Numbers of JSON lose digits.
        object[sizeKey] = QString::number(mark_->size);
        object[changedKey] = QString::number(mark_->changed);
    }
    const auto text = QJsonDocument(object).toJson();
    const auto produce = [&text](const store::ByteSink& sink) {
        return sink({text.constData(), static_cast<std::size_t>(text.size())});
    };
    // Where no note can be made, files of a killed program stay, and nothing else is lost.
    static_cast<void>(store::replaceFile(notePath_, produce, quickCalls()));
}

} // namespace lineara

#include "document/recovery_copy.h"

#include "store/atomic_file.h"
#include "store/family_content.h"
#include "store/family_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct RecoveryCopyTexts
{
    Q_DECLARE_TR_FUNCTIONS(RecoveryCopy)
};

const QString familySuffix = QStringLiteral(".lineara");
const QString aboutSuffix = QStringLiteral(".json");

QDir folder()
{
    return {QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/recovery")};
}

QString pathOf(const QString& id, const QString& suffix)
{
    return folder().filePath(id + suffix);
}

std::unique_ptr<FileLock> lock(const QString& id)
{
    return FileLock::tryTake(pathOf(id, QStringLiteral(".lock")));
}

/// Whole numbers as texts: those of JSON lose digits.
QJsonObject json(const LeftWork& work)
{
    QJsonObject object{{QStringLiteral("name"), work.name},
                       {QStringLiteral("path"), work.path},
                       {QStringLiteral("own"), work.isOwn},
                       {QStringLiteral("copy"), work.isCopy}};
    if (work.mark) {
        object[QStringLiteral("size")] = QString::number(work.mark->size);
        object[QStringLiteral("changed")] = QString::number(work.mark->changed);
    }
    return object;
}

void read(const QJsonObject& object, LeftWork& work)
{
    work.name = object[QStringLiteral("name")].toString();
    work.isDamaged = work.name.isEmpty();
    if (work.isDamaged)
        work.name = RecoveryCopyTexts::tr("A damaged copy");
    work.path = object[QStringLiteral("path")].toString();
    work.isOwn = object[QStringLiteral("own")].toBool() && !work.path.isEmpty();
    work.isCopy = object[QStringLiteral("copy")].toBool();
    if (object.contains(QStringLiteral("size")))
        work.mark = FileMark{object[QStringLiteral("size")].toString().toLongLong(),
                             object[QStringLiteral("changed")].toString().toLongLong()};
}

std::optional<LeftWork> aboutCopy(const QString& id)
{
    const QFileInfo family(pathOf(id, familySuffix));
    if (!family.exists())
        return std::nullopt;
    LeftWork work;
    work.id = id;
    work.changed = family.lastModified();
    QFile file(pathOf(id, aboutSuffix));
    const QByteArray about = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    read(QJsonDocument::fromJson(about).object(), work);
    return work;
}

Outcome<Done> writeAbout(const QString& id, const LeftWork& about)
{
    const QByteArray text = QJsonDocument(json(about)).toJson();
    return store::replaceFile(pathOf(id, aboutSuffix), [&text](const store::ByteSink& sink) {
        return sink({text.constData(), static_cast<std::size_t>(text.size())});
    });
}

void removeFiles(const QString& id)
{
    // Without its family, a copy counts as gone.
    QFile::remove(pathOf(id, familySuffix));
    QFile::remove(pathOf(id, aboutSuffix));
}

} // namespace

RecoveryCopy::RecoveryCopy() : RecoveryCopy(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    lock_ = lock(id_);
    // A family that only its owner may read is not to be read by others here.
    QFile::setPermissions(folder().path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

RecoveryCopy::RecoveryCopy(QString id) : id_(std::move(id)) {}

RecoveryCopy::~RecoveryCopy() = default;

std::vector<LeftWork> RecoveryCopy::left()
{
    std::vector<LeftWork> all;
    for (const QFileInfo& family : folder().entryInfoList({QLatin1Char('*') + familySuffix}, QDir::Files)) {
        const QString id = family.completeBaseName();
        if (const auto held = lock(id); !held)
            continue;
        if (auto work = aboutCopy(id))
            all.push_back(std::move(*work));
    }
    std::ranges::sort(all, [](const LeftWork& one, const LeftWork& other) {
        return std::pair(other.changed, one.id) < std::pair(one.changed, other.id);
    });
    return all;
}

std::unique_ptr<RecoveryCopy> RecoveryCopy::adopt(const QString& id)
{
    auto held = lock(id);
    if (!held || !aboutCopy(id))
        return nullptr;
    auto copy = std::unique_ptr<RecoveryCopy>(new RecoveryCopy(id));
    copy->lock_ = std::move(held);
    return copy;
}

void RecoveryCopy::discard(const QString& id)
{
    if (const auto copy = adopt(id))
        copy->remove();
}

QString RecoveryCopy::familyPath() const
{
    return pathOf(id_, familySuffix);
}

std::optional<LeftWork> RecoveryCopy::about() const
{
    return aboutCopy(id_);
}

Outcome<Done> RecoveryCopy::write(const FamilyContent& content, const LeftWork& about)
{
    if (auto written = writeAbout(id_, about); written.failed())
        return written;
    return saveFamilyFile(content, familyPath());
}

void RecoveryCopy::remove()
{
    removeFiles(id_);
}

} // namespace lineara

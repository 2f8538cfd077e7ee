#include "store/family_file.h"

#include "atomic_file.h"
#include "family_builder.h"
#include "family_reader.h"
#include "family_writer.h"
#include "file_bytes.h"

#include <optional>

namespace lineara {

namespace {

Failure unreadable(const QString& name, const Failure& reason)
{
    return Failure{u"“%1” can't be opened: %2"_qs.arg(name, reason.message)};
}

/// The text is gone when this returns; only then are the records made, which keeps the memory at the peak low.
Outcome<store::RawFamily> readRaw(QByteArray&& bytes, QStringList& repairs)
{
    const QByteArray text = std::move(bytes);
    return store::readText({text.constData(), static_cast<std::size_t>(text.size())}, repairs);
}

} // namespace

Outcome<LoadedFamily> readFamily(QByteArray bytes, const QString& name)
{
    QStringList repairs;
    auto raw = readRaw(std::move(bytes), repairs);
    if (raw.failed())
        return unreadable(name, raw.failure());
    auto family = store::buildFamily(std::move(raw.value()), std::move(repairs));
    if (family.failed())
        return unreadable(name, family.failure());
    return family;
}

Outcome<LoadedFamily> readFamilyFile(const QString& path)
{
    auto bytes = store::readTextFile(path);
    if (bytes.failed())
        return unreadable(path, bytes.failure());
    return readFamily(std::move(bytes.value()), path);
}

bool writeFamily(const ObjectContext& family, QIODevice& device)
{
    return store::writeFamilyText(family, [&device](std::string_view bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        return device.write(bytes.data(), size) == size;
    });
}

Outcome<Done> saveFamilyFile(const ObjectContext& family, const QString& path)
{
    return store::replaceFile(
        path, [&family](store::ByteSink sink) { return store::writeFamilyText(family, std::move(sink)); });
}

} // namespace lineara

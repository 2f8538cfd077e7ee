#include "store/family_file.h"

#include "family_builder.h"
#include "family_reader.h"
#include "family_writer.h"
#include "file_bytes.h"
#include "store/atomic_file.h"
#include "store_texts.h"

#include <optional>

namespace lineara {

namespace {

Failure unreadable(const QString& name, const Failure& reason)
{
    return Failure{StoreTexts::tr("“%1” can't be opened: %2").arg(name, reason.message), reason.message};
}

/// The text is gone when this returns; only then are the records made, which keeps the memory at the peak low.
Outcome<store::RawFamily> readRaw(QByteArray&& bytes, QStringList& repairs, const Progress& progress)
{
    const QByteArray text = std::move(bytes);
    return store::readText({text.constData(), static_cast<std::size_t>(text.size())}, repairs, progress);
}

} // namespace

Outcome<LoadedFamily> readFamily(QByteArray bytes, const QString& name, const Progress& progress)
{
    constexpr double textPart = 0.7;
    QStringList repairs;
    auto raw = readRaw(std::move(bytes), repairs, progress.stage(0, textPart));
    if (raw.failed())
        return unreadable(name, raw.failure());
    auto family = store::buildFamily(std::move(raw.value()), std::move(repairs), progress.stage(textPart, 1));
    if (family.failed())
        return unreadable(name, family.failure());
    return family;
}

Outcome<LoadedFamily> readFamilyFile(const QString& path, const Progress& progress)
{
    constexpr double bytesPart = 0.1;
    auto bytes = store::readTextFile(path, progress.stage(0, bytesPart));
    if (bytes.failed())
        return unreadable(path, bytes.failure());
    return readFamily(std::move(bytes.value()), path, progress.stage(bytesPart, 1));
}

bool writeFamily(const ObjectContext& family, QIODevice& device)
{
    return store::writeFamilyText(FamilyContent(family), [&device](std::string_view bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        return device.write(bytes.data(), size) == size;
    });
}

Outcome<Done> saveFamilyFile(const FamilyContent& family, const QString& path)
{
    qsizetype written = 0;
    auto saved = store::replaceFile(path, [&family, &written](const store::ByteSink& sink) {
        return store::writeFamilyText(family, [&](std::string_view bytes) {
            written += static_cast<qsizetype>(bytes.size());
            return written <= store::mostFileBytes && sink(bytes);
        });
    });
    if (saved.failed() && written > store::mostFileBytes)
        return Failure{StoreTexts::tr("“%1” can't be saved: %2").arg(path, store::tooLarge().message)};
    return saved;
}

Outcome<Done> saveFamilyFile(const ObjectContext& family, const QString& path)
{
    return saveFamilyFile(FamilyContent(family), path);
}

} // namespace lineara

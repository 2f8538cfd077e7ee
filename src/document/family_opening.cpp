#include "document/family_opening.h"

#include "canvas/first_places.h"
#include "store/family_file.h"

#include <QFile>
#include <QFileInfo>

namespace lineara {

namespace {

// Every GEDCOM file starts with a line of level 0, whatever its ending; a family file is XML.
bool looksLikeGedcom(const QString& path)
{
    if (QFileInfo(path).suffix().compare(QStringLiteral("ged"), Qt::CaseInsensitive) == 0)
        return true;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray start = file.read(64);
    if (start.startsWith("\xEF\xBB\xBF"))
        start.remove(0, 3);
    return start.trimmed().startsWith("0 ");
}

Outcome<OpenedFamily> importFamily(const QString& path)
{
    auto imported = importGedcomFile(path);
    if (imported.failed())
        return imported.failure();
    return OpenedFamily{std::move(imported.value().context), nullptr, {}, std::move(imported.value().report)};
}

Outcome<OpenedFamily> readOwnFamily(const QString& path)
{
    auto loaded = readFamilyFile(path);
    if (loaded.failed())
        return loaded.failure();
    return OpenedFamily{std::move(loaded.value().context), nullptr, std::move(loaded.value().repairs), std::nullopt};
}

} // namespace

Outcome<OpenedFamily> openFamily(const QString& path)
{
    auto opened = looksLikeGedcom(path) ? importFamily(path) : readOwnFamily(path);
    if (opened.failed())
        return opened;
    OpenedFamily& family = opened.value();
    const auto pools = family.context->allPools();
    family.pool = pools.empty() ? &family.context->insertPool() : pools.front();
    return opened;
}

OpenedFamily newFamily()
{
    OpenedFamily family;
    family.context = std::make_unique<ObjectContext>();
    family.pool = &family.context->insertPool();
    return family;
}

Outcome<OpenedFamily> openSettledFamily(const QString& path)
{
    auto opened = openFamily(path);
    if (opened.failed())
        return opened;
    opened.value().pool->process();
    giveFirstPlaces(*opened.value().pool);
    return opened;
}

} // namespace lineara

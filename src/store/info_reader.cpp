#include "info_reader.h"

#include "info_parts.h"
#include "numbers.h"
#include "store/family_file.h"
#include "store_texts.h"

namespace lineara::store {

namespace {

Outcome<Done> checkModelVersion(int version)
{
    if (version > currentModelVersion)
        return tooNew(StoreTexts::tr("data model version"), version, currentModelVersion);
    if (version < currentModelVersion)
        return Failure{StoreTexts::tr("it has the older data model version %1; this program reads version %2.")
                           .arg(version)
                           .arg(currentModelVersion)};
    return Done{};
}

} // namespace

Outcome<Done> readInfo(const XmlFragment& source, pugi::xml_node info, RawFamily& family, QStringList& repairs)
{
    const auto keep = [&](pugi::xml_node node, std::uint32_t position) {
        family.unknownInfo.push_back({position, source.verbatim(node)});
    };
    const auto parts = InfoParts::read(source, info, keep);
    if (parts.failed())
        return parts.failure();
    const auto metadata = parts.value().metadata();
    if (metadata.failed())
        return metadata.failure();
    if (auto checked = checkModelVersion(metadata.value().modelVersion); checked.failed())
        return checked;
    family.uuid = metadata.value().uuid;
    const auto next = parseNumber(parts.value().value(InfoPart::NextObject));
    if (!next)
        repairs += StoreTexts::tr("The next object number was missing or no number; it was worked out again.");
    family.nextNumber = next.value_or(0);
    return Done{};
}

} // namespace lineara::store

#include "info_parts.h"

#include "field_names.h"
#include "store_texts.h"

#include <charconv>

namespace lineara::store {

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

InfoPart partOf(pugi::xml_node node)
{
    if (node.type() != pugi::node_element)
        return InfoPart::Unknown;
    const std::string_view name = node.name();
    if (name == "formatVersion")
        return InfoPart::FormatVersion;
    if (name == "UUID")
        return InfoPart::Uuid;
    if (name == "nextObject")
        return InfoPart::NextObject;
    if (name == "metadata" && std::string_view(node.attribute("key").value()) == "modelVersion")
        return InfoPart::ModelVersion;
    return InfoPart::Unknown;
}

Outcome<InfoParts> InfoParts::read(const XmlFragment& source, pugi::xml_node info, const Rest& rest)
{
    InfoParts parts;
    std::uint32_t position = 0;
    for (const auto node : info.children()) {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            return Failure{StoreTexts::tr("line %1: stray text in “databaseInfo”.").arg(source.line(node))};
        const auto part = partOf(node);
        if (part == InfoPart::Unknown)
            rest(node, position);
        else if (auto taken = parts.take(source, node, part); taken.failed())
            return taken.failure();
        ++position;
    }
    return parts;
}

Outcome<Done> InfoParts::take(const XmlFragment& source, pugi::xml_node node, InfoPart part)
{
    auto& value = values_[static_cast<std::size_t>(part)];
    if (value)
        return Failure{StoreTexts::tr("line %1: “databaseInfo” says “%2” twice.")
                           .arg(source.line(node))
                           .arg(QString::fromUtf8(node.name()))};
    value = node.value();
    return Done{};
}

Outcome<StoreMetadata> InfoParts::metadata() const
{
    const auto formatVersion = version(InfoPart::FormatVersion, StoreTexts::tr("format version"));
    if (formatVersion.failed())
        return formatVersion.failure();
    if (formatVersion.value() > currentFormatVersion)
        return tooNew(StoreTexts::tr("format version"), formatVersion.value(), currentFormatVersion);
    const auto modelVersion = version(InfoPart::ModelVersion, StoreTexts::tr("data model version"));
    if (modelVersion.failed())
        return modelVersion.failure();
    const auto uuid = QUuid::fromString(textOf(value(InfoPart::Uuid)));
    if (uuid.isNull())
        return Failure{StoreTexts::tr("“databaseInfo”: “%1” is no valid UUID.").arg(textOf(value(InfoPart::Uuid)))};
    return StoreMetadata{formatVersion.value(), uuid, modelVersion.value()};
}

Outcome<int> InfoParts::version(InfoPart part, const QString& what) const
{
    const auto text = value(part);
    if (text.empty())
        return Failure{StoreTexts::tr("“databaseInfo” does not say the %1.").arg(what)};
    int version = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), version);
    if (error != std::errc() || end != text.data() + text.size() || version < 1)
        return Failure{StoreTexts::tr("“databaseInfo”: “%1” is no %2.").arg(textOf(text), what)};
    return version;
}

Failure tooNew(const QString& what, int version, int known)
{
    return Failure{
        StoreTexts::tr("it was written by a newer program: it has %1 %2, and this program knows versions up to %3.")
            .arg(what)
            .arg(version)
            .arg(known)};
}

} // namespace lineara::store

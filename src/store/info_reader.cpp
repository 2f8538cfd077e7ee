#include "info_reader.h"

#include "field_names.h"
#include "numbers.h"
#include "store/family_file.h"

#include <charconv>
#include <cstring>

namespace lineara::store {

namespace {

/// The parts of "databaseInfo" that this version understands.
enum class InfoPart
{
    FormatVersion,
    Uuid,
    NextObject,
    ModelVersion,
    Unknown
};

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

class InfoReader
{
public:
    InfoReader(const XmlFragment& source, RawFamily& family) : source_(source), family_(family) {}

    Outcome<Done> read(pugi::xml_node info, QStringList& repairs)
    {
        std::uint32_t position = 0;
        for (const auto node : info.children()) {
            if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
                return Failure{u"line %1: stray text in “databaseInfo”."_qs.arg(source_.line(node))};
            if (auto taken = take(node, position++); taken.failed())
                return taken.failure();
        }
        return finish(repairs);
    }

private:
    Outcome<Done> take(pugi::xml_node node, std::uint32_t position)
    {
        const auto part = partOf(node);
        if (part == InfoPart::Unknown) {
            family_.unknownInfo.push_back({position, source_.verbatim(node)});
            return Done{};
        }
        auto& value = values_[static_cast<std::size_t>(part)];
        if (value)
            return Failure{u"line %1: “databaseInfo” says “%2” twice."_qs.arg(source_.line(node))
                               .arg(QString::fromUtf8(node.name()))};
        value = node.value();
        return Done{};
    }

    Outcome<Done> finish(QStringList& repairs)
    {
        if (auto checked = checkVersion(InfoPart::FormatVersion, u"format version"_qs, currentFormatVersion);
            checked.failed())
            return checked;
        if (auto checked = checkVersion(InfoPart::ModelVersion, u"data model version"_qs, currentModelVersion);
            checked.failed())
            return checked;
        const auto uuid = value(InfoPart::Uuid);
        family_.uuid = QUuid::fromString(QLatin1String(uuid.data(), static_cast<qsizetype>(uuid.size())));
        if (family_.uuid.isNull())
            return Failure{u"“databaseInfo”: “%1” is no valid UUID."_qs.arg(
                QString::fromUtf8(uuid.data(), static_cast<qsizetype>(uuid.size())))};
        const auto next = parseNumber(value(InfoPart::NextObject));
        if (!next)
            repairs += u"The next object number was missing or no number; it was worked out again."_qs;
        family_.nextNumber = next.value_or(0);
        return Done{};
    }

    Outcome<Done> checkVersion(InfoPart part, const QString& what, int current) const
    {
        const auto text = value(part);
        if (text.empty())
            return Failure{u"“databaseInfo” does not say the %1."_qs.arg(what)};
        int version = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), version);
        const auto shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        if (error != std::errc() || end != text.data() + text.size() || version < 1)
            return Failure{u"“databaseInfo”: “%1” is no %2."_qs.arg(shown, what)};
        if (version > current)
            return Failure{
                u"it was written by a newer program: it has %1 %2, and this program knows versions up to %3."_qs
                    .arg(what, shown)
                    .arg(current)};
        if (version < current)
            return Failure{u"it has the older %1 %2; this program reads version %3."_qs.arg(what, shown).arg(current)};
        return Done{};
    }

    std::string_view value(InfoPart part) const { return values_[static_cast<std::size_t>(part)].value_or(""); }

    const XmlFragment& source_;
    RawFamily& family_;
    std::array<std::optional<std::string_view>, 4> values_;
};

} // namespace

Outcome<Done> readInfo(const XmlFragment& source, pugi::xml_node info, RawFamily& family, QStringList& repairs)
{
    return InfoReader(source, family).read(info, repairs);
}

} // namespace lineara::store

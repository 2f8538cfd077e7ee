#pragma once

#include "platform/outcome.h"
#include "store/store_metadata.h"
#include "xml_fragment.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace lineara::store {

/// The parts of "databaseInfo" that every version understands.
enum class InfoPart
{
    FormatVersion,
    Uuid,
    NextObject,
    ModelVersion,
    Unknown
};

InfoPart partOf(pugi::xml_node node);

/// What the parts say; "" where one is missing. Points into the fragment that they were read from.
class InfoParts
{
public:
    /// Receives the parts that are not known, with their place among all.
    using Rest = std::function<void(pugi::xml_node, std::uint32_t)>;

    /// Fails on stray text and on a part that stands there twice.
    static Outcome<InfoParts> read(const XmlFragment& source, pugi::xml_node info, const Rest& rest);

    std::string_view value(InfoPart part) const { return values_[static_cast<std::size_t>(part)].value_or(""); }

    /// Fails if versions or UUID are missing or make no sense, and on a format that is newer than this program.
    Outcome<StoreMetadata> metadata() const;

private:
    Outcome<Done> take(const XmlFragment& source, pugi::xml_node node, InfoPart part);
    Outcome<int> version(InfoPart part, const QString& what) const;

    std::array<std::optional<std::string_view>, 4> values_;
};

/// "It was written by a newer program", and which version of what this one knows.
Failure tooNew(const QString& what, int version, int known);

} // namespace lineara::store

#pragma once

#include "document/family_opening.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace lineara::tool {

/// A family in numbers.
struct FamilyInfo
{
    std::size_t persons = 0;
    std::size_t partnerLinks = 0;
    std::size_t offspringLinks = 0;
    std::vector<std::size_t> rowSizes; ///< by row; row 0 holds those who stand in no generation
    std::size_t unlinked = 0;          ///< persons without any link
    QStringList unlinkedNames;         ///< of those who have a name, in the family's order
    std::optional<ImportReport> import;
};

/// Counts a family that has been processed.
FamilyInfo infoOf(const OpenedFamily& family);

/// For people: one line for each number.
QString asText(const FamilyInfo& info);

/// For programs: one JSON object, documented in docs/lineara-tool.md.
QString asJson(const FamilyInfo& info);

} // namespace lineara::tool

#pragma once

#include "gedcom_tree.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lineara {

class FactSheet;
class ImportedIndex;
class RecordNames;
class SourceRecord;

enum class FamilyRole : std::uint8_t
{
    Child,
    Partner
};

inline constexpr std::array familyRoles = {FamilyRole::Child, FamilyRole::Partner};

/// What the record of a family says of a person whom it names.
class FamilyFacts
{
public:
    /// The records and the index outlive this.
    FamilyFacts(const SourceRecord& family, const SourceRecord& person, const ImportedIndex& index);

    const SourceRecord& family() const { return *family_; }

    /// Whether the record names the person so.
    bool has(FamilyRole role) const { return hasRole_[static_cast<std::size_t>(role)]; }

    /// Begins with a heading. To a child it tells how it belongs to the family, to a partner everything else; to both
    /// which members it names to whom the person has no link.
    void tell(FamilyRole role, RecordNames& names, FactSheet& sheet) const;

private:
    class Teller;

    const SourceRecord* memberAt(NodeIndex line) const;

    const SourceRecord* family_;
    const SourceRecord* person_;
    const ImportedIndex* index_;
    GedcomTree tree_;
    std::array<bool, familyRoles.size()> hasRole_{};
};

} // namespace lineara

#pragma once

#include "gedcom_tree.h"

#include "engine/family_graph.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace lineara {

/// Which records of a file are persons, in file order.
class GedcomPersons
{
public:
    explicit GedcomPersons(const GedcomRecords& records);

    std::uint32_t size() const { return static_cast<std::uint32_t>(persons_.size()); }
    RecordIndex record(engine::PersonIndex person) const { return persons_[person]; }

    /// The person that a record stands for; no value if the record is no person.
    std::optional<engine::PersonIndex> of(RecordIndex record) const;

    /// How sentences call the person: the name, or a way to find one without a name. Reads the record at the first
    /// question.
    QString label(engine::PersonIndex person) const;

private:
    const GedcomRecords& records_;
    std::vector<RecordIndex> persons_;
    std::vector<std::uint32_t> numbers_; // by record: that of its person plus one, or 0
    mutable std::unordered_map<engine::PersonIndex, QString> labels_;
};

} // namespace lineara

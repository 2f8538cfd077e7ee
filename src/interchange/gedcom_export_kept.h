#pragma once

#include "gedcom_export_families.h"
#include "gedcom_export_record.h"

#include "platform/outcome.h"
#include "platform/progress.h"

#include <QString>

#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace lineara {

class ObjectContext;

/// A record as it was imported. The views look into the content.
struct KeptRecord
{
    std::string_view text;
    std::string_view tag;  ///< empty if its first line is none of level 0
    std::string_view xref; ///< empty if it has none
    std::optional<ExportPerson> person;
    bool isLeftOut = false; ///< the record of a person that is no more
    bool isDoubled = false; ///< pointers at its cross-reference don't mean it, even if what they meant is no more
};

/// The imported records of a family, and how they point at each other.
class KeptRecords
{
public:
    /// `family` outlives the records.
    KeptRecords(const FamilyContent& family, const ExportGraph& graph);

    std::size_t size() const { return records_.size(); }
    bool isEmpty() const { return records_.empty(); }
    const KeptRecord& operator[](std::size_t record) const { return records_[record]; }

    /// How they are written; 5.5.1 if nothing says so.
    GedcomDialect dialect() const { return dialect_; }

    /// The record that pointers to `xref` mean: the first one that defined it, unless that is no more.
    std::optional<std::size_t> target(std::string_view xref) const;
    std::optional<std::size_t> recordOf(ExportPerson person) const { return byPerson_[person]; }

    /// Whether a pointer of the record leads nowhere, but led to a person's record when it was imported.
    bool isMissed(std::size_t record, const GedcomLine& pointer) const;

    QString sharedNote(std::string_view xref) const;

    EditedRecord edited(std::size_t record) const { return {records_[record].text, dialect_}; }

    /// What the import makes of the records: persons in their order, behind them those who were removed, by no more
    /// than their names in families. Without these the import would take what it refused because of them.
    Outcome<std::unique_ptr<ObjectContext>> imported(const Progress& progress) const;

private:
    void readVersion();
    void appendTo(QByteArray& text, const KeptRecord& record) const;
    std::set<std::string_view> missedMembers() const;

    std::vector<KeptRecord> records_;
    std::vector<std::optional<std::size_t>> byPerson_;
    std::unordered_map<std::string_view, std::size_t> targets_;
    /// By record: what its pointers named in vain when it was imported.
    std::unordered_map<std::size_t, std::unordered_set<std::string_view>> dangling_;
    QString version_;
    GedcomDialect dialect_ = GedcomDialect::Five;
    bool hasGaps_ = false;       ///< records of the file are missing: their persons were removed
    bool knowsDangling_ = false; ///< the import noted which pointers led nowhere
};

} // namespace lineara

#pragma once

#include "gedcom_records.h"
#include "model/record.h"
#include "xref_places.h"

#include <optional>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace lineara {

class ObjectContext;
class SourceRecord;
struct GedcomLine;

/// The record as readers of genealogies want it. The views look into its text.
GedcomRecord readableRecord(const SourceRecord& source);

/// The cross-references in the record that led nowhere when it was imported. Views into it.
std::unordered_set<std::string_view> danglingIn(const SourceRecord& source);

/// Finds the imported records of a family by their cross-references, and families by whom they name. It looks at all of
/// them once, when it is made; records that are removed later are not found while they are gone.
class ImportedIndex
{
public:
    /// The family outlives the index.
    explicit ImportedIndex(const ObjectContext& family);

    /// Whether the record was there when the index was made.
    bool knows(RecordId record) const;

    /// Whether the records are written as version 7.0 asks.
    bool isVersionSeven() const { return isVersionSeven_; }

    /// The record that pointers to `xref` mean; nullptr if there is none, or no more.
    const SourceRecord* target(std::string_view xref) const;

    /// The families that name somebody by `xref`, in the order of the file. Perhaps some others, too.
    std::vector<const SourceRecord*> familiesNaming(std::string_view xref) const;

    /// Whether pointers at nobody's record can be told from those at somebody who was removed. Families of older
    /// versions of the program don't know which pointers led nowhere when they were imported.
    bool knowsDangling() const { return knowsDangling_; }

private:
    void add(const SourceRecord& source);
    void readVersion(const SourceRecord& header);
    const SourceRecord* sourceAt(XrefPlaces::Place place) const;

    const ObjectContext& family_;
    std::vector<RecordId> ids_;
    XrefPlaces definitions_;
    XrefPlaces namedByFamilies_; // members, and what else stands there
    bool hasVersion_ = false;
    bool isVersionSeven_ = false;
    bool knowsDangling_ = false;
};

/// Tells which pointers of a record lead nowhere because the person whom they named was removed.
class MissedPointers
{
public:
    /// The record and the index outlive this.
    MissedPointers(const SourceRecord& record, const ImportedIndex& index) : record_(record), index_(index) {}

    bool contains(const GedcomLine& pointer);

private:
    const SourceRecord& record_;
    const ImportedIndex& index_;
    std::optional<std::unordered_set<std::string_view>> vain_; // named in vain from the first; once it was asked for
};

} // namespace lineara

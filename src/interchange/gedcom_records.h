#pragma once

#include "platform/progress.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace lineara {

class ImportNotes;

/// What a pointer names that is to lead nowhere.
inline constexpr std::string_view pointsAtNobody = "VOID";

/// Place of a record in a file, from 0.
using RecordIndex = std::uint32_t;

/// A record of a file. The views look into the text that was read.
struct GedcomRecord
{
    std::string_view text;  ///< its lines, each ended by LF but perhaps the last of the file
    std::string_view tag;   ///< of its first line; empty if that is unreadable or not of level 0
    std::string_view xref;  ///< empty if it has none
    std::uint32_t line = 1; ///< number of its first line in the file
};

/// Finds records by their cross-references, each of which the first one keeps. Large genealogies ask a million times,
/// all over the file, so the table lies flat in memory and looks at the text of a record only where the hash agrees.
class XrefTable
{
public:
    /// The records outlive the table and stay where they are.
    void fill(const std::vector<GedcomRecord>& records);
    std::optional<RecordIndex> find(const std::vector<GedcomRecord>& records, std::string_view xref) const;

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        RecordIndex next = 0; ///< the record's place plus one; 0 if the slot is empty
    };
    /// The slot of that cross-reference, or the empty one where it would stand.
    std::size_t slotOf(const std::vector<GedcomRecord>& records, std::string_view xref, std::uint32_t hash) const;

    std::vector<Slot> slots_; // a power of two, at most half full
};

/// Where the records of a file begin, and what they are called. A record reaches from one line of level 0 to the next,
/// whatever stands between. What comes before the first one is a record of its own without a tag, so that the records
/// put together are the whole file.
class GedcomRecords
{
public:
    /// `text` has no line ends but LF, and outlives the records. Unfinished if the progress is stopped meanwhile.
    static GedcomRecords read(std::string_view text, const Progress& progress);

    std::size_t size() const { return records_.size(); }
    const GedcomRecord& operator[](RecordIndex index) const { return records_[index]; }

    /// The record that pointers to `xref` mean: the first one that defines it; no value for `pointsAtNobody`.
    std::optional<RecordIndex> target(std::string_view xref) const;

    /// The version that the header names; empty if none.
    std::string_view version() const { return version_; }
    bool isVersionSeven() const { return version_.starts_with('7'); }

    /// Tells every record that pointers can't mean: its cross-reference is that of an earlier one, or stands for
    /// nobody.
    void tellUnreachable(ImportNotes& notes) const;

private:
    void add(std::string_view text, std::uint32_t line);
    void findVersion();

    std::vector<GedcomRecord> records_;
    XrefTable targets_;
    std::string_view version_;
};

} // namespace lineara

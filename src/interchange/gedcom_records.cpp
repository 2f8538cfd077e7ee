#include "gedcom_records.h"

#include "gedcom_line.h"
#include "import_notes.h"
#include "import_texts.h"

#include <bit>
#include <functional>

namespace lineara {
namespace {

/// Whether a line is of level 0, readable or not.
bool beginsRecord(std::string_view line)
{
    const auto first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos || line[first] != '0')
        return false;
    return GedcomLineReader(line).next()->level == 0;
}

std::uint32_t hashOf(std::string_view xref)
{
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(xref));
}

} // namespace

std::size_t XrefTable::slotOf(const std::vector<GedcomRecord>& records, std::string_view xref, std::uint32_t hash) const
{
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].next != 0 && (slots_[at].hash != hash || records[slots_[at].next - 1].xref != xref))
        at = (at + 1) & mask;
    return at;
}

void XrefTable::fill(const std::vector<GedcomRecord>& records)
{
    slots_.assign(std::bit_ceil(2 * records.size() + 1), Slot());
    for (RecordIndex index = 0; index < records.size(); ++index) {
        const std::string_view xref = records[index].xref;
        if (xref.empty())
            continue;
        const std::uint32_t hash = hashOf(xref);
        Slot& slot = slots_[slotOf(records, xref, hash)];
        if (slot.next == 0)
            slot = {hash, index + 1};
    }
}

std::optional<RecordIndex> XrefTable::find(const std::vector<GedcomRecord>& records, std::string_view xref) const
{
    if (slots_.empty())
        return std::nullopt;
    const Slot& slot = slots_[slotOf(records, xref, hashOf(xref))];
    return slot.next == 0 ? std::nullopt : std::optional<RecordIndex>(slot.next - 1);
}

GedcomRecords GedcomRecords::read(std::string_view text, const Progress& progress)
{
    GedcomRecords records;
    std::size_t begin = 0;
    std::uint32_t firstLine = 1;
    std::uint32_t number = 1;
    for (std::size_t at = 0; at < text.size(); ++number) {
        if (!progress.goesOn(number, at, text.size()))
            return records;
        const auto end = text.find('\n', at);
        const auto next = end == std::string_view::npos ? text.size() : end + 1;
        if (at > begin && beginsRecord(text.substr(at, next - at))) {
            records.add(text.substr(begin, at - begin), firstLine);
            begin = at;
            firstLine = number;
        }
        at = next;
    }
    if (begin < text.size())
        records.add(text.substr(begin), firstLine);
    records.targets_.fill(records.records_);
    records.findVersion();
    return records;
}

void GedcomRecords::add(std::string_view text, std::uint32_t line)
{
    GedcomRecord record{.text = text, .tag = {}, .xref = {}, .line = line};
    const auto first = GedcomLineReader(text).next();
    if (first && first->level == 0) {
        record.tag = first->tag;
        record.xref = first->xref;
    }
    records_.push_back(record);
}

void GedcomRecords::findVersion()
{
    if (records_.empty())
        return;
    // Blank lines may stand before the header.
    const RecordIndex header = records_.front().tag.empty() && records_.size() > 1 ? 1 : 0;
    if (records_[header].tag != "HEAD")
        return;
    GedcomLineReader lines(records_[header].text);
    std::string_view section;
    while (const auto line = lines.next()) {
        if (line->level == 1)
            section = line->tag;
        if (line->level == 2 && section == "GEDC" && line->tag == "VERS") {
            version_ = line->value;
            return;
        }
    }
}

std::optional<RecordIndex> GedcomRecords::target(std::string_view xref) const
{
    if (xref == pointsAtNobody)
        return std::nullopt;
    return targets_.find(records_, xref);
}

void GedcomRecords::tellUnreachable(ImportNotes& notes) const
{
    for (RecordIndex index = 0; index < records_.size(); ++index) {
        const GedcomRecord& record = records_[index];
        if (record.xref == pointsAtNobody)
            notes.remark(record.line, ImportTexts::tr("nothing can point at this record, because %1 stands for nobody")
                                          .arg(inQuotes(record.xref)));
        const auto first = record.xref.empty() ? std::nullopt : target(record.xref);
        if (!first || *first == index)
            continue;
        notes.remark(record.line,
                     ImportTexts::tr("%1 is defined by line %2 already; what points at it means the record there")
                         .arg(inQuotes(record.xref))
                         .arg(records_[*first].line));
    }
}

} // namespace lineara

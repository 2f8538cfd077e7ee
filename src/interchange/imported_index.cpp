#include "imported_index.h"

#include "gedcom_pointer.h"
#include "model/object_context.h"

#include <algorithm>

namespace lineara {
namespace {

std::string_view viewOfBytes(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// Shows whatever stands between two @ signs of one line: every pointer, and more, without the time that reading lines
/// takes.
template<class See>
void forEachBetweenSigns(std::string_view text, See see)
{
    for (auto open = text.find('@'); open != std::string_view::npos;) {
        const auto close = text.find_first_of("@\n", open + 1);
        if (close == std::string_view::npos)
            return;
        if (text[close] == '@')
            see(text.substr(open + 1, close - open - 1));
        open = text[close] == '@' ? close : text.find('@', close);
    }
}

/// Whether pointers can mean the record: not if an earlier one had the same cross-reference.
bool isReachable(const GedcomRecord& record, const SourceRecord& source)
{
    if (record.xref.empty() || record.xref == pointsAtNobody)
        return false;
    return source.origin().dangling.isEmpty() || !danglingIn(source).contains(record.xref);
}

/// Of its value perhaps only the beginning: a whole record may be one line, and thousands may point at it.
std::optional<GedcomLine> firstLineOf(std::string_view text)
{
    constexpr std::size_t mostRead = 1'000;
    const auto beginning = text.substr(0, mostRead);
    const auto line = GedcomLineReader(beginning).next();
    const bool isWhole = line && line->number == 1 && beginning.find('\n') != std::string_view::npos;
    const bool isCutInItsValue = line && line->defect == LineDefect::None && !line->value.empty();
    return isWhole || isCutInItsValue ? line : GedcomLineReader(text).next();
}

} // namespace

GedcomRecord readableRecord(const SourceRecord& source)
{
    GedcomRecord record;
    record.text = viewOfBytes(source.text());
    record.line = static_cast<std::uint32_t>(std::max(source.origin().line, 1));
    if (const auto first = firstLineOf(record.text); first && first->level == 0) {
        record.tag = first->tag;
        record.xref = first->xref;
    }
    return record;
}

std::unordered_set<std::string_view> danglingIn(const SourceRecord& source)
{
    return parted(viewOfBytes(source.origin().dangling));
}

ImportedIndex::ImportedIndex(const ObjectContext& family) : family_(family)
{
    const auto sources = family.allSources();
    ids_.reserve(sources.size());
    for (const SourceRecord* source : sources)
        add(*source);
    definitions_.finish();
    namedByFamilies_.finish();
}

void ImportedIndex::add(const SourceRecord& source)
{
    const auto place = static_cast<XrefPlaces::Place>(ids_.size());
    ids_.push_back(source.recordId());
    const GedcomRecord record = readableRecord(source);
    knowsDangling_ = knowsDangling_ || !source.origin().dangling.isNull();
    if (isReachable(record, source))
        definitions_.add(record.xref, place);
    if (record.tag == "HEAD")
        readVersion(source);
    if (record.tag != "FAM")
        return;
    forEachBetweenSigns(record.text.substr(std::min(record.text.find('\n'), record.text.size())),
                        [&](std::string_view xref) { namedByFamilies_.add(xref, place); });
}

/// The first header counts.
void ImportedIndex::readVersion(const SourceRecord& header)
{
    if (hasVersion_)
        return;
    hasVersion_ = true;
    const GedcomTree lines(readableRecord(header), false);
    const auto format = lines.child(0, "GEDC");
    const auto version = format ? lines.child(*format, "VERS") : std::nullopt;
    isVersionSeven_ = version && lines[*version].line.value.starts_with('7');
}

bool ImportedIndex::knows(RecordId record) const
{
    return std::ranges::binary_search(ids_, record.number, {}, &RecordId::number);
}

const SourceRecord* ImportedIndex::sourceAt(XrefPlaces::Place place) const
{
    return family_.source(ids_[place]);
}

const SourceRecord* ImportedIndex::target(std::string_view xref) const
{
    for (const XrefPlaces::Place place : definitions_.find(xref)) {
        const SourceRecord* const source = sourceAt(place);
        if (source && readableRecord(*source).xref == xref)
            return source;
    }
    return nullptr;
}

std::vector<const SourceRecord*> ImportedIndex::familiesNaming(std::string_view xref) const
{
    std::vector<const SourceRecord*> families;
    for (const XrefPlaces::Place place : namedByFamilies_.find(xref)) {
        if (const SourceRecord* const source = sourceAt(place))
            families.push_back(source);
    }
    return families;
}

bool MissedPointers::contains(const GedcomLine& pointer)
{
    if (!index_.knowsDangling() || !leadsToARecord(pointer))
        return false;
    if (!vain_) {
        vain_ = danglingIn(record_);
        // Pointers at a record's own cross-reference led to the earlier record that has the same one.
        vain_->erase(readableRecord(record_).xref);
    }
    return !vain_->contains(pointer.value) && !index_.target(pointer.value);
}

} // namespace lineara

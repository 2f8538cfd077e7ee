#include "gedcom_pointer.h"

#include "import_texts.h"
#include "node_ledger.h"

#include <algorithm>
#include <set>

namespace lineara {

bool leadsToARecord(const GedcomLine& line)
{
    return line.isPointer && !isContinuation(line.tag) && line.value != pointsAtNobody;
}

QByteArray danglingPointers(const GedcomRecords& records, RecordIndex record)
{
    std::set<std::string_view> dangling;
    forEachPointer(records[record].text, [&](const GedcomLine& line) {
        if (!records.target(line.value))
            dangling.insert(line.value);
    });
    const GedcomRecord& own = records[record];
    if (!own.xref.empty() && records.target(own.xref) != record)
        dangling.insert(own.xref);
    QByteArray joined(dangling.empty() ? "" : "@");
    for (const std::string_view xref : dangling)
        joined.append(xref.data(), static_cast<qsizetype>(xref.size())).append('@');
    return joined;
}

std::unordered_set<std::string_view> parted(std::string_view danglingPointers)
{
    std::unordered_set<std::string_view> xrefs;
    for (auto open = danglingPointers.find('@'); open != std::string_view::npos;) {
        const auto close = danglingPointers.find('@', open + 1);
        if (close != std::string_view::npos)
            xrefs.insert(danglingPointers.substr(open + 1, close - open - 1));
        open = close;
    }
    return xrefs;
}

std::optional<RecordIndex> followPointer(const GedcomRecords& records, const GedcomTree& tree, NodeLedger& ledger,
                                         NodeIndex line, std::initializer_list<std::string_view> tags)
{
    const GedcomLine& pointer = tree[line].line;
    if (!pointer.isPointer) {
        ledger.reject(line, ImportTexts::tr("it does not point at a record"));
        return std::nullopt;
    }
    if (pointer.value == pointsAtNobody) {
        ledger.reject(line, ImportTexts::tr("it points at nobody"));
        return std::nullopt;
    }
    const auto target = records.target(pointer.value);
    if (!target) {
        ledger.reject(line, ImportTexts::tr("it points at a record that is not in the file"));
        return std::nullopt;
    }
    if (std::find(tags.begin(), tags.end(), records[*target].tag) == tags.end()) {
        ledger.reject(line, ImportTexts::tr("it points at a record of another kind"));
        return std::nullopt;
    }
    return target;
}

} // namespace lineara

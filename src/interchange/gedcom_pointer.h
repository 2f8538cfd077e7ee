#pragma once

#include "gedcom_tree.h"

#include <QByteArray>

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace lineara {

class NodeLedger;

/// Whether the line is to lead to a record. A continuation that looks like a pointer is text.
bool leadsToARecord(const GedcomLine& line);

/// Shows every line of a text (with line ends LF) that is to lead to a record. Looks at no others than those with an @,
/// because whole genealogies pass through it.
template<class See>
void forEachPointer(std::string_view text, See see)
{
    for (auto at = text.find('@'); at != std::string_view::npos; at = text.find('@', at)) {
        const auto begin = text.rfind('\n', at) + 1;
        at = std::min(text.find('\n', at), text.size());
        const auto line = GedcomLineReader(text.substr(begin, at - begin)).next();
        if (line && leadsToARecord(*line))
            see(*line);
    }
}

/// The cross-references that pointers of the record name and no record has, as SourceOrigin::dangling holds them; among
/// them the record's own if pointers at that don't mean it.
QByteArray danglingPointers(const GedcomRecords& records, RecordIndex record);

/// Views of these.
std::unordered_set<std::string_view> parted(std::string_view danglingPointers);

/// The record with one of these tags that the line points at. Where there is none, the line is told in the ledger.
std::optional<RecordIndex> followPointer(const GedcomRecords& records, const GedcomTree& tree, NodeLedger& ledger,
                                         NodeIndex line, std::initializer_list<std::string_view> tags);

} // namespace lineara

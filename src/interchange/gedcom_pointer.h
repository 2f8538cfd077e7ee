#pragma once

#include "gedcom_tree.h"

#include <initializer_list>
#include <optional>
#include <string_view>

namespace lineara {

class NodeLedger;

/// The record with one of these tags that the line points at. Where there is none, the line is told in the ledger.
std::optional<RecordIndex> followPointer(const GedcomRecords& records, const GedcomTree& tree, NodeLedger& ledger,
                                         NodeIndex line, std::initializer_list<std::string_view> tags);

} // namespace lineara

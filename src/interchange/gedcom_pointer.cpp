#include "gedcom_pointer.h"

#include "import_texts.h"
#include "node_ledger.h"

#include <algorithm>

namespace lineara {
namespace {

constexpr std::string_view pointsAtNobody = "VOID";

} // namespace

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

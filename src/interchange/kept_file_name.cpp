#include "kept_file_name.h"

#include "archive_names.h"
#include "file_addresses.h"
#include "gedcom_tree.h"
#include "own_tags.h"

#include <algorithm>

namespace lineara {
namespace {

/// Whether an export, to an archive or not, may give a file of that name this address.
bool mayStandFor(const QString& address, const QString& name)
{
    const QString plain = addressOfName(name);
    if (address == plain || isMadePlace(address))
        return true;
    for (const auto& place : {nearestPlace(name), nearestPlace(plain)}) {
        if (place && address == addressOfPlace(*place))
            return true;
    }
    return false;
}

} // namespace

std::optional<EditedRecord::Line> keptFileName(const EditedRecord& lines, EditedRecord::Line file,
                                               const QString& address)
{
    const auto isContinued = [&](EditedRecord::Line line) { return isContinuation(lines[line].tag); };
    for (const EditedRecord::Line kept : lines.children(file, keptFileTag)) {
        if (std::ranges::all_of(lines.children(kept), isContinued) && mayStandFor(address, lines.text(kept)))
            return kept;
    }
    return std::nullopt;
}

} // namespace lineara

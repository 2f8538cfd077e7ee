#pragma once

#include "model/record.h"

#include <vector>

namespace lineara {

class Pool;

/// The members whom the person is descended from; nobody if the person is not among them.
std::vector<RecordId> ancestorsOf(const Pool& pool, RecordId person);

/// The members descended from the person, and whom these have a partnership or children with; without the person.
std::vector<RecordId> descendantsWithPartnersOf(const Pool& pool, RecordId person);

} // namespace lineara

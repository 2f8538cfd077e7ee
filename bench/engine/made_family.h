#pragma once

#include "model/object_context.h"

#include <cstddef>
#include <memory>

namespace lineara {

/// A family of couples in rows, 12 rows for a thousand persons and 40 for many, about two links a person. Children come
/// from any couple of the row above. Of a thousand persons `straying` marry into another row, so that there is
/// something to refuse, to equalise and to push. The same every time.
std::unique_ptr<ObjectContext> madeFamily(std::size_t persons, unsigned straying);

} // namespace lineara

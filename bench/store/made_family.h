#pragma once

#include "model/object_context.h"

#include <cstddef>
#include <memory>

namespace lineara {

/// A family of so many persons with names, dates, notes, rows and places, and about two links a person. The same
/// every time.
std::unique_ptr<ObjectContext> madeFamily(std::size_t persons);

} // namespace lineara

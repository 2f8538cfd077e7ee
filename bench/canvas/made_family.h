#pragma once

#include "model/object_context.h"

#include <memory>

namespace lineara::bench {

/// A family that stands in its rows already: about two links a person (0.4 to partners, 1.6 from parents), one in a
/// hundred of them up to 30,000 points long. The same one for the same size.
std::unique_ptr<ObjectContext> madeFamily(std::uint32_t persons);

/// Rows of a made family of that size.
std::uint32_t rowsOfMadeFamily(std::uint32_t persons);

} // namespace lineara::bench

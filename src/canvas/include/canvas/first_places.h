#pragma once

namespace lineara {

class Pool;

/// Gives every person of the pool that has no x a place of its own, families together, so that nobody overlaps; the
/// generations must be worked out. Persons that have an x keep it, and all others stand to the right of them.
void giveFirstPlaces(Pool& pool);

} // namespace lineara

#pragma once

namespace lineara::store {

/// Gives the open file what is attached to the file at `from` beside its permissions: access control lists and whatever
/// the user's programs noted there. What the system does not let pass is left out.
void copyExtendedAttributes(const char* from, int to);

} // namespace lineara::store

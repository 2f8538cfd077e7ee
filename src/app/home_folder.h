#pragma once

namespace lineara {

/// Makes the environment say where the user's home is, as the system knows it, where it does not say so itself: the
/// toolkit would take the root of all folders instead.
void settleHomeFolder();

} // namespace lineara

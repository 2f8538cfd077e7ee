#pragma once

#include "layout/row_solver.h"

namespace lineara::layout {

/// What `solveRow` promises, found the long way: every whole place is tried for every node, and each node is put where
/// the rightmost of all best solutions has it. For small rows and numbers.
std::vector<std::int64_t> literallySolved(const std::vector<RowNode>& row);

} // namespace lineara::layout

#pragma once

#include "chart.h"

#include <cstdint>
#include <numeric>
#include <span>
#include <vector>

namespace lineara::layout {

/// The chart of all persons of a family, connected or not.
inline Chart wholeChart(const engine::FamilyGraph& family, const std::vector<engine::Generation>& rows,
                        std::span<const std::int32_t> birthYears = {})
{
    std::vector<engine::PersonIndex> everybody(family.persons());
    std::iota(everybody.begin(), everybody.end(), engine::PersonIndex{0});
    return ChartBuilder(family, rows, birthYears).build(everybody);
}

} // namespace lineara::layout

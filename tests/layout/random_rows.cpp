#include "random_rows.h"

namespace lineara::layout {

std::vector<RowNode> RandomRow::nodes() const
{
    std::vector<RowNode> row;
    for (const std::size_t node : rowOrder(lefts))
        row.push_back({lefts[node], widths[node], stood[node]});
    return row;
}

RandomRow randomRow(Random& random, const RowMeasure& measure)
{
    RandomRow row;
    for (std::size_t node = 0; node < measure.nodes; ++node) {
        row.lefts.push_back(upTo(random, measure.spread) - measure.spread / 3);
        row.widths.push_back(upTo(random, measure.widest));
        row.stood.push_back(upTo(random, 2) > 0);
    }
    return row;
}

std::int32_t upTo(Random& random, std::int32_t highest)
{
    return static_cast<std::int32_t>(random() % (static_cast<std::uint32_t>(highest) + 1));
}

} // namespace lineara::layout

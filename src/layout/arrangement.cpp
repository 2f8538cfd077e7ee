#include "arrangement.h"

namespace lineara::layout {

void Pull::add(const Chart& chart, const Arrangement& arrangement, BlockIndex block, std::span<const Spring> springs,
               double factor)
{
    for (const Spring& spring : springs)
        add(arrangement.placeOf(chart, spring.other), arrangement.within(chart, {block, spring.own}),
            factor * spring.weight);
}

StraightLine::StraightLine(const Chart& chart, const Arrangement& arrangement, const ChildLine& line)
    : from((arrangement.placeOf(chart, line.firstParent) + arrangement.placeOf(chart, line.secondParent)) / 2),
      to(arrangement.placeOf(chart, line.child)), top(chart.topOf(line)), bottom(chart.bottomOf(line))
{}

} // namespace lineara::layout

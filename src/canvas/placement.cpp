#include "canvas/placement.h"

#include "elements/leaf_view.h"
#include "elements/random_source.h"
#include "model/person.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lineara {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();

std::int32_t saturated(std::int64_t value)
{
    return static_cast<std::int32_t>(std::clamp(value, -largest - 1, largest));
}

} // namespace

std::int32_t rowConstant(std::optional<std::int32_t> generation)
{
    const std::int64_t row = std::max(generation.value_or(0), 0);
    return -saturated(rowPitch * row + bottomMargin);
}

double newPersonConstant(const std::optional<Frame>& visible)
{
    return -((visible ? visible->y : 0.0) + newNodeLift);
}

std::int32_t newPersonX(const std::optional<Frame>& visible, RandomSource& random)
{
    if (!visible)
        return 0;
    const double half = 0.5 * visible->width;
    const auto bound = static_cast<std::uint32_t>(std::max(truncated(half), 0));
    return truncated(visible->x + half - random.below(bound));
}

void standInRow(LeafView& node)
{
    const Person& person = node.person();
    node.setXConstraint({static_cast<double>(person.x().value_or(0)), horizontalPlacementPriority});
    node.setYConstraint({static_cast<double>(rowConstant(person.generation())), requiredPriority});
}

QSize firstFrame(int viewWidth, std::int32_t maxGenerationSize, std::int32_t maxGeneration)
{
    const std::int32_t rows = saturated(std::int64_t{maxGeneration} * rowPitch + (rowPitch + 52));
    const std::int32_t widest = saturated(std::int64_t{maxGenerationSize} * placePerPerson + 2 * placePerPerson);
    return {std::max(viewWidth, widest), rows};
}

std::int32_t trimDistance(double smallest)
{
    return smallest > leftTrimMargin ? truncated(smallest - leftTrimMargin) : 0;
}

std::int32_t leftEdgeDistance(double smallest)
{
    return smallest < 0 ? truncated(smallest) : 0;
}

std::int32_t truncated(double value)
{
    if (std::isnan(value))
        return 0;
    const auto limit = static_cast<double>(largest);
    return static_cast<std::int32_t>(std::clamp(value, -limit - 1, limit));
}

} // namespace lineara

#include "canvas/placement.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace lineara {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();

std::int32_t saturated(std::int64_t value)
{
    return static_cast<std::int32_t>(std::clamp(value, -largest - 1, largest));
}

} // namespace

RandomBelow systemRandom()
{
    return [](std::uint32_t bound) { return bound == 0 ? 0 : QRandomGenerator::global()->bounded(bound); };
}

std::int32_t rowConstant(std::optional<std::int32_t> generation)
{
    const std::int64_t row = std::max(generation.value_or(0), 0);
    return -saturated(rowPitch * row + bottomMargin);
}

double newPersonConstant(const std::optional<Frame>& visible)
{
    return -((visible ? visible->y : 0.0) + newNodeLift);
}

std::int32_t newPersonX(const std::optional<Frame>& visible, const RandomBelow& random)
{
    if (!visible)
        return 0;
    const double half = 0.5 * visible->width;
    const auto bound = static_cast<std::uint32_t>(std::max(truncated(half), 0));
    return truncated(visible->x + half - random(bound));
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
    const double limit = static_cast<double>(largest);
    return static_cast<std::int32_t>(std::clamp(value, -limit - 1, limit));
}

} // namespace lineara

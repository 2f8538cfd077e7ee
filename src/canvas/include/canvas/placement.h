#pragma once

#include "elements/geometry.h"

#include <QSize>

#include <cstdint>
#include <optional>

namespace lineara {

class LeafView;
class RandomSource;

inline constexpr std::int32_t rowPitch = 221;         ///< between two generation rows
inline constexpr std::int32_t bottomMargin = 9;       ///< from the canvas bottom to the bottom of row 0
inline constexpr std::int32_t newNodeLift = 221 + 29; ///< of a new node above the bottom of the visible area
inline constexpr std::int32_t placePerPerson = 152;   ///< width that the first frame reserves for each of a row
inline constexpr double besideRelative = 21.0;        ///< from somebody who has a row to a new relative who has none
inline constexpr double leftTrimMargin = 253.0;       ///< where the leftmost node may stand at creation

/// Vertical constant of a node of that row: how far its bottom edge lies from the canvas bottom, up is negative.
/// Persons without a generation, or with one below 0, stand in row 0. Rows too high for 32 bits share the highest
/// place.
std::int32_t rowConstant(std::optional<std::int32_t> generation);

/// Vertical constant of a person just created, `visible` being the part of the canvas in view; without a view the lift
/// is measured from the canvas bottom.
double newPersonConstant(const std::optional<Frame>& visible);

/// Place of a person just created: at random in the left half of the visible area, 0 without a view.
std::int32_t newPersonX(const std::optional<Frame>& visible, RandomSource& random);

/// Places a node where its person's x and generation say.
void standInRow(LeafView& node);

/// The canvas that a family starts with, in points: every row has room for its persons, and the highest has its own
/// place below the top edge. Saturates at 32 bits.
QSize firstFrame(int viewWidth, std::int32_t maxGenerationSize, std::int32_t maxGeneration);

/// Whole points by which a family whose leftmost node stands at `smallest` is moved left at creation; 0 for none.
std::int32_t trimDistance(double smallest);

/// Whole points (never positive) by which everybody is to be moved left, so that a leftmost node at a negative
/// `smallest` ends at the canvas's left edge; 0 if it already stands within the canvas.
std::int32_t leftEdgeDistance(double smallest);

/// Whole number nearest to `value` towards zero; what is not finite or beyond 32 bits ends at 0 or at the limits.
std::int32_t truncated(double value);

} // namespace lineara

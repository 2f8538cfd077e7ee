#pragma once

#include "elements/geometry.h"
#include "elements/placement_constraint.h"

#include <QColor>
#include <QPainterPath>

#include <array>
#include <cstdint>

class QImage;

namespace lineara {

class Person;
class RandomSource;

/// What the picture part shows of a person's picture.
struct ImageLayer
{
    const QImage* contents = nullptr; ///< nullptr: nothing. Looks only; valid until the person's picture changes
    Frame frame;                      ///< in the part's own coordinates
    double borderWidth = 0;
    QColor borderColor;
};

/// The picture part of a node: the person's picture, 72 points high, or two leaves tilted by angles of their own.
class LeafImageView
{
public:
    /// Each leaf tilts by one of 39 angles, a hundredth of a radian apart.
    static constexpr std::uint32_t angleCount = 39;

    /// Draws both angles, which stay for as long as the view exists, and shows the person's picture.
    LeafImageView(Person& person, RandomSource& random);

    Person& person() const { return *person_; }

    /// Shows the person's picture, or the leaves when there is none. To be called when the picture has changed.
    void refreshImage();
    /// The leaves, 72 points wide.
    void drawDefaultImage();

    ImageLayer imageLayer() const;
    double leafOpacity() const { return showsPicture_ ? 0.0 : 1.0; }
    /// The width that the picture asks for: 72, or what its proportions give; 0 for a damaged picture. Always finite.
    /// The node's required greatest width stands above it.
    PlacementConstraint widthConstraint() const;

    /// Tilt of the first and the second leaf in radians, positive counter-clockwise on screen.
    std::array<double, 2> rotations() const;
    /// Which of the possible angles of its leaf the first and the second leaf have.
    std::array<std::uint8_t, 2> rotationSteps() const { return rotationSteps_; }
    static double firstRotation(std::uint32_t step);
    static double secondRotation(std::uint32_t step);

    /// Outline of an upright leaf in a box of 72 x 53 points, y upwards; the stem stands at (36, 3), the tip at (36,
    /// 45).
    static QPainterPath leafOutline();
    /// The path turned about (36, 0) by an angle in radians, y upwards.
    static QPainterPath createRotatedLeaf(const QPainterPath& path, double angle);

private:
    Person* person_;
    double width_ = 0;
    std::array<std::uint8_t, 2> rotationSteps_{};
    bool showsPicture_ = false;
};

} // namespace lineara

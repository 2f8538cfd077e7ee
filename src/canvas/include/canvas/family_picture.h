#pragma once

#include "elements/geometry.h"

#include <QSizeF>

class QPainter;

namespace lineara {

class FamilyScene;

/// The whole family as one picture with every detail, for files and printers. The same family gives the same picture.
class FamilyPicture
{
public:
    /// Points around the nodes that stay free.
    static constexpr double margin = 20;

    /// Looks at the scene, which must outlive the picture.
    explicit FamilyPicture(const FamilyScene& scene);

    /// What the picture shows of the canvas; an empty family gives an empty margin.
    const Frame& frame() const { return frame_; }
    QSizeF size() const { return {frame_.width, frame_.height}; }

    /// Draws on white with the picture's top left corner at the painter's origin, one unit for each point.
    void paint(QPainter& painter) const;

private:
    const FamilyScene& scene_;
    Frame frame_;
};

} // namespace lineara

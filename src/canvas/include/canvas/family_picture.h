#pragma once

#include "canvas/picture_part.h"
#include "elements/detail.h"
#include "elements/geometry.h"

#include <QSizeF>

class QPainter;

namespace lineara {

class FamilyScene;

/// A family, or a part of it, as one picture with every detail, for files and printers. The same family gives the same
/// picture, whatever is selected or pointed at.
class FamilyPicture
{
public:
    /// Points around the nodes that stay free.
    static constexpr double margin = 20;

    /// Looks at the scene, which must outlive the picture.
    explicit FamilyPicture(const FamilyScene& scene, PicturePart part = {});

    const FamilyScene& scene() const { return scene_; }
    const PicturePart& part() const { return part_; }

    /// What the picture shows of the canvas; an empty family gives an empty margin.
    const Frame& frame() const { return frame_; }
    QSizeF size() const { return {frame_.width, frame_.height}; }

    /// Whether an area, counted from the picture's top left corner, shows nothing at all. May take a nearly empty one
    /// for one that shows something.
    bool isBlank(const QRectF& area) const;

    /// Draws on white with the picture's top left corner at the painter's origin, one unit for each point.
    void paint(QPainter& painter) const;

    /// The same with as little detail as the painter's zoom asks for, soon enough to be looked at while its size
    /// changes. The painter draws pixels.
    void paintPreview(QPainter& painter) const;

private:
    const FamilyScene& scene_;
    PicturePart part_;
    Frame frame_;
};

} // namespace lineara

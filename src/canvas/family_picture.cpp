#include "canvas/family_picture.h"

#include "canvas/canvas_painter.h"
#include "canvas/family_scene.h"
#include "canvas/picture_drawing.h"
#include "elements/leaf_view.h"

#include <QPainter>

#include <algorithm>
#include <limits>
#include <utility>

namespace lineara {

namespace {

/// The smallest frame around the nodes of a part; an empty one at (0, 0) without any.
Frame boundsOf(const FamilyScene& scene, const PicturePart& part)
{
    if (!part.persons)
        return scene.bounds().value_or(Frame{});
    constexpr double far = std::numeric_limits<double>::infinity();
    double left = far;
    double bottom = far;
    double right = -far;
    double top = -far;
    for (const LeafView* const node : scene.personLayer().nodes()) {
        if (!part.holds(node->person()))
            continue;
        const Frame frame = node->frame();
        left = std::min(left, frame.x);
        bottom = std::min(bottom, frame.y);
        right = std::max(right, frame.x + frame.width);
        top = std::max(top, frame.y + frame.height);
    }
    return left < far ? Frame{left, bottom, right - left, top - bottom} : Frame{};
}

} // namespace

FamilyPicture::FamilyPicture(const FamilyScene& scene, PicturePart part) : scene_(scene), part_(std::move(part))
{
    const Frame nodes = boundsOf(scene, part_);
    frame_ = {nodes.x - margin, nodes.y - margin, nodes.width + 2 * margin, nodes.height + 2 * margin};
}

bool FamilyPicture::isBlank(const QRectF& area) const
{
    const QRectF onCanvas = area.translated(toPicture(frame_).topLeft());
    bool isBlank = true;
    scene_.visitNodes(onCanvas, [&](const LeafView& node) { isBlank = isBlank && !part_.holds(node.person()); });
    scene_.visitLinks(onCanvas,
                      [&](const LinkLayer& link) { isBlank = isBlank && !part_.holds(link.source(), link.target()); });
    return isBlank;
}

void FamilyPicture::paint(QPainter& painter) const
{
    painter.fillRect(QRectF({}, size()), Qt::white);
    PictureDrawing drawing(*this, QRectF({}, size()));
    drawing.paintNext(painter, drawing.shapes());
}

void FamilyPicture::paintPreview(QPainter& painter) const
{
    const QRectF area = toPicture(frame_);
    const std::size_t nodes = part_.persons ? part_.persons->size() : scene_.countNodes(area);
    painter.save();
    painter.translate(-area.topLeft());
    CanvasPainter(NodePainter::Medium::Document, &part_)
        .paint(painter, scene_, area, detailAt(painter.worldTransform().m11(), nodes, Motion::Still));
    painter.restore();
}

} // namespace lineara

#include "canvas/family_picture.h"

#include "canvas/canvas_painter.h"
#include "canvas/family_scene.h"

#include <QPainter>

namespace lineara {

FamilyPicture::FamilyPicture(const FamilyScene& scene) : scene_(scene)
{
    const Frame nodes = scene.bounds().value_or(Frame{});
    frame_ = {nodes.x - margin, nodes.y - margin, nodes.width + 2 * margin, nodes.height + 2 * margin};
}

void FamilyPicture::paint(QPainter& painter) const
{
    const QRectF area = toPicture(frame_);
    painter.save();
    painter.translate(-area.topLeft());
    painter.fillRect(area, Qt::white);
    CanvasPainter(NodePainter::Medium::Document).paint(painter, scene_, area, Detail::Full);
    painter.restore();
}

} // namespace lineara

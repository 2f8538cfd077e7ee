#include "canvas/picture_drawing.h"

#include "canvas/family_picture.h"
#include "canvas/family_scene.h"
#include "elements/leaf_view.h"
#include "elements/link_painter.h"

#include <QPainter>

#include <algorithm>

namespace lineara {

PictureDrawing::PictureDrawing(const FamilyPicture& picture, const QRectF& area)
    : picture_(picture), nodePainter_(NodePainter::Medium::Document)
{
    const QRectF onCanvas = area.translated(toPicture(picture.frame()).topLeft());
    const PicturePart& part = picture.part();
    picture.scene().visitLinks(onCanvas, [&](LinkLayer& link) {
        if (part.holds(link.source(), link.target()))
            links_.push_back(&link);
    });
    picture.scene().visitNodes(onCanvas, [&](const LeafView& node) {
        if (part.holds(node.person()))
            nodes_.push_back(&node);
    });
}

bool PictureDrawing::paintNext(QPainter& painter, std::size_t shapes)
{
    const std::size_t end = std::min(this->shapes(), painted_ + shapes);
    painter.save();
    painter.translate(-toPicture(picture_.frame()).topLeft());
    painter.setRenderHint(QPainter::Antialiasing);
    paintLinks(painter, std::min(end, links_.size()));
    paintNodes(painter, end);
    painter.restore();
    return painted_ < this->shapes();
}

void PictureDrawing::paintLinks(QPainter& painter, std::size_t end)
{
    if (painted_ >= end)
        return;
    // However much of it is drawn at a time, a link is as smooth as in the whole picture.
    LinkPainter links(painter, Detail::Full, picture_.frame());
    links.leaveOutSelection();
    for (; painted_ < end; ++painted_) {
        LinkLayer& link = *links_[painted_];
        const bool isKept = link.hasPath();
        links.paint(link);
        if (!isKept)
            link.dropPath();
    }
}

void PictureDrawing::paintNodes(QPainter& painter, std::size_t end)
{
    for (; painted_ < end; ++painted_)
        nodePainter_.paint(painter, *nodes_[painted_ - links_.size()], Detail::Full);
}

} // namespace lineara

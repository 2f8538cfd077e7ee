#include "elements/node_painter.h"

#include "elements/colours.h"
#include "elements/leaf_view.h"
#include "model/person.h"
#include "node_shapes.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lineara {

namespace {

constexpr qsizetype shapeCacheBytes = 16 * 1024 * 1024;
constexpr qsizetype pictureCacheBytes = 48 * 1024 * 1024;
/// Beyond this size only few nodes are in view, and their pixmaps would be big: they are drawn as they are.
constexpr double greatestSpriteScale = 4;

enum class SpriteKind : std::uint8_t
{
    Panel,
    FocusedPanel,
    FirstLeaf,
    SecondLeaf,
    PartnerHandle,
    ChildHandle,
    HighlightedHandle
};

/// Scales that differ by less than one step draw alike.
constexpr double scaleSteps = 1024;

quint64 stepsOf(double scale)
{
    return static_cast<quint64>(std::lround(scale * scaleSteps));
}

quint64 sizeKey(double scale, double density)
{
    return (stepsOf(scale) << 40) | (stepsOf(density) << 16);
}

quint64 shapeKey(SpriteKind kind, std::uint32_t variant, double scale, double density)
{
    return sizeKey(scale, density) | (quint64{variant} << 8) | static_cast<quint64>(kind);
}

/// Draws into fresh transparent pixels that hold `bounds`, a rectangle in points of the picture.
template<class Draw>
QPixmap drawnPixels(const QRectF& bounds, double scale, double density, Draw draw)
{
    const auto pixelCount = [scale](double points) { return std::max(1, static_cast<int>(std::ceil(points * scale))); };
    QPixmap pixels(pixelCount(bounds.width()), pixelCount(bounds.height()));
    pixels.fill(Qt::transparent);
    {
        QPainter painter(&pixels);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.translate(-bounds.topLeft());
        draw(painter);
    }
    pixels.setDevicePixelRatio(density);
    return pixels;
}

qsizetype bytesOf(const QPixmap& pixels)
{
    return qsizetype{4} * pixels.width() * pixels.height();
}

SpriteKind kindOf(const ConnectorView& handle)
{
    if (handle.isHighlighted())
        return SpriteKind::HighlightedHandle;
    return handle.isPartnerHandle() ? SpriteKind::PartnerHandle : SpriteKind::ChildHandle;
}

QPointF leafOrigin(const LeafView& node)
{
    const Frame image = node.imageFrame();
    return toPicture(CanvasPoint{image.x, image.y});
}

} // namespace

NodePainter::NodePainter(Medium medium) : medium_(medium), shapes_(shapeCacheBytes), pictures_(pictureCacheBytes) {}

void NodePainter::beginPicture(const QPainter& painter, Motion motion)
{
    const double scale = painter.deviceTransform().m11();
    stretchedFrom_.reset();
    if (motion == Motion::Still)
        restingScale_ = scale;
    else if (stepsOf(scale) != stepsOf(restingScale_))
        stretchedFrom_ = std::exp2(std::round(std::log2(scale)));
}

void NodePainter::paint(QPainter& painter, const LeafView& node, Detail detail)
{
    const bool isFull = detail == Detail::Full;
    painter.setRenderHint(QPainter::Antialiasing, isFull);
    if (medium_ == Medium::Document || painter.deviceTransform().m11() > greatestSpriteScale)
        paintShapes(painter, node);
    else
        paintSprites(painter, node);
    if (isFull)
        paintTexts(painter, node);
    else
        paintTextBars(painter, node);
}

void NodePainter::paintShapes(QPainter& painter, const LeafView& node)
{
    const bool isDocument = medium_ == Medium::Document;
    const LeafInfoView& info = node.infoView();
    paintPanel(painter, toPicture(node.infoFrame()), info.backgroundColor(),
               isDocument ? colours::panelBorder() : info.borderColor());
    const LeafImageView& image = node.imageView();
    if (image.leafOpacity() > 0) {
        painter.translate(leafOrigin(node));
        for (const double angle : image.rotations())
            paintLeaf(painter, turnedLeaf(angle));
        painter.translate(-leafOrigin(node));
    } else {
        paintPicture(painter, image.imageLayer(), toPicture(node.imageFrame()));
    }
    for (const ConnectorView* handle : {&node.partnerHandle(), &node.childHandle()})
        paintHandle(painter, toPicture(handle->circle()), isDocument ? handle->fillColor() : handle->circleFill());
}

// Pixmaps are drawn pixel by pixel, so each is put at the nearest whole one.
void NodePainter::paintSprites(QPainter& painter, const LeafView& node)
{
    const QTransform world = painter.worldTransform();
    const double scale = painter.deviceTransform().m11();
    const Resolution resolution{stretchedFrom_.value_or(scale), scale / world.m11()};
    const double stretch = scale / resolution.scale / resolution.density;
    const auto place = [&](const Sprite& sprite, QPointF origin) {
        const QPointF pixel = (world.map(origin + sprite.offset) * resolution.density).toPoint();
        if (stretchedFrom_)
            painter.drawPixmap(QRectF(pixel / resolution.density, QSizeF(sprite.pixels.size()) * stretch),
                               sprite.pixels, QRectF(sprite.pixels.rect()));
        else
            painter.drawPixmap(pixel / resolution.density, sprite.pixels);
    };
    painter.setWorldTransform({});
    place(panelSprite(node, resolution), toPicture(node.infoFrame()).topLeft());
    const LeafImageView& image = node.imageView();
    if (image.leafOpacity() > 0) {
        place(leafSprite(image, 0, resolution), leafOrigin(node));
        place(leafSprite(image, 1, resolution), leafOrigin(node));
    } else if (!node.imageFrame().isEmpty()) {
        place(pictureSprite(node, resolution), toPicture(node.imageFrame()).topLeft());
    }
    for (const ConnectorView* handle : {&node.partnerHandle(), &node.childHandle()})
        place(handleSprite(*handle, resolution), toPicture(handle->frame()).topLeft());
    painter.setWorldTransform(world);
}

// Widths are whole points within narrow bounds, so that a few dozen panels serve every node.
const NodePainter::Sprite& NodePainter::panelSprite(const LeafView& node, Resolution resolution)
{
    const QRectF panel({0, 0}, toPicture(node.infoFrame()).size());
    const LeafInfoView& info = node.infoView();
    const auto kind = info.isFocused() ? SpriteKind::FocusedPanel : SpriteKind::Panel;
    const auto width = static_cast<std::uint32_t>(panel.width());
    const quint64 key = shapeKey(kind, width, resolution.scale, resolution.density);
    if (const Sprite* kept = shapes_.object(key))
        return *kept;
    const QPixmap pixels = drawnPixels(panel, resolution.scale, resolution.density, [&](QPainter& painter) {
        paintPanel(painter, panel, info.backgroundColor(), info.borderColor());
    });
    shapes_.insert(key, new Sprite{pixels, {}}, bytesOf(pixels));
    return *shapes_.object(key);
}

const NodePainter::Sprite& NodePainter::leafSprite(const LeafImageView& image, std::size_t leaf, Resolution resolution)
{
    const auto kind = leaf == 0 ? SpriteKind::FirstLeaf : SpriteKind::SecondLeaf;
    const quint64 key = shapeKey(kind, image.rotationSteps()[leaf], resolution.scale, resolution.density);
    if (const Sprite* kept = shapes_.object(key))
        return *kept;
    const QPainterPath path = turnedLeaf(image.rotations()[leaf]);
    const QRectF bounds = path.boundingRect().adjusted(-2, -2, 2, 2);
    const QPixmap pixels =
        drawnPixels(bounds, resolution.scale, resolution.density, [&](QPainter& painter) { paintLeaf(painter, path); });
    shapes_.insert(key, new Sprite{pixels, bounds.topLeft()}, bytesOf(pixels));
    return *shapes_.object(key);
}

const NodePainter::Sprite& NodePainter::handleSprite(const ConnectorView& handle, Resolution resolution)
{
    const quint64 key = shapeKey(kindOf(handle), 0, resolution.scale, resolution.density);
    if (const Sprite* kept = shapes_.object(key))
        return *kept;
    const QRectF frame = toPicture(handle.frame());
    const QRectF circle = toPicture(handle.circle()).translated(-frame.topLeft());
    const QPixmap pixels = drawnPixels(QRectF({0, 0}, frame.size()), resolution.scale, resolution.density,
                                       [&](QPainter& painter) { paintHandle(painter, circle, handle.circleFill()); });
    shapes_.insert(key, new Sprite{pixels, {}}, bytesOf(pixels));
    return *shapes_.object(key);
}

const NodePainter::Sprite& NodePainter::pictureSprite(const LeafView& node, Resolution resolution)
{
    const ImageLayer layer = node.imageView().imageLayer();
    const std::pair key{layer.contents->cacheKey(), sizeKey(resolution.scale, resolution.density)};
    if (const Sprite* kept = pictures_.object(key))
        return *kept;
    const QRectF room({0, 0}, toPicture(node.imageFrame()).size());
    const QPixmap pixels = drawnPixels(room, resolution.scale, resolution.density,
                                       [&](QPainter& painter) { paintPicture(painter, layer, room); });
    pictures_.insert(key, new Sprite{pixels, {}}, bytesOf(pixels));
    return *pictures_.object(key);
}

} // namespace lineara

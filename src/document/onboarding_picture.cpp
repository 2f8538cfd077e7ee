#include "onboarding_picture.h"

#include "elements/colours.h"
#include "elements/leaf_image_view.h"
#include "elements/node_layout.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace lineara {

namespace {

// All places are points of the drawing at its full size, y downwards.
constexpr QSizeF fullSize(420, 260);
constexpr double panelWidth = 92;
constexpr double panelHeight = 38;
constexpr double leafRoom = 56; ///< above a panel
constexpr double leafScale = 0.95;
constexpr double ribbonWidth = 10;
constexpr double handleRadius = node_layout::handleSize / 2;

constexpr QPointF mother(120, 90); ///< middles of the panels
constexpr QPointF father(300, 90);
constexpr QPointF child(210, 220);

QPointF partnerHandle(QPointF panel)
{
    return panel + QPointF(panelWidth / 2, 0);
}

QPointF childHandle(QPointF panel)
{
    return panel + QPointF(0, panelHeight / 2);
}

QPointF leafFoot(QPointF panel)
{
    return panel - QPointF(0, panelHeight / 2);
}

void paintLeaves(QPainter& painter, QPointF foot)
{
    painter.save();
    painter.translate(foot);
    painter.scale(leafScale, -leafScale);
    painter.translate(-node_layout::defaultPictureWidth / 2, 0);
    painter.setPen(QPen(colours::leafStroke(), 2));
    painter.setBrush(colours::leafFill());
    for (const double angle : {0.38, -0.3})
        painter.drawPath(LeafImageView::createRotatedLeaf(LeafImageView::leafOutline(), angle));
    painter.restore();
}

void paintHandle(QPainter& painter, QPointF middle, const QColor& fill)
{
    painter.setPen(QPen(colours::handleOutline(), 1));
    painter.setBrush(fill);
    painter.drawEllipse(middle, handleRadius, handleRadius);
}

/// Bars stand for name and years: a picture that says nothing needs no translation.
void paintPanel(QPainter& painter, QPointF middle)
{
    const QRectF panel(middle - QPointF(panelWidth, panelHeight) / 2, QSizeF(panelWidth, panelHeight));
    painter.setPen(QPen(colours::panelBorder(), 1));
    painter.setBrush(colours::panelBackground());
    painter.drawRoundedRect(panel, 5, 5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours::eraText());
    painter.drawRoundedRect(QRectF(middle.x() - 27, middle.y() - 8, 54, 5), 2.5, 2.5);
    painter.setBrush(colours::hintText());
    painter.drawRoundedRect(QRectF(middle.x() - 17, middle.y() + 3, 34, 4), 2, 2);
}

void paintNode(QPainter& painter, QPointF panel)
{
    paintLeaves(painter, leafFoot(panel));
    paintPanel(painter, panel);
    paintHandle(painter, partnerHandle(panel), colours::partnerFill());
    paintHandle(painter, childHandle(panel), colours::offspringFill());
}

void paintPartnerLink(QPainter& painter)
{
    const QPointF from = leafFoot(mother) - QPointF(-14, 16);
    const QPointF to = leafFoot(father) - QPointF(14, 16);
    QPainterPath arch(from);
    arch.cubicTo(from + QPointF(40, -30), to + QPointF(-40, -30), to);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours::partnerStroke(), 6));
    painter.drawPath(arch);
    painter.setPen(QPen(colours::partnerFill(), 4));
    painter.drawPath(arch);
}

QPainterPath ribbon(QPointF from, QPointF to)
{
    const double middle = (from.y() + to.y()) / 2;
    QPainterPath path(from);
    path.cubicTo(QPointF(from.x(), middle), QPointF(to.x(), middle), to);
    return path;
}

void paintRibbon(QPainter& painter, const QPainterPath& path)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours::offspringStroke(), ribbonWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(path);
    painter.setPen(QPen(colours::offspringFill(), ribbonWidth - 2, Qt::SolidLine, Qt::FlatCap));
    painter.drawPath(path);
}

/// The link that is being drawn: a line from the handle to the pointer.
void paintPulledLine(QPainter& painter, QPointF from, QPointF to)
{
    painter.setPen(QPen(colours::handleHover(), 2.5, Qt::DashLine, Qt::RoundCap));
    painter.drawLine(from, to);
    paintHandle(painter, from, colours::handleHover());

    QPainterPath pointer;
    pointer.addPolygon(QPolygonF({{0, 0}, {0, 21}, {5, 16.5}, {8.5, 24}, {12, 22.4}, {8.6, 15.2}, {15, 15}, {0, 0}}));
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(Qt::black);
    painter.drawPath(pointer.translated(to));
}

} // namespace

OnboardingPicture::OnboardingPicture()
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setVerticalStretch(1);
    setSizePolicy(policy);
    setMaximumHeight(static_cast<int>(fullSize.height()) + 20);
    setAccessibleName(tr("Two partners and their child, and a line that is drawn from one person to another"));
}

void OnboardingPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min({1.0, width() / fullSize.width(), height() / fullSize.height()});
    painter.translate((width() - fullSize.width() * scale) / 2, (height() - fullSize.height() * scale) / 2);
    painter.scale(scale, scale);
    paintPartnerLink(painter);
    const QPointF crown = leafFoot(child) - QPointF(0, leafRoom / 3);
    paintRibbon(painter, ribbon(childHandle(mother), crown));
    for (const QPointF person : {mother, father, child})
        paintNode(painter, person);
    paintPulledLine(painter, childHandle(father), crown + QPointF(20, -4));
}

} // namespace lineara

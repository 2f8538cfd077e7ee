#pragma once

#include "elements/connector_view.h"
#include "elements/geometry.h"
#include "elements/leaf_image_view.h"
#include "elements/leaf_info_view.h"
#include "elements/placement_constraint.h"

#include <cstdint>
#include <optional>

namespace lineara {

class ElementHost;
class Person;
class RandomSource;

enum class NodePart : std::uint8_t
{
    PartnerHandle,
    ChildHandle,
    Info,
    Image
};

/// The node of one person on the canvas: picture, panel and two handles, placed by two constraints that the canvas
/// makes. Its address stays; the LeafNursery owns it. Main thread only.
class LeafView
{
public:
    LeafView(Person& person, RandomSource& random);
    LeafView(const LeafView&) = delete;
    LeafView& operator=(const LeafView&) = delete;

    Person& person() const { return *person_; }

    /// Distance of the left edge from the canvas's left edge; mirrors the person's x. Absent until the canvas places
    /// the node.
    const std::optional<PlacementConstraint>& xConstraint() const { return xConstraint_; }
    /// Vertical place: minus the height of the node's bottom edge above the canvas's. Absent like xConstraint().
    const std::optional<PlacementConstraint>& yConstraint() const { return yConstraint_; }
    void setXConstraint(PlacementConstraint constraint) { xConstraint_ = constraint; }
    void setYConstraint(PlacementConstraint constraint) { yConstraint_ = constraint; }
    /// Without a constraint these change nothing.
    void setXConstant(double constant);
    void setYConstant(double constant);
    /// Takes over the person's x (absent reads as 0). The nursery calls it at every change of x.
    void updateXConstraint();

    /// The canvas is not flipped: heights count upwards.
    static constexpr bool isFlipped() { return false; }

    /// Where the node is. Without constraints it stands at (0, 0).
    Frame frame() const;
    /// Whole points, from the texts and the picture; at most node_layout::greatestNodeWidth.
    int width() const;
    /// As wide as the picture asks for, in whole points, or as the node.
    Frame imageFrame() const;
    Frame infoFrame() const;
    /// The topmost part at a point; no value on the node's own background and outside of it.
    std::optional<NodePart> partAt(CanvasPoint point) const;

    LeafImageView& imageView() { return imageView_; }
    const LeafImageView& imageView() const { return imageView_; }
    LeafInfoView& infoView() { return infoView_; }
    const LeafInfoView& infoView() const { return infoView_; }
    ConnectorView& partnerHandle() { return partnerHandle_; }
    const ConnectorView& partnerHandle() const { return partnerHandle_; }
    ConnectorView& childHandle() { return childHandle_; }
    const ConnectorView& childHandle() const { return childHandle_; }

    /// Shows and clears the selected look.
    void focus() { infoView_.focus(); }
    void unfocus() { infoView_.unfocus(); }

    /// Whether the node is one of those that a picture brings out, where it dims the others.
    bool isHighlighted() const { return isHighlighted_; }
    void setHighlighted(bool highlighted) { isHighlighted_ = highlighted; }

    // The left button on the node, but for its handles, which keep what happens on them to themselves. Points are where
    // the pointer is on the canvas. There is one pointer, so the last point and whether a node is being dragged are
    // shared by all nodes.

    /// `hit` is the part under the pointer: a press on the node's own background begins no drag.
    void mouseDown(CanvasPoint point, std::optional<NodePart> hit);
    /// Moves the person sideways, and up or down as long as it has no links. The sum of place and movement is cut to
    /// whole points at every event.
    void mouseDragged(CanvasPoint point, ElementHost& host);
    /// Every release that ends a drag is a click, moved or not.
    void mouseUp(ElementHost& host);

    static bool isDragging();
    /// Ends a drag without what a release leads to.
    static void stopDragging();
    /// The canvas has moved beneath a pointer that rests: it is here now, and has not dragged anything.
    static void setLastDragPoint(CanvasPoint point);

    /// One pass over the node's own constraints adds a pair "at least 10 wide, at least 10 high"; earlier pairs stay. A
    /// pass of the layer that shows the node is one of each of its nodes.
    void updateConstraints() { ++minimumSizePairs_; }
    std::uint32_t minimumSizePairs() const { return minimumSizePairs_ + (layerPasses_ ? *layerPasses_ : 0); }

    /// Place among the nodes of the person layer that shows it, lowest first.
    std::uint32_t index() const { return index_; }

private:
    friend class PersonLayerView;

    void pull(double rise, ElementHost& host);
    void moveSideways(double distance, ElementHost& host);

    Person* person_;
    std::optional<PlacementConstraint> xConstraint_;
    std::optional<PlacementConstraint> yConstraint_;
    LeafImageView imageView_;
    LeafInfoView infoView_;
    ConnectorView partnerHandle_;
    ConnectorView childHandle_;
    const std::uint32_t* layerPasses_ = nullptr; // of the layer that shows the node
    std::uint32_t minimumSizePairs_ = 0;         // less the layer's passes of before; wraps around
    std::uint32_t index_ = 0;
    bool isHighlighted_ = false;
};

} // namespace lineara

#pragma once

#include "canvas/cull_boxes.h"
#include "canvas/node_bounds.h"
#include "elements/branch_layer_view.h"
#include "elements/person_layer_view.h"
#include "model/record.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace lineara {

/// What lies topmost at a point of the canvas: a node, else a link, else nothing.
struct CanvasHit
{
    LeafView* node = nullptr;
    std::optional<NodePart> part; ///< of the node; no value on its own background
    LinkLayer* link = nullptr;
    friend bool operator==(const CanvasHit&, const CanvasHit&) = default;
};

/// A family as it is drawn: the two layers, and boxes for finding quickly what lies in an area. Nodes and links are
/// added and removed here, so that the boxes are right. Main thread only.
class FamilyScene
{
public:
    /// Starts with the pool's links and without nodes.
    explicit FamilyScene(Pool& pool) : personLayer_(pool), branchLayer_(pool) {}

    Pool& pool() const { return personLayer_.pool(); }
    PersonLayerView& personLayer() { return personLayer_; }
    const PersonLayerView& personLayer() const { return personLayer_; }
    /// Asking for it lays out what has moved.
    BranchLayerView& branchLayer()
    {
        layOutLinks();
        return branchLayer_;
    }
    const BranchLayerView& branchLayer() const
    {
        layOutLinks();
        return branchLayer_;
    }

    /// Shows every person of the pool in its row at its x.
    void addAllInRows();
    /// Shows a node that has been placed.
    void addNode(LeafView& node);
    /// Takes the person's node and all its link shapes out; a person that is not shown is no matter.
    void removePerson(Person& person);
    LinkLayer& addLink(const LinkRecord& record, const QString& type);
    void removeLink(LinkLayer& link);
    /// Brings the link shapes in line with the members' links, those of hidden persons left out.
    void syncLinks(const std::function<bool(const Person&)>& isHidden);
    bool shows(const Person& person) const;

    /// Brings out some persons and the links among them; everybody else is dimmed, also who comes later. Persons
    /// without a node, or who leave, drop out.
    void setHighlight(std::span<const RecordId> persons);
    void clearHighlight();
    bool isHighlighting() const { return isHighlighting_; }
    /// While some are highlighted: whether a shape is one of theirs. What is selected is never dimmed.
    static bool standsOut(const LeafView& node);
    static bool standsOut(const LinkLayer& link);

    /// To be called after a node's frame has changed; its links follow.
    void nodeMoved(const LeafView& node);
    /// The same for all nodes at once; the links follow when they are next looked at.
    void allMoved();

    /// The smallest frame around all nodes; no value without any.
    std::optional<Frame> bounds() const;

    CanvasHit hit(CanvasPoint point) const;
    /// The same without links, whose outlines it makes none of.
    CanvasHit hitNode(CanvasPoint point) const;

    /// Calls `visit` with each shape that may meet an area in picture coordinates, lowest first.
    template<class Visit>
    void visitLinks(const QRectF& area, Visit&& visit) const
    {
        refreshBoxes();
        linkBoxes_.forEachMeeting(area, [&](std::size_t at) { visit(*branchLayer_.layers()[at]); });
    }
    template<class Visit>
    void visitNodes(const QRectF& area, Visit&& visit) const
    {
        refreshBoxes();
        nodeBoxes_.forEachMeeting(area, [&](std::size_t at) { visit(*personLayer_.nodes()[at]); });
    }

    /// Number of nodes that may meet an area in picture coordinates.
    std::size_t countNodes(const QRectF& area) const;

    /// Gives back the paths of all links that the picture before this one has drawn and this one has not. Indices of
    /// links, ascending; to be called after each picture.
    void keepPathsOf(std::vector<std::uint32_t> drawn);

private:
    void refreshBoxes() const;
    void layOutLinks() const;
    void linksRenumbered();

    PersonLayerView personLayer_;
    BranchLayerView branchLayer_;
    // Derived from the layers; made anew at the next question after shapes were removed.
    mutable CullBoxes nodeBoxes_;
    mutable CullBoxes linkBoxes_;
    bool isHighlighting_ = false;
    mutable bool boxesStale_ = true;
    mutable bool linksStale_ = false; // everybody moved; the shapes follow when they are next looked at
    mutable NodeBounds bounds_;
    std::vector<std::uint32_t> linksWithPaths_; // as of the last picture
};

} // namespace lineara

#pragma once

#include "elements/geometry.h"
#include "elements/leaf_view.h"
#include "elements/node_marks.h"

#include <QColor>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace lineara {

class Pool;

/// The dashed line that follows the pointer while a handle is dragged.
struct RubberBand
{
    QColor strokeColor;
    CanvasPoint from;
    CanvasPoint to;
    friend bool operator==(const RubberBand&, const RubberBand&) = default;
};

/// The layer of nodes, above the link shapes, with the rubber band. Looks at its nodes; the LeafNursery owns them and
/// must outlive the layer. Main thread only.
class PersonLayerView
{
public:
    static constexpr double connectionLineWidth = 5.0;
    static constexpr double connectionDash = 5.0; ///< points drawn
    static constexpr double connectionGap = 15.0; ///< points left out after each dash

    explicit PersonLayerView(Pool& pool) : pool_(&pool) {}
    ~PersonLayerView();
    PersonLayerView(const PersonLayerView&) = delete;
    PersonLayerView& operator=(const PersonLayerView&) = delete;

    Pool& pool() const { return *pool_; }

    /// The nodes from the lowest to the topmost; a node's index() is its place here.
    const std::vector<LeafView*>& nodes() const { return nodes_; }
    /// On top of the others; a node that is there already stays in its place.
    void addNode(LeafView& node);
    /// A node that is not there is no matter.
    void removeNode(LeafView& node);
    bool contains(const LeafView& node) const;
    /// The topmost node whose frame holds the point, or nullptr.
    LeafView* nodeAt(CanvasPoint point) const;

    /// One pass over the constraints of all nodes shown, at the cost of one.
    void updateConstraints() { ++passes_; }

    /// Replaces the rubber band by one straight line in the colour of the type.
    void drawConnection(const QString& type, CanvasPoint from, CanvasPoint to);
    void clearConnection() { connection_.reset(); }
    const std::optional<RubberBand>& connection() const { return connection_; }

    /// Marks of a node end when it leaves the layer.
    void markFocused(const LeafView* node) { marks_.focused = node; }
    void markLinkTarget(std::optional<LinkTarget> target) { marks_.linkTarget = std::move(target); }
    const NodeMarks& marks() const { return marks_; }

private:
    void letGo(LeafView& node) const;

    Pool* pool_;
    std::vector<LeafView*> nodes_;
    std::optional<RubberBand> connection_;
    NodeMarks marks_;
    std::uint32_t passes_ = 0;
};

} // namespace lineara

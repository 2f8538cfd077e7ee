#pragma once

#include <QString>

#include <optional>

class QPainter;

namespace lineara {

class LeafView;

/// The node under the pointer while a handle is dragged, and whether a release there makes a link.
struct LinkTarget
{
    const LeafView* node = nullptr;
    QString linkType;
    bool isPossible = false;
    friend bool operator==(const LinkTarget&, const LinkTarget&) = default;
};

/// What the keyboard and a dragged handle show on single nodes.
struct NodeMarks
{
    const LeafView* focused = nullptr; ///< what is typed concerns this node
    std::optional<LinkTarget> linkTarget;
};

// Both draw with a painter that stands in picture coordinates, scaled and moved but not turned, and leave it as it was.

/// A halo in the colour of the link around a node that can be linked, and a ring around the panel of the focused one,
/// outside of the border that tells who is selected. To be drawn before the nodes.
void paintMarksBelow(QPainter& painter, const NodeMarks& marks);
/// A veil on a node that can't be linked. To be drawn after the nodes.
void paintMarksAbove(QPainter& painter, const NodeMarks& marks);

} // namespace lineara

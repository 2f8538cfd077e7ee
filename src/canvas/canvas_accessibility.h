#pragma once

namespace lineara {

class LeafView;
class TreeView;

/// Makes canvases known to assistive tools: the nodes as children of the canvas, the two handles as children of their
/// node. Nothing is made before a tool asks. Calling again does nothing.
void installCanvasAccessibility();

/// Tells assistive tools, if there are any, that the keyboard concerns this node now.
void announceFocus(TreeView& canvas, const LeafView& node);

/// Tells them that other persons are highlighted than before: of the canvas, and of the node that the keyboard
/// concerns.
void announceHighlight(TreeView& canvas);

} // namespace lineara

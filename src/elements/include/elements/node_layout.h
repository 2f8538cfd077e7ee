#pragma once

/// The layout of a person's node, in points. From the top: the picture, the panel with name and life span, and the two
/// round handles, each sitting half on the panel's edge: partners at the right, children at the bottom.
namespace lineara::node_layout {

inline constexpr double handleSize = 14;
inline constexpr double handleOverhang = handleSize / 2; ///< how far a handle stands out of the panel

inline constexpr double panelHeight = 54;
inline constexpr double panelBottom = handleOverhang;
inline constexpr double panelTop = panelBottom + panelHeight;

inline constexpr double pictureHeight = 72;
inline constexpr double pictureBottom = panelTop; ///< so that a leaf's stem all but touches the panel
inline constexpr double defaultPictureWidth = 72;

inline constexpr double nodeHeight = pictureBottom + pictureHeight;

/// Widths are whole points. No name and no picture makes a node wider than this.
inline constexpr int greatestNodeWidth = 142;
inline constexpr int leastNodeSize = 10;

/// Room beside the texts: half a handle stands in the panel, and the texts keep clear of it.
inline constexpr double textMargin = 9;
inline constexpr double greatestTextWidth = greatestNodeWidth - 2 * handleOverhang - 2 * textMargin;

} // namespace lineara::node_layout

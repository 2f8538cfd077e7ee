#pragma once

#include "platform/outcome.h"

#include <QSize>
#include <QSizeF>
#include <QString>

namespace lineara {
class Pool;
}

namespace lineara::tool {

bool isFamilyFileName(const QString& path);
bool isPictureFileName(const QString& path);

/// Size in pixels of the picture of a family that takes `points`: one pixel a point, or less where that would be more
/// than 20,000 pixels on a side or 64 million in all. At least 1 x 1.
QSize pictureSize(QSizeF points);

/// Writes the whole family, as the canvas draws it, to a .pdf, .png or .svg file. The file is replaced as a whole or
/// not at all; a family gives the same bytes every time. Everybody must have a place.
Outcome<Done> savePicture(Pool& pool, const QString& path);

} // namespace lineara::tool

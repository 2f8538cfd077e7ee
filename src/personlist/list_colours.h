#pragma once

#include <QColor>

namespace lineara::colours {

// The list is light in every theme of the desktop, like the canvas beside it, and so its texts are dark.
inline QColor collapsedGround()
{
    return QColor::fromRgbF(0.95f, 0.95f, 0.95f);
}
inline QColor expandedGround()
{
    return QColor::fromRgbF(1.0f, 1.0f, 1.0f);
}
inline QColor rowEdge()
{
    return QColor::fromRgbF(0.86f, 0.86f, 0.86f);
}
inline QColor listText()
{
    return QColor::fromRgbF(0.1f, 0.1f, 0.1f);
}
inline QColor faintText()
{
    return QColor::fromRgbF(0.4f, 0.4f, 0.4f);
}
inline QColor pictureGround()
{
    return QColor::fromRgbF(0.87f, 0.89f, 0.84f);
}
inline QColor fieldEdge()
{
    return QColor::fromRgbF(0.75f, 0.75f, 0.75f);
}
inline QColor listFocus()
{
    return QColor::fromRgbF(0.28f, 0.28f, 1.0f);
}
inline QColor linkText()
{
    return QColor::fromRgbF(0.13f, 0.33f, 0.63f);
}
inline QColor mistake()
{
    return QColor::fromRgbF(0.72f, 0.11f, 0.11f);
}

} // namespace lineara::colours

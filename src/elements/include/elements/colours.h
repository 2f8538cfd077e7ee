#pragma once

#include <QColor>
#include <QStringView>

namespace lineara::colours {

namespace detail {

inline QColor rgb(float red, float green, float blue, float alpha)
{
    return QColor::fromRgbF(red, green, blue, alpha);
}
inline QColor white(float level, float alpha)
{
    return QColor::fromRgbF(level, level, level, alpha);
}

} // namespace detail

// Links, and the handles and rubber bands that match them.
inline QColor partnerFill()
{
    return detail::rgb(1.0f, 0.87f, 0.93f, 1.0f);
}
inline QColor partnerStroke()
{
    return detail::rgb(0.9f, 0.77f, 0.73f, 0.8f);
}
inline QColor offspringFill()
{
    return detail::rgb(0.73f, 0.73f, 0.6f, 1.0f);
}
inline QColor offspringStroke()
{
    return detail::rgb(0.53f, 0.53f, 0.4f, 0.8f);
}
inline QColor selectedStroke()
{
    return detail::rgb(0.0f, 0.0f, 1.0f, 1.0f);
}

/// "partner" has colours of its own; every other type is coloured as offspring.
QColor linkFill(QStringView linkType);
QColor linkStroke(QStringView linkType);

// Handles.
inline QColor handleHover()
{
    return detail::rgb(1.0f, 0.5f, 0.0f, 1.0f);
}
inline QColor handleOutline()
{
    return detail::white(0.8f, 0.8f);
}

// Marks on nodes.
inline constexpr float haloOpacity = 0.45f;
inline QColor refusalVeil()
{
    return detail::white(1.0f, 0.68f);
}
inline QColor dimmingVeil()
{
    return detail::white(1.0f, 0.8f);
}
inline QColor focusRing()
{
    return detail::rgb(0.3f, 0.36f, 0.5f, 0.85f);
}

// The panel. Its texts are dark whatever the desktop's theme, because the panel is light in every theme.
inline QColor panelBackground()
{
    return detail::white(0.82f, 1.0f);
}
inline QColor panelBorder()
{
    return detail::white(0.72f, 0.7f);
}
inline QColor panelFocusBorder()
{
    return detail::rgb(0.28f, 0.28f, 1.0f, 1.0f);
}
inline QColor nameText()
{
    return detail::white(0.1f, 1.0f);
}
inline QColor eraText()
{
    return detail::white(0.32f, 1.0f);
}
inline QColor hintText()
{
    return detail::white(0.45f, 1.0f);
}

// Leaves and pictures.
inline QColor leafFill()
{
    return detail::rgb(0.47f, 0.82f, 0.15f, 0.9f);
}
inline QColor leafStroke()
{
    return detail::rgb(0.13f, 0.33f, 0.06f, 0.5f);
}
inline QColor pictureBorder()
{
    return detail::white(0.72f, 0.7f);
}

} // namespace lineara::colours

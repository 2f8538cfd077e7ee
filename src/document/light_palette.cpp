#include "document/light_palette.h"

namespace lineara {

QPalette lightPalette(const QPalette& theme)
{
    const QColor text(0x22, 0x22, 0x22);
    const QColor faint(0x66, 0x66, 0x66);
    QPalette light(QColor(0xef, 0xef, 0xef), Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        light.setColor(role, text);
    light.setColor(QPalette::PlaceholderText, faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        light.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Window, Qt::white);
    light.setColor(QPalette::Link, QColor(0x1a, 0x5f, 0xb4));
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
        light.setColor(role, theme.color(QPalette::Active, role));
    return light;
}

} // namespace lineara

#include "clickable_text_field.h"

#include <QMouseEvent>

namespace lineara {

ClickableTextField::ClickableTextField(const QString& text)
{
    setText(text);
    setFocusPolicy(Qt::TabFocus);
}

void ClickableTextField::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        click();
}

// The press was all.
void ClickableTextField::mouseReleaseEvent(QMouseEvent*) {}

} // namespace lineara

#pragma once

#include <QToolButton>

namespace lineara {

/// A text that acts as soon as it is pressed, even by the press that activates its window, and is never edited. It
/// takes no keyboard by the press.
class ClickableTextField : public QToolButton
{
public:
    explicit ClickableTextField(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

} // namespace lineara

#include "document/elided_label.h"

#include "elements/shortened_text.h"

#include <QPainter>

namespace lineara {

ElidedLabel::ElidedLabel(const QString& text, Qt::TextElideMode shortened) : text_(text), shortened_(shortened)
{
    setAccessibleName(text);
    setToolTip(plainToolTip(text));
    // Else the tooltip would be read out, with its marks.
    setAccessibleDescription(text);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const
{
    return fontMetrics().size(Qt::TextSingleLine, text_);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 8, sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text_, shortened_, width()));
}

} // namespace lineara

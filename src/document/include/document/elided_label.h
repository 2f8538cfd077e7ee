#pragma once

#include <QFrame>

namespace lineara {

/// One line of text that is shortened where there is too little room; the tool tip and screen readers have it whole.
class ElidedLabel : public QFrame
{
public:
    explicit ElidedLabel(const QString& text, Qt::TextElideMode shortened = Qt::ElideMiddle);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString text_;
    Qt::TextElideMode shortened_;
};

} // namespace lineara

#pragma once

#include <QCoreApplication>
#include <QWidget>

namespace lineara {

/// A drawing of how persons are linked: two partners above their child, and a ribbon that a hand is just pulling.
/// Shrinks where there is little room.
class OnboardingPicture : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(OnboardingPicture)

public:
    OnboardingPicture();

    QSize sizeHint() const override { return {420, 260}; }
    QSize minimumSizeHint() const override { return {120, 74}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace lineara

#pragma once

#include "paper/poster_plan.h"

#include <QImage>
#include <QWidget>

#include <optional>

namespace lineara {

class PaperPicture;

/// Shows what will come out: the picture by itself, or the sheets of a plan beside one another.
class PaperPreview : public QWidget
{
public:
    PaperPreview();

    /// Draws the picture anew; it is not looked at afterwards.
    void showPicture(const PaperPicture& picture);
    /// No value: the picture by itself.
    void showPages(std::optional<PosterPlan> plan);
    void setTransparent(bool isTransparent);

    QSize sizeHint() const override { return {560, 420}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintAlone(QPainter& painter) const;
    void paintPages(QPainter& painter) const;

    QImage image_;
    QSizeF pictureSize_;
    std::optional<PosterPlan> plan_;
    bool isTransparent_ = false;
};

} // namespace lineara

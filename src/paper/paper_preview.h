#pragma once

#include "paper/poster_marks.h"
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
    void showAlone();
    /// The sheets as they come out, with their marks; the one that shows how they lie stands beneath the others.
    void showPages(PosterPlan plan, const PosterMarks& marks, const PaperPicture& picture);
    void setTransparent(bool isTransparent);

    QSize sizeHint() const override { return {560, 420}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintAlone(QPainter& painter) const;
    void paintPages(QPainter& painter) const;
    void paintPage(QPainter& painter, std::size_t page) const;

    QImage image_;
    QSizeF pictureSize_;
    std::optional<PosterPlan> plan_;
    PosterMarks marks_;
    QImage assembly_; // without a size where there is none
    bool isTransparent_ = false;
};

} // namespace lineara

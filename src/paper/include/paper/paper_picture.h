#pragma once

#include "canvas/family_picture.h"

#include <QString>

namespace lineara {

/// What stands above and beneath a family; an empty text takes no room.
struct PaperTexts
{
    QString title;
    QString footer;
};

/// A family, or a part of it, as it comes onto paper: with its title above and its footer beneath. The same for every
/// kind of file and for printers. Looks at the scene, which must outlive it. Main thread only.
class PaperPicture
{
public:
    explicit PaperPicture(const FamilyScene& scene, PicturePart part = {}, const PaperTexts& texts = {});

    const FamilyPicture& family() const { return family_; }
    const PaperTexts& texts() const { return texts_; }

    /// In points of the canvas.
    QSizeF size() const { return size_; }
    /// Where the family's own picture begins.
    QPointF familyPlace() const { return familyPlace_; }

    /// Whether an area of the picture shows nothing.
    bool isBlank(const QRectF& area) const;

    /// Draws title and footer, the picture's top left corner at the painter's origin.
    void paintTexts(QPainter& painter) const;
    /// Draws all of it on white, as roughly as can't be seen; the painter draws pixels.
    void paintPreview(QPainter& painter) const;

private:
    struct Line
    {
        int height = 0; ///< of the letters, in pixels of the font; 0 for no line
        double width = 0;
        double baseline = 0; ///< from the top of the picture
    };

    static Line fitted(const QString& text, double wanted, double room);
    QRectF boxOf(const Line& line) const;

    FamilyPicture family_;
    PaperTexts texts_;
    Line title_;
    Line footer_;
    QSizeF size_;
    QPointF familyPlace_;
};

} // namespace lineara

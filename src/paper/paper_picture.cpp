#include "paper/paper_picture.h"

#include "elements/colours.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lineara {

namespace {

/// Shares of the longer side of the picture, so that a title can be read on a sheet as on a wall.
constexpr double titleShare = 0.026;
constexpr double footerShare = 0.011;
constexpr int leastTitle = 20;
constexpr int leastFooter = 10;
/// A title of a narrow family may be wider than the family, up to a share of its height.
constexpr double widestShare = 0.7;
constexpr double lineHeight = 1.7; ///< the letters, and what stays free around them

QFont fontOf(int height)
{
    QFont font;
    font.setPixelSize(height);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

PaperPicture::PaperPicture(const FamilyScene& scene, PicturePart part, const PaperTexts& texts)
    : family_(scene, std::move(part)), texts_{texts.title.simplified(), texts.footer.simplified()}
{
    const QSizeF family = family_.size();
    const double longest = std::max(family.width(), family.height());
    const double room = std::max(family.width(), widestShare * family.height()) - 2 * FamilyPicture::margin;
    title_ = fitted(texts_.title, std::max<double>(leastTitle, titleShare * longest), room);
    footer_ = fitted(texts_.footer, std::max<double>(leastFooter, footerShare * longest), room);
    const double widest = std::max(title_.width, footer_.width) + 2 * FamilyPicture::margin;
    const double above = title_.height * lineHeight;
    const double below = footer_.height * lineHeight;
    size_ = {std::max(family.width(), widest), above + family.height() + below};
    familyPlace_ = {std::floor((size_.width() - family.width()) / 2), above};
    title_.baseline = title_.height * (lineHeight - 0.35);
    footer_.baseline = size_.height() - footer_.height * 0.7;
}

/// As high as wanted, or lower where the text would not fit, but never too low to be read.
PaperPicture::Line PaperPicture::fitted(const QString& text, double wanted, double room)
{
    if (text.isEmpty())
        return {};
    const auto widthAt = [&text](int height) { return QFontMetricsF(fontOf(height)).horizontalAdvance(text); };
    int height = static_cast<int>(std::lround(wanted));
    const double width = widthAt(height);
    if (width > room)
        height = std::max(leastFooter, static_cast<int>(height * room / width));
    return {height, widthAt(height), 0};
}

QRectF PaperPicture::boxOf(const Line& line) const
{
    return {(size_.width() - line.width) / 2, line.baseline - line.height, line.width, line.height * lineHeight};
}

bool PaperPicture::isBlank(const QRectF& area) const
{
    const auto meets = [&](const Line& line) { return line.height > 0 && boxOf(line).intersects(area); };
    return !meets(title_) && !meets(footer_) && family_.isBlank(area.translated(-familyPlace_));
}

void PaperPicture::paintTexts(QPainter& painter) const
{
    painter.save();
    painter.setPen(colours::nameText());
    for (const auto& [line, text] : {std::pair(title_, texts_.title), std::pair(footer_, texts_.footer)}) {
        if (line.height == 0)
            continue;
        painter.setFont(fontOf(line.height));
        painter.drawText(QPointF((size_.width() - line.width) / 2, line.baseline), text);
    }
    painter.restore();
}

void PaperPicture::paintPreview(QPainter& painter) const
{
    painter.save();
    painter.translate(familyPlace_);
    family_.paintPreview(painter);
    painter.restore();
    painter.setRenderHint(QPainter::Antialiasing);
    paintTexts(painter);
}

} // namespace lineara

#include "paper/poster_marks.h"

#include "paper/paper_picture.h"

#include "canvas/family_scene.h"
#include "elements/colours.h"
#include "elements/leaf_view.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace lineara {

namespace {

struct PosterMarksTexts
{
    Q_DECLARE_TR_FUNCTIONS(PosterMarks)
};

constexpr double tickGap = 2; ///< between a mark and what is to be cut off there
constexpr double tickLength = 12;
constexpr double tickWidth = 0.5;
constexpr int labelHeight = 7;
constexpr int headingHeight = 16;
constexpr int hintHeight = 10;
constexpr double hintLine = 1.5; ///< lines of hints, in heights of their letters

QFont markFont(int height)
{
    QFont font;
    font.setPixelSize(height);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

bool isLast(const PosterPlan& plan, const PosterPage& page, bool sideways)
{
    return sideways ? page.column == plan.columns() - 1 : page.row == plan.rows() - 1;
}

/// Where a sheet is cut, and where its neighbours' cut edges come to lie on it.
void paintCropMarks(QPainter& painter, const PosterPlan& plan, const PosterPage& page)
{
    const QRectF room = page.target;
    painter.setPen(QPen(Qt::black, tickWidth));
    const auto upright = [&](double x) {
        painter.drawLine(QPointF(x, room.top() - tickGap - tickLength), QPointF(x, room.top() - tickGap));
        painter.drawLine(QPointF(x, room.bottom() + tickGap), QPointF(x, room.bottom() + tickGap + tickLength));
    };
    const auto level = [&](double y) {
        painter.drawLine(QPointF(room.left() - tickGap - tickLength, y), QPointF(room.left() - tickGap, y));
        painter.drawLine(QPointF(room.right() + tickGap, y), QPointF(room.right() + tickGap + tickLength, y));
    };
    upright(room.left());
    upright(isLast(plan, page, true) ? room.right() : room.right() - plan.overlap());
    level(room.top());
    level(isLast(plan, page, false) ? room.bottom() : room.bottom() - plan.overlap());
}

void paintLabel(QPainter& painter, const PosterPlan& plan, const PosterPage& page, const QString& label)
{
    const QFont font = markFont(labelHeight);
    const double width = QFontMetricsF(font).horizontalAdvance(label);
    const double baseline = std::min(page.target.bottom() + 11, plan.sheet().size.height() - 3);
    const QPointF place(page.target.center().x() - width / 2, baseline);
    // Without a margin the label stands on the picture.
    if (baseline < page.target.bottom() + labelHeight)
        painter.fillRect(QRectF(place.x() - 2, place.y() - labelHeight, width + 4, labelHeight + 3), Qt::white);
    painter.setFont(font);
    painter.setPen(colours::eraText());
    painter.drawText(place, label);
}

/// Draws a text over as many lines as it needs; where the next one may begin.
double paintHint(QPainter& painter, const QString& text, int height, QPointF place, double width)
{
    QTextLayout layout(text, markFont(height));
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();
    painter.setFont(markFont(height));
    painter.setPen(colours::nameText());
    for (int at = 0; at < layout.lineCount(); ++at) {
        const QTextLine line = layout.lineAt(at);
        place.ry() += height * hintLine;
        painter.drawText(place, text.mid(line.textStart(), line.textLength()).trimmed());
    }
    return place.y();
}

QStringList hintsFor(const PosterPlan& plan)
{
    QStringList hints{PosterMarksTexts::tr("%n sheet(s) make up this picture, as shown below.", nullptr,
                                           static_cast<int>(plan.pages().size()))};
    hints << PosterMarksTexts::tr("Cut off the left and the upper margin of each sheet along its crop marks.");
    if (plan.overlap() > 0)
        hints << PosterMarksTexts::tr("Lay it upon its neighbours on the left and above, up to their inner marks, and "
                                      "glue it there.");
    hints << PosterMarksTexts::tr("Print at 100 %, never fitted to the page by the printer.");
    return hints;
}

void paintMiniature(QPainter& painter, const PosterPlan& plan, const PaperPicture& picture)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours::offspringFill());
    const FamilyPicture& family = picture.family();
    const QPointF corner = picture.familyPlace() - toPicture(family.frame()).topLeft();
    for (const LeafView* const node : family.scene().personLayer().nodes()) {
        if (family.part().holds(node->person()))
            painter.drawRect(toPicture(node->frame()).translated(corner));
    }
    const double step = plan.pages().front().source.width();
    for (std::size_t page = 0; page < plan.pages().size(); ++page) {
        const QRectF source = plan.pages()[page].source;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours::selectedStroke(), step / 150));
        painter.drawRect(source);
        const QFont font = markFont(std::max(1, static_cast<int>(step / 6)));
        const QString number = QString::number(page + 1);
        const QFontMetricsF metrics(font);
        painter.setFont(font);
        painter.drawText(source.center() + QPointF(-metrics.horizontalAdvance(number) / 2, metrics.capHeight() / 2),
                         number);
    }
}

} // namespace

QString columnName(int column)
{
    QString name;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        name.prepend(QChar(u'A' + (rest - 1) % 26));
    return name;
}

QString pageLabel(const PosterPlan& plan, std::size_t page)
{
    const PosterPage& shown = plan.pages()[page];
    return PosterMarksTexts::tr("%1/%2 \u2013 column %3, row %4")
        .arg(page + 1)
        .arg(plan.pages().size())
        .arg(columnName(shown.column))
        .arg(shown.row + 1);
}

void paintMarks(QPainter& painter, const PosterPlan& plan, std::size_t page, const PosterMarks& marks)
{
    if (plan.columns() * plan.rows() == 1)
        return;
    painter.save();
    if (marks.cropMarks)
        paintCropMarks(painter, plan, plan.pages()[page]);
    if (marks.pageNumbers)
        paintLabel(painter, plan, plan.pages()[page], pageLabel(plan, page));
    painter.restore();
}

bool hasAssembly(const PosterPlan& plan, const PosterMarks& marks)
{
    return marks.assemblyPage && plan.pages().size() > 1;
}

void paintAssembly(QPainter& painter, const PosterPlan& plan, const PaperPicture& picture)
{
    const QRectF room = plan.pages().front().target;
    painter.save();
    double below =
        paintHint(painter, PosterMarksTexts::tr("How the Sheets Lie"), headingHeight, room.topLeft(), room.width());
    for (const QString& hint : hintsFor(plan))
        below = paintHint(painter, hint, hintHeight, {room.left(), below}, room.width());
    QRectF whole;
    for (const PosterPage& page : plan.pages())
        whole |= page.source;
    const double top = below + hintHeight * hintLine;
    const double height = std::max(1.0, room.bottom() - top);
    const double scale = std::min(room.width() / whole.width(), height / whole.height());
    painter.translate(room.center().x(), top);
    painter.scale(scale, scale);
    painter.translate(-whole.center().x(), -whole.top());
    paintMiniature(painter, plan, picture);
    painter.restore();
}

} // namespace lineara

#include "person_cell.h"

#include "elements/shortened_text.h"
#include "list_colours.h"
#include "model/person.h"
#include "person_table_model.h"
#include "refused_dates.h"
#include "thumbnails.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

namespace lineara {

namespace {

constexpr int margin = 10;
constexpr int pictureSide = 33;
constexpr int nameSize = 14;
constexpr int eraSize = 11;
constexpr Extent mostOfAName{500}; // wider than any list

QFont rowFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    return font;
}

/// Stands for the picture of whoever has none.
QString initial(const Person& person)
{
    const QString name = person.name().value_or(QString()).trimmed();
    if (name.isEmpty())
        return {};
    const bool isPair = name.size() > 1 && name.at(0).isHighSurrogate();
    return name.first(isPair ? 2 : 1).toUpper();
}

void paintImageView(QPainter& painter, const QRect& place, const Person& person, Thumbnails& thumbnails)
{
    QPainterPath frame;
    frame.addRoundedRect(place, 5, 5);
    const auto thumbnail = thumbnails.of(person, painter.device()->devicePixelRatioF());
    if (thumbnail && !thumbnail->isNull()) {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setClipPath(frame, Qt::IntersectClip);
        painter.drawPixmap(place, *thumbnail);
        painter.restore();
        return;
    }
    painter.fillPath(frame, colours::pictureGround());
    painter.setFont(rowFont(nameSize));
    painter.setPen(colours::faintText());
    painter.drawText(place, Qt::AlignCenter, initial(person));
}

void paintTextField(QPainter& painter, const QRect& place, const Person& person, bool hasMistake)
{
    const QString era =
        hasMistake ? QCoreApplication::translate("PersonCell", "A date was not understood") : person.era();
    const bool hasName = !person.name().value_or(QString()).trimmed().isEmpty();
    QFont font = rowFont(nameSize);
    font.setItalic(!hasName);
    painter.setFont(font);
    painter.setPen(hasName ? colours::listText() : colours::faintText());
    const QString begin = shortened(shownName(person), mostOfAName);
    const QString name = painter.fontMetrics().elidedText(begin, Qt::ElideRight, place.width());
    if (era.isEmpty()) {
        painter.drawText(place, Qt::AlignVCenter, name);
        return;
    }
    const QRect upper = place.adjusted(0, 7, 0, -place.height() / 2 + 2);
    const QRect lower = place.adjusted(0, place.height() / 2 + 2, 0, -6);
    painter.drawText(upper, Qt::AlignVCenter, name);
    painter.setFont(rowFont(eraSize));
    painter.setPen(hasMistake ? colours::mistake() : colours::faintText());
    painter.drawText(lower, Qt::AlignVCenter, era);
}

} // namespace

PersonCell::PersonCell(const CellSources& sources, QObject* parent) : QStyledItemDelegate(parent), sources_(sources)
{
    setObjectName(QStringLiteral("PersonCell"));
}

void PersonCell::paintCompact(QPainter& painter, const QRect& row, const Person& person, const CellSources& sources)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const int pictureTop = row.top() + (collapsedHeight - 1 - pictureSide) / 2;
    const QRect picture(row.left() + margin, pictureTop, pictureSide, pictureSide);
    paintImageView(painter, picture, person, sources.thumbnails);
    const QRect texts(picture.right() + margin, row.top(), row.right() - picture.right() - 2 * margin,
                      collapsedHeight - 1);
    paintTextField(painter, texts, person, sources.refused.has(person.recordId()));
}

void PersonCell::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, colours::collapsedGround());
    painter->fillRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1, colours::rowEdge());
    if (const Person* const person = static_cast<const PersonTableModel*>(index.model())->personAt(index.row()))
        paintCompact(*painter, option.rect, *person, sources_);
    painter->restore();
}

QSize PersonCell::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, collapsedHeight};
}

} // namespace lineara

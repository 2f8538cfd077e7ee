#pragma once

#include <QStyledItemDelegate>

namespace lineara {

class Person;
class RefusedEntries;
class Thumbnails;

/// Height of a row that only shows who it is.
inline constexpr int collapsedHeight = 49;

/// What the rows show apart from the records.
struct CellSources
{
    Thumbnails& thumbnails;
    const RefusedEntries& refused;
};

/// "PersonCell": paints the rows that are not open, with the thumbnail, the name and the life span on a light ground.
class PersonCell : public QStyledItemDelegate
{
public:
    PersonCell(const CellSources& sources, QObject* parent);

    /// The picture and the texts of a person in a row that begins at the top of the rectangle.
    static void paintCompact(QPainter& painter, const QRect& row, const Person& person, const CellSources& sources);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    CellSources sources_;
};

} // namespace lineara

#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

namespace lineara {

/// What a row of the table of recent files keeps beside the file's name.
enum RecentRole
{
    PathRole = Qt::UserRole,
    PlaceRole,  ///< folder and date, as they are shown
    MissingRole ///< the file is not there
};

/// Paints a recent file in two lines, with an icon before and a cross behind.
class RecentRow : public QStyledItemDelegate
{
public:
    explicit RecentRow(QObject* parent);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Where the cross is, in a row that takes this room.
    static QRect crossRect(const QRect& row, Qt::LayoutDirection direction);

private:
    void paintTexts(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    QIcon icon_;
};

} // namespace lineara

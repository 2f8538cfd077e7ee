#include "recent_table.h"

#include "recent_row.h"
#include "shown_folder.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QStandardItemModel>

#include <utility>

namespace lineara {

namespace {

constexpr int leastWidth = 320; ///< of the table
constexpr int leastHeight = 120;

QString shownDate(const QFileInfo& file)
{
    return QLocale().toString(file.lastModified(), QLocale::ShortFormat);
}

} // namespace

RecentTable::RecentTable() : rows_(new QStandardItemModel(0, 1, this))
{
    setObjectName(QStringLiteral("recentTable"));
    setAccessibleName(tr("Recent families"));
    setModel(rows_);
    setItemDelegate(new RecentRow(this));
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setShowGrid(false);
    setMinimumSize(leastWidth, leastHeight);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
}

void RecentTable::setRows(const QList<RecentFile>& rows)
{
    rows_->setRowCount(0);
    for (const RecentFile& file : rows) {
        auto* const item = new QStandardItem(file.name);
        item->setData(file.path, PathRole);
        rows_->appendRow(item);
    }
    refresh();
}

int RecentTable::rowCount() const
{
    return rows_->rowCount();
}

bool RecentTable::isMissing(int row) const
{
    return rows_->index(row, 0).data(MissingRole).toBool();
}

void RecentTable::refresh()
{
    for (int row = 0; row < rowCount(); ++row) {
        QStandardItem& item = *rows_->item(row);
        const QString path = item.data(PathRole).toString();
        const QFileInfo file(path);
        const bool isMissing = !file.exists();
        const QString second = isMissing ? tr("not found") : shownDate(file);
        const QString place = tr("%1 — %2", "folder — date").arg(shownFolder(file.path()), second);
        item.setData(isMissing, MissingRole);
        item.setData(place, PlaceRole);
        item.setToolTip(QDir::toNativeSeparators(path));
        item.setData(item.text() + QStringLiteral(", ") + place, Qt::AccessibleTextRole);
    }
}

QRect RecentTable::crossRect(int row) const
{
    return RecentRow::crossRect(visualRect(rows_->index(row, 0)), layoutDirection());
}

bool RecentTable::isOnCross(QPoint point) const
{
    const int row = rowAtPoint(point);
    return row >= 0 && crossRect(row).contains(point);
}

void RecentTable::choose(int row)
{
    clickedRow_ = row;
    if (doubleAction_)
        doubleAction_();
}

void RecentTable::forget(int row)
{
    if (row >= 0 && forget_)
        forget_(row);
}

void RecentTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        choose(currentIndex().row());
    else if (event->key() == Qt::Key_Delete)
        forget(currentIndex().row());
    else
        QTableView::keyPressEvent(event);
}

void RecentTable::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    pressedCross_ = event->button() == Qt::LeftButton && isOnCross(point) ? rowAtPoint(point) : -1;
    QTableView::mousePressEvent(event);
}

void RecentTable::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    const QPoint point = event->position().toPoint();
    const int pressed = std::exchange(pressedCross_, -1);
    if (pressed >= 0 && isOnCross(point) && rowAtPoint(point) == pressed)
        forget(pressed);
}

void RecentTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    // A second click on a cross meets the row that has moved up to where the first one went away.
    if (event->button() == Qt::LeftButton && !isOnCross(point))
        choose(rowAtPoint(point));
}

void RecentTable::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const int row = isByKey ? currentIndex().row() : rowAtPoint(event->pos());
    if (row < 0)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const open = menu->addAction(tr("&Open"), this, [this, row] { choose(row); });
    open->setEnabled(!isMissing(row));
    menu->addAction(tr("&Remove from List"), this, [this, row] { forget(row); });
    menu->popup(isByKey ? viewport()->mapToGlobal(visualRect(currentIndex()).center()) : event->globalPos());
}

} // namespace lineara

// The start window's table: what it lists, and what becomes of its rows.

#include "app/app_delegate.h"
#include "recent_documents.h"
#include "recent_table.h"
#include "start_window.h"

namespace lineara {

int AppDelegate::numberOfRowsInTableView(RecentTable& table)
{
    table.setDoubleAction([this, &table] { openRecent(table); });
    if (recentUrls_.isEmpty())
        recentUrls_ = RecentDocuments::recentDocumentUrls();
    return static_cast<int>(recentUrls_.size());
}

QString AppDelegate::tableViewObjectValueForTableColumn(int row) const
{
    return recentUrls_.value(row).fileName();
}

void AppDelegate::openRecent(const RecentTable& sender)
{
    const int row = sender.clickedRow();
    if (row >= 0 && row < recentUrls_.size())
        open({recentUrls_[row].toLocalFile()});
}

void AppDelegate::showRecentRows()
{
    RecentTable& table = window_->recentTable();
    QList<RecentFile> rows;
    const int count = numberOfRowsInTableView(table);
    for (int row = 0; row < count; ++row)
        rows.append({tableViewObjectValueForTableColumn(row), recentUrls_[row].toLocalFile()});
    table.setRows(rows);
    window_->showRecent();
}

void AppDelegate::forgetRecent(int row)
{
    RecentDocuments::remove(recentUrls_.takeAt(row));
    showRecentRows();
}

} // namespace lineara

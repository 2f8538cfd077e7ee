#pragma once

#include <QList>
#include <QString>
#include <QTableView>

#include <functional>

class QStandardItemModel;

namespace lineara {

/// One row of the table: what its data source says of a recent file.
struct RecentFile
{
    QString name;
    QString path;
};

/// The recent families in one column: the file's name, and below it where it lies and when it was changed. Files that
/// are gone are grey. A double click, or Return, carries out the double-click action, also where there is no row; a
/// cross in the row, Delete and the context menu take a file out of the list.
class RecentTable : public QTableView
{
    Q_OBJECT

public:
    RecentTable();

    /// Which files are there is looked up now, and again whenever the window comes to the front.
    void setRows(const QList<RecentFile>& rows);
    int rowCount() const;
    bool isMissing(int row) const;

    void setDoubleAction(std::function<void()> doubleAction) { doubleAction_ = std::move(doubleAction); }
    /// What carries out the action; empty if nobody has set it.
    const std::function<void()>& doubleAction() const { return doubleAction_; }
    /// The row that was double-clicked, or chosen by keyboard, last; -1 where there was none.
    int clickedRow() const { return clickedRow_; }

    /// Called with a row that the user wants out of the list; it is still there.
    void setForget(std::function<void(int row)> forget) { forget_ = std::move(forget); }

    /// Where the cross of a row can be pressed, in the viewport.
    QRect crossRect(int row) const;

    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    int rowAtPoint(QPoint point) const { return indexAt(point).row(); }
    bool isOnCross(QPoint point) const;
    void choose(int row);
    void forget(int row);

    QStandardItemModel* rows_;
    std::function<void()> doubleAction_;
    std::function<void(int)> forget_;
    int clickedRow_ = -1;
    int pressedCross_ = -1;
};

} // namespace lineara

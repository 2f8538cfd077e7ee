#include "person_table_view.h"

#include "list_colours.h"
#include "person_cell.h"
#include "person_table_model.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace lineara {

PersonTableView::PersonTableView(PersonTableModel& model, RowGestures gestures) : gestures_(std::move(gestures))
{
    setObjectName(QStringLiteral("personTableView"));
    setAccessibleName(QCoreApplication::translate("PersonList", "Persons"));
    setModel(&model);
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    horizontalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(collapsedHeight);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    // With a single selection, the toolkit would select the neighbour of a selected row that goes.
    setSelectionMode(ExtendedSelection);
    QPalette light = palette();
    light.setColor(QPalette::Base, colours::collapsedGround());
    setPalette(light);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this](const QItemSelection& selected) {
        if (!selecting_ && !selected.isEmpty())
            gestures_.chosen(selected.first().top());
    });
}

void PersonTableView::selectRow(std::optional<int> row)
{
    const QScopedValueRollback selecting(selecting_, true);
    if (!row) {
        selectionModel()->clearSelection();
        return;
    }
    const QModelIndex index = model()->index(*row, PersonTableModel::PersonCell);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

std::optional<int> PersonTableView::selectedRow() const
{
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    return rows.isEmpty() ? std::nullopt : std::optional(rows.first().row());
}

void PersonTableView::reveal(int row)
{
    const int top = topOf(row);
    const int lowest = std::max(0, viewport()->height() - rowHeight(row));
    scrollTopTo(row, std::clamp(top, 0, lowest));
}

void PersonTableView::scrollTopTo(int row, int top)
{
    // The scroll bar has to know of rows that have just changed.
    updateGeometries();
    verticalScrollBar()->setValue(verticalHeader()->sectionPosition(row) - top);
}

void PersonTableView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int row = rowAt(event->position().toPoint().y());
    gestures_.chosen(row < 0 ? std::nullopt : std::optional(row));
}

void PersonTableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

// Rows are not dragged over, and a release adds nothing to the press.
void PersonTableView::mouseMoveEvent(QMouseEvent*) {}

void PersonTableView::mouseReleaseEvent(QMouseEvent*) {}

void PersonTableView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        gestures_.returnPressed();
    } else if (const auto row = rowAfter(event->key())) {
        reveal(*row);
        gestures_.chosen(row);
    } else {
        event->ignore();
    }
}

/// The row that a key leads to from the selected one.
std::optional<int> PersonTableView::rowAfter(int key) const
{
    const int last = model()->rowCount() - 1;
    if (last < 0)
        return std::nullopt;
    const auto from = selectedRow();
    const int page = std::max(1, viewport()->height() / collapsedHeight - 1);
    const auto walk = [&](int rows) { return from ? std::clamp(*from + rows, 0, last) : 0; };
    switch (key) {
    case Qt::Key_Up:
        return walk(-1);
    case Qt::Key_Down:
        return walk(1);
    case Qt::Key_PageUp:
        return walk(-page);
    case Qt::Key_PageDown:
        return walk(page);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    default:
        return std::nullopt;
    }
}

// What the toolkit would do makes a row the current one.
void PersonTableView::focusInEvent(QFocusEvent* /*event*/)
{
    showFocus();
}

void PersonTableView::focusOutEvent(QFocusEvent* /*event*/)
{
    showFocus();
}

void PersonTableView::showFocus()
{
    update();
    viewport()->update();
    focusChanged_();
}

/// Without an open row to show it, the table itself shows that it has the keyboard.
void PersonTableView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (!hasFocus() || selectedRow())
        return;
    QPainter painter(viewport());
    painter.setPen(QPen(colours::listFocus(), 2));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

QItemSelectionModel::SelectionFlags PersonTableView::selectionCommand(const QModelIndex&, const QEvent*) const
{
    return QItemSelectionModel::NoUpdate;
}

RowsInPlace::RowsInPlace(PersonTableView& table) : table_(table)
{
    const auto selected = table.selectedRow();
    const bool isInView = selected && table.topOf(*selected) < table.viewport()->height() &&
                          table.topOf(*selected) + table.rowHeight(*selected) > 0;
    const int row = isInView ? *selected : table.rowAt(0);
    // Who looks at the top of the list looks at whoever comes first.
    if (row < 0 || (!isInView && table.verticalScrollBar()->value() == 0))
        return;
    anchor_ = table.model()->index(row, PersonTableModel::PersonCell);
    top_ = table.topOf(row);
}

RowsInPlace::~RowsInPlace()
{
    if (anchor_.isValid())
        table_.scrollTopTo(anchor_.row(), top_);
}

} // namespace lineara

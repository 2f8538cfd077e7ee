#include "open_row.h"

#include "person_cell.h"
#include "person_table_cell_view.h"
#include "person_table_model.h"
#include "person_table_view.h"

#include <QEasingCurve>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

constexpr int motionMilliseconds = 520;

int between(int from, int to, double progress)
{
    return qRound(from + (to - from) * progress);
}

} // namespace

OpenRow::OpenRow(PersonTableView& table, MakeCell makeCell) : table_(table), makeCell_(std::move(makeCell))
{
    animation_.setStartValue(0.0);
    animation_.setEndValue(1.0);
    animation_.setDuration(motionMilliseconds);
    animation_.setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(&animation_, &QVariantAnimation::valueChanged, &animation_,
                     [this](const QVariant& value) { moveTo(value.toDouble()); });
    QObject::connect(&animation_, &QVariantAnimation::finished, &animation_, [this] { end(); });
    // Who scrolls meanwhile wants to look at something else.
    QObject::connect(table.verticalScrollBar(), &QScrollBar::actionTriggered, &animation_,
                     [this] { anchor_ = QPersistentModelIndex(); });
    QObject::connect(&table, &QObject::destroyed, &animation_, [this] { animation_.stop(); });
}

PersonTableCellView* OpenRow::cell() const
{
    return person_ && !moving_.empty() ? moving_.back().cell : nullptr;
}

void OpenRow::open(int row, RecordId person)
{
    if (person_ == person)
        return;
    beginClosing();
    table_.reveal(row);
    const QModelIndex index = table_.model()->index(row, PersonTableModel::PersonCell);
    // The row may still be closing; its own cell goes then, because a cell that has begun to close is not used again.
    std::erase_if(moving_, [&](Moving& moving) { return moving.row == index; });
    PersonTableCellView* const cell = makeCell_(person);
    table_.setIndexWidget(index, cell);
    moving_.push_back({index, cell, table_.rowHeight(row), expandedHeight});
    person_ = person;
    cell->expand();
    anchorTo(row);
    startMotion();
}

void OpenRow::close()
{
    if (!person_)
        return;
    beginClosing();
    anchor_ = QPersistentModelIndex();
    startMotion();
}

void OpenRow::closeAtOnce()
{
    if (!person_)
        return;
    beginClosing();
    anchor_ = QPersistentModelIndex();
    finishMotion();
}

void OpenRow::forget()
{
    if (!person_)
        return;
    beginClosing();
    dropCell(moving_.back());
    table_.setRowHeight(moving_.back().row.row(), collapsedHeight);
    moving_.pop_back();
    startMotion();
}

void OpenRow::beginClosing()
{
    animation_.stop();
    if (!person_)
        return;
    // Only one editor fades away at a time, however fast somebody walks through the list.
    for (Moving& moving : moving_) {
        if (&moving != &moving_.back())
            dropCell(moving);
    }
    Moving& closing = moving_.back();
    closing.to = collapsedHeight;
    person_.reset();
    if (!closing.cell)
        return;
    const QWidget* const focused = table_.window()->focusWidget();
    const bool hadFocus = focused && closing.cell->isAncestorOf(focused);
    closing.cell->collapse();
    if (hadFocus)
        table_.setFocus();
}

/// The row keeps its top, unless its end would lie below what is visible.
void OpenRow::anchorTo(int row)
{
    anchor_ = table_.model()->index(row, PersonTableModel::PersonCell);
    anchorFrom_ = table_.topOf(row);
    anchorTo_ = std::clamp(anchorFrom_, 0, std::max(0, table_.viewport()->height() - expandedHeight));
}

void OpenRow::startMotion()
{
    std::erase_if(moving_, [](const Moving& moving) { return !moving.row.isValid(); });
    for (Moving& moving : moving_)
        moving.from = table_.rowHeight(moving.row.row());
    if (!reducedMotion_ && table_.isVisible()) {
        moveTo(0);
        animation_.start();
        return;
    }
    finishMotion();
}

void OpenRow::finishMotion()
{
    moveTo(1);
    end();
}

void OpenRow::moveTo(double progress)
{
    for (Moving& moving : moving_) {
        if (!moving.row.isValid())
            continue;
        const int height = between(moving.from, moving.to, progress);
        table_.setRowHeight(moving.row.row(), height);
        if (moving.cell)
            moving.cell->setExpansion(static_cast<double>(height - collapsedHeight) /
                                      (expandedHeight - collapsedHeight));
    }
    if (anchor_.isValid())
        table_.scrollTopTo(anchor_.row(), between(anchorFrom_, anchorTo_, progress));
}

void OpenRow::end()
{
    for (Moving& moving : moving_) {
        if (moving.to == collapsedHeight)
            dropCell(moving);
    }
    std::erase_if(moving_, [](const Moving& moving) { return moving.to == collapsedHeight; });
    anchor_ = QPersistentModelIndex();
}

void OpenRow::dropCell(Moving& moving)
{
    if (moving.cell && moving.row.isValid())
        table_.setIndexWidget(moving.row, nullptr);
    moving.cell = nullptr;
}

} // namespace lineara

#pragma once

#include "model/record.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QVariantAnimation>

#include <functional>
#include <optional>
#include <vector>

namespace lineara {

class PersonTableCellView;
class PersonTableView;

/// The row that is open, and those that are still closing. One animation moves everything: the heights, what fades
/// with them, and the scrolling that brings the whole open row into view.
class OpenRow
{
public:
    using MakeCell = std::function<PersonTableCellView*(RecordId person)>;

    /// Cells that `makeCell` makes belong to the table.
    OpenRow(PersonTableView& table, MakeCell makeCell);

    /// Opens the row of the person and closes any other. A row that is open stays as it is.
    void open(int row, RecordId person);
    void close();
    /// Without any motion.
    void closeAtOnce();
    /// To be called before the open row is taken out of the table.
    void forget();

    /// Whose row is open.
    std::optional<RecordId> person() const { return person_; }
    /// The editor of the open row, or nullptr.
    PersonTableCellView* cell() const;

    void setReducedMotion(bool reduced) { reducedMotion_ = reduced; }

private:
    struct Moving
    {
        QPersistentModelIndex row;
        QPointer<PersonTableCellView> cell;
        int from;
        int to;
    };

    void beginClosing();
    void startMotion();
    void finishMotion();
    void anchorTo(int row);
    void moveTo(double progress);
    void end();
    void dropCell(Moving& moving);

    PersonTableView& table_;
    MakeCell makeCell_;
    QVariantAnimation animation_;
    std::vector<Moving> moving_; // the open row, if there is one, comes last
    std::optional<RecordId> person_;
    QPersistentModelIndex anchor_; // the row that decides what is scrolled to; none once the user scrolls
    int anchorFrom_ = 0;
    int anchorTo_ = 0;
    bool reducedMotion_ = false;
};

} // namespace lineara

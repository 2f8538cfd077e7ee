#include "checks_panel.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lineara {

namespace {

struct ChecksTexts
{
    Q_DECLARE_TR_FUNCTIONS(ChecksTexts)
};

constexpr int nameWidth = 260;
/// Some lines are enough to begin with, since the family is what is looked at.
constexpr int firstListHeight = 110;
constexpr int rowPadding = 4;

/// A list that asks for as much room as it is meant to have at first.
class ShortList : public QTableView
{
public:
    QSize sizeHint() const override { return {QTableView::sizeHint().width(), firstListHeight}; }
};

QString summaryOf(std::size_t found)
{
    if (found == 0)
        return ChecksTexts::tr("No contradictions among the dates that are known.");
    return ChecksTexts::tr("%n contradiction(s) among the dates", nullptr, static_cast<int>(found));
}

} // namespace

void CheckedPersons::show(CheckedLines lines)
{
    beginResetModel();
    lines_ = std::move(lines);
    endResetModel();
}

std::optional<int> CheckedPersons::rowOf(const CheckedMatter& matter) const
{
    for (std::size_t row = 0; row < lines_.count; ++row) {
        if (lines_.matterAt(row) == matter)
            return static_cast<int>(row);
    }
    return std::nullopt;
}

int CheckedPersons::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(lines_.count);
}

int CheckedPersons::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant CheckedPersons::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const CheckedPerson line = lineAt(index);
    return index.column() == Name ? line.name : line.words;
}

QVariant CheckedPersons::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == Name ? ChecksTexts::tr("Person") : ChecksTexts::tr("Contradiction");
}

ChecksPanel::ChecksPanel(std::function<void(RecordId)> picked)
    : QDockWidget(ChecksTexts::tr("Checks")), summary_(new QLabel), list_(new ShortList)
{
    setObjectName(QStringLiteral("checksPanel"));
    setFeatures(QDockWidget::DockWidgetClosable);
    // Its menu command works the list out before it shows it.
    toggleViewAction()->setVisible(false);
    summary_->setObjectName(QStringLiteral("checksSummary"));
    summary_->setContentsMargins(6, 2, 6, 2);
    list_->setObjectName(QStringLiteral("checksList"));
    list_->setModel(&found_);
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setSelectionMode(QAbstractItemView::SingleSelection);
    list_->setAlternatingRowColors(true);
    list_->setShowGrid(false);
    list_->setTabKeyNavigation(false);
    list_->setWordWrap(false);
    list_->setAccessibleName(ChecksTexts::tr("Checks"));
    list_->verticalHeader()->hide();
    // One height for all rows: to ask each of a hundred thousand would take long.
    list_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list_->verticalHeader()->setDefaultSectionSize(list_->fontMetrics().height() + rowPadding);
    list_->horizontalHeader()->setHighlightSections(false);
    list_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    list_->horizontalHeader()->setStretchLastSection(true);
    list_->setColumnWidth(CheckedPersons::Name, nameWidth);
    auto* const content = new QWidget;
    auto* const rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(summary_);
    rows->addWidget(list_, 1);
    setWidget(content);
    const auto pick = [this, picked = std::move(picked)](const QModelIndex& index) { picked(found_.personAt(index)); };
    connect(list_, &QTableView::clicked, this, pick);
    connect(list_, &QTableView::activated, this, pick);
    hide();
}

void ChecksPanel::tellToWait()
{
    tell({});
    summary_->setText(ChecksTexts::tr("Looking for contradictions\u2026"));
}

void ChecksPanel::tell(CheckedLines lines)
{
    const bool isEmpty = lines.count == 0;
    summary_->setText(summaryOf(lines.count));
    list_->setHidden(isEmpty);
    // Without a list there is nothing to give room to.
    setMaximumHeight(isEmpty ? sizeHint().height() : QWIDGETSIZE_MAX);
    const int row = list_->currentIndex().row();
    const int topRow = list_->indexAt({0, 0}).row();
    const auto matter = chosen();
    found_.show(std::move(lines));
    const int last = found_.rowCount() - 1;
    if (last < 0)
        return;
    goTo(matter, std::min(row, last));
    if (topRow >= 0)
        list_->scrollTo(found_.index(std::min(topRow, last), 0), QAbstractItemView::PositionAtTop);
}

std::optional<CheckedMatter> ChecksPanel::chosen() const
{
    const QModelIndexList rows = list_->selectionModel()->selectedRows();
    return rows.isEmpty() ? std::nullopt : std::optional(found_.matterAt(rows.front()));
}

/// Where the matter is gone the arrow keys go on from the row, which looks like all others.
void ChecksPanel::goTo(const std::optional<CheckedMatter>& matter, int row)
{
    const std::optional<int> place = matter ? found_.rowOf(*matter) : std::nullopt;
    if (place)
        list_->selectionModel()->setCurrentIndex(found_.index(*place, 0),
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else if (row >= 0)
        list_->selectionModel()->setCurrentIndex(found_.index(row, 0), QItemSelectionModel::NoUpdate);
}

} // namespace lineara

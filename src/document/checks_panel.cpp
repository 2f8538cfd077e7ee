#include "checks_panel.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
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

/// A list that asks for as much room as it is meant to have at first.
class ShortList : public QTreeView
{
public:
    QSize sizeHint() const override { return {QTreeView::sizeHint().width(), firstListHeight}; }
};

QString summaryOf(std::size_t found)
{
    if (found == 0)
        return ChecksTexts::tr("No contradictions among the dates that are known.");
    return ChecksTexts::tr("%n contradiction(s) among the dates", nullptr, static_cast<int>(found));
}

} // namespace

void CheckedPersons::show(std::vector<CheckedPerson> found)
{
    beginResetModel();
    found_ = std::move(found);
    endResetModel();
}

int CheckedPersons::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(found_.size());
}

int CheckedPersons::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Columns;
}

QVariant CheckedPersons::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const CheckedPerson& found = found_[static_cast<std::size_t>(index.row())];
    return index.column() == Name ? found.name : found.words;
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
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAlternatingRowColors(true);
    list_->setAllColumnsShowFocus(true);
    list_->setAccessibleName(ChecksTexts::tr("Checks"));
    list_->header()->resizeSection(CheckedPersons::Name, nameWidth);
    auto* const content = new QWidget;
    auto* const rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(summary_);
    rows->addWidget(list_, 1);
    setWidget(content);
    const auto pick = [this, picked = std::move(picked)](const QModelIndex& index) { picked(found_.personAt(index)); };
    connect(list_, &QTreeView::clicked, this, pick);
    connect(list_, &QTreeView::activated, this, pick);
    hide();
}

void ChecksPanel::tell(std::vector<CheckedPerson> found)
{
    summary_->setText(summaryOf(found.size()));
    list_->setHidden(found.empty());
    // Without a list there is nothing to give room to.
    setMaximumHeight(found.empty() ? sizeHint().height() : QWIDGETSIZE_MAX);
    const int row = list_->currentIndex().row();
    const int topRow = list_->indexAt({0, 0}).row();
    found_.show(std::move(found));
    const int last = found_.rowCount() - 1;
    if (last < 0)
        return;
    if (row >= 0)
        list_->selectionModel()->setCurrentIndex(found_.index(std::min(row, last), 0),
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (topRow >= 0)
        list_->scrollTo(found_.index(std::min(topRow, last), 0), QAbstractItemView::PositionAtTop);
}

} // namespace lineara

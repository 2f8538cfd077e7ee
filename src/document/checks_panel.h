#pragma once

#include "kinship/checks.h"
#include "model/record.h"

#include <QAbstractTableModel>
#include <QDockWidget>

#include <functional>
#include <vector>

class QLabel;
class QTreeView;

namespace lineara {

/// One line of the checks: about whom, and what can't be true.
struct CheckedPerson
{
    RecordId person;
    QString name;
    QString words;
    friend bool operator==(const CheckedPerson&, const CheckedPerson&) = default;
};

class CheckedPersons : public QAbstractTableModel
{
public:
    enum Column
    {
        Name,
        Words,
        Columns
    };

    void show(std::vector<CheckedPerson> found);
    RecordId personAt(const QModelIndex& index) const { return found_[static_cast<std::size_t>(index.row())].person; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<CheckedPerson> found_;
};

/// What can't be true of a family's dates, in a list that its user may have beneath the family and leads to whomever is
/// picked from it.
class ChecksPanel : public QDockWidget
{
public:
    explicit ChecksPanel(std::function<void(RecordId)> picked);

    /// Keeps the place in the list as far as it can.
    void tell(std::vector<CheckedPerson> found);

private:
    CheckedPersons found_;
    QLabel* summary_;
    QTreeView* list_;
};

} // namespace lineara

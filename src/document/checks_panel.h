#pragma once

#include "kinship/checks.h"
#include "model/record.h"

#include <QAbstractTableModel>
#include <QDockWidget>

#include <cstddef>
#include <functional>
#include <optional>

class QLabel;
class QTableView;

namespace lineara {

/// One line of the checks: about whom, and what can't be true.
struct CheckedPerson
{
    RecordId person;
    QString name;
    QString words;
};

/// What a line is about, by which it is known again among others.
struct CheckedMatter
{
    RecordId person;
    kinship::Finding finding{};
    std::optional<RecordId> other;
    friend bool operator==(const CheckedMatter&, const CheckedMatter&) = default;
};

/// All lines of the checks. Each is put into words when it is seen, for there may be more than a hundred thousand.
struct CheckedLines
{
    std::size_t count = 0;
    std::function<CheckedPerson(std::size_t)> at;
    std::function<CheckedMatter(std::size_t)> matterAt;
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

    void show(CheckedLines lines);
    RecordId personAt(const QModelIndex& index) const { return lineAt(index).person; }
    CheckedMatter matterAt(const QModelIndex& index) const
    {
        return lines_.matterAt(static_cast<std::size_t>(index.row()));
    }
    /// No value where it is not among the lines.
    std::optional<int> rowOf(const CheckedMatter& matter) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    CheckedPerson lineAt(const QModelIndex& index) const { return lines_.at(static_cast<std::size_t>(index.row())); }

    CheckedLines lines_;
};

/// What can't be true of a family's dates, in a list that its user may have beneath the family and leads to whomever is
/// picked from it.
class ChecksPanel : public QDockWidget
{
public:
    explicit ChecksPanel(std::function<void(RecordId)> picked);

    /// Until there is something to tell.
    void tellToWait();
    /// Keeps the place in the list as far as it can. What was chosen stays chosen wherever it stands now; where it is
    /// gone, nothing is.
    void tell(CheckedLines lines);

private:
    std::optional<CheckedMatter> chosen() const;
    void goTo(const std::optional<CheckedMatter>& matter, int row);

    CheckedPersons found_;
    QLabel* summary_;
    QTableView* list_;
};

} // namespace lineara

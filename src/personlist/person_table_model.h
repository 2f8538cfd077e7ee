#pragma once

#include "model/record.h"
#include "personlist/search_words.h"

#include <QAbstractTableModel>

#include <optional>
#include <span>
#include <unordered_set>
#include <vector>

namespace lineara {

class Person;
class Pool;

/// Who stands in the list, in which order, and who of them is shown: one column, a row for everybody whom the search
/// finds. There are no resets, so a row that is open stays so through every change.
class PersonTableModel : public QAbstractTableModel
{
public:
    enum Column
    {
        PersonCell
    };

    explicit PersonTableModel(const Pool& pool) : pool_(pool) {}

    /// Adds a row at the end, whatever is searched for. Who is in the list already stays where he is.
    void add(RecordId person);
    void remove(RecordId person);
    /// Has these persons and nobody else in the list; newcomers stand at the end. The row of `kept` is not taken out on
    /// the way if it is to be shown afterwards, too.
    void setPersons(const std::vector<RecordId>& persons, std::optional<RecordId> kept);
    /// Brings everybody into order: the highest generation first, who has none last, and within a generation the order
    /// of the family's members.
    void rearrange();
    /// Shows who is found, and nobody else. `kept` as above.
    void search(const SearchWords& words, std::optional<RecordId> kept);
    /// What is shown of persons has changed.
    void refresh();

    bool contains(RecordId person) const { return persons_.contains(person); }
    /// -1 if the person is not shown.
    int rowOf(RecordId person) const;
    std::optional<RecordId> idAt(int row) const;
    /// Nullptr if the record is gone.
    Person* personAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    using Ids = std::vector<RecordId>;

    bool isFound(RecordId id) const;
    Ids sorted() const;
    void showRows(const Ids& rows, std::optional<RecordId> kept);
    void replaceRows(std::size_t first, std::size_t count, std::span<const RecordId> rows);
    void permuteRows(Ids rows);

    const Pool& pool_;
    Ids arranged_;                         // everybody
    std::unordered_set<RecordId> persons_; // the same
    Ids rows_;                             // who is shown
    SearchWords words_;
};

/// How a person is named where there has to be something to read.
QString shownName(const Person& person);

} // namespace lineara

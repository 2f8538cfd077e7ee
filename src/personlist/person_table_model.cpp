#include "person_table_model.h"

#include "model/object_context.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace lineara {

namespace {

/// Without a generation less than with any.
std::int64_t height(const Person* person)
{
    return person && person->generation() ? *person->generation() : std::numeric_limits<std::int64_t>::min();
}

auto at(std::vector<RecordId>& ids, std::size_t position)
{
    return ids.begin() + static_cast<std::ptrdiff_t>(position);
}

} // namespace

QString shownName(const Person& person)
{
    const QString name = person.name().value_or(QString()).simplified();
    return name.isEmpty() ? QCoreApplication::translate("PersonList", "Without a name") : name;
}

void PersonTableModel::add(RecordId person)
{
    if (!persons_.insert(person).second)
        return;
    arranged_.push_back(person);
    replaceRows(rows_.size(), 0, std::span(&person, 1));
}

void PersonTableModel::remove(RecordId person)
{
    if (persons_.erase(person) == 0)
        return;
    std::erase(arranged_, person);
    if (const int row = rowOf(person); row >= 0)
        replaceRows(static_cast<std::size_t>(row), 1, {});
}

void PersonTableModel::setPersons(const std::vector<RecordId>& persons, std::optional<RecordId> kept)
{
    const std::unordered_set<RecordId> wanted(persons.begin(), persons.end());
    const std::unordered_set<RecordId> before = std::exchange(persons_, wanted);
    std::erase_if(arranged_, [&](RecordId id) { return !wanted.contains(id); });
    Ids rows;
    std::ranges::copy_if(rows_, std::back_inserter(rows), [&](RecordId id) { return wanted.contains(id); });
    for (const RecordId id : persons) {
        if (before.contains(id))
            continue;
        arranged_.push_back(id);
        if (isFound(id))
            rows.push_back(id);
    }
    showRows(rows, kept);
}

void PersonTableModel::rearrange()
{
    arranged_ = sorted();
    if (rows_.size() == arranged_.size()) {
        permuteRows(arranged_);
        return;
    }
    const std::unordered_set<RecordId> shown(rows_.begin(), rows_.end());
    Ids rows;
    std::ranges::copy_if(arranged_, std::back_inserter(rows), [&](RecordId id) { return shown.contains(id); });
    permuteRows(std::move(rows));
}

void PersonTableModel::search(const SearchWords& words, std::optional<RecordId> kept)
{
    words_ = words;
    Ids rows;
    std::ranges::copy_if(arranged_, std::back_inserter(rows), [this](RecordId id) { return isFound(id); });
    showRows(rows, kept);
}

void PersonTableModel::refresh()
{
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, PersonCell), index(rowCount() - 1, PersonCell));
}

int PersonTableModel::rowOf(RecordId person) const
{
    const auto found = std::ranges::find(rows_, person);
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

std::optional<RecordId> PersonTableModel::idAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return std::nullopt;
    return rows_[static_cast<std::size_t>(row)];
}

Person* PersonTableModel::personAt(int row) const
{
    const auto id = idAt(row);
    return id ? pool_.context().person(*id) : nullptr;
}

int PersonTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PersonTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant PersonTableModel::data(const QModelIndex& index, int role) const
{
    const Person* const person = index.isValid() ? personAt(index.row()) : nullptr;
    if (!person)
        return {};
    if (role == Qt::DisplayRole)
        return shownName(*person);
    if (role == Qt::AccessibleTextRole) {
        const QString era = person->era();
        return era.isEmpty() ? shownName(*person) : shownName(*person) + QStringLiteral(", ") + era;
    }
    return {};
}

bool PersonTableModel::isFound(RecordId id) const
{
    if (words_.empty())
        return true;
    const Person* const person = pool_.context().person(id);
    return person && words_.find(*person);
}

/// Members come in the order of the family, and who is none yet follows in the order of joining the list.
PersonTableModel::Ids PersonTableModel::sorted() const
{
    std::vector<std::pair<std::int64_t, RecordId>> persons;
    persons.reserve(arranged_.size());
    for (const Person* const person : pool_.persons()) {
        if (persons_.contains(person->recordId()))
            persons.emplace_back(height(person), person->recordId());
    }
    if (persons.size() < arranged_.size()) {
        for (const RecordId id : arranged_) {
            const Person* const person = pool_.context().person(id);
            if (!person || person->pool() != &pool_)
                persons.emplace_back(height(person), id);
        }
    }
    std::ranges::stable_sort(persons, std::ranges::greater(), &decltype(persons)::value_type::first);
    Ids ids;
    ids.reserve(persons.size());
    std::ranges::transform(persons, std::back_inserter(ids), &decltype(persons)::value_type::second);
    return ids;
}

void PersonTableModel::showRows(const Ids& rows, std::optional<RecordId> kept)
{
    const auto now = kept ? std::ranges::find(rows_, *kept) : rows_.end();
    const auto then = kept ? std::ranges::find(rows, *kept) : rows.end();
    if (now == rows_.end() || then == rows.end()) {
        replaceRows(0, rows_.size(), rows);
        return;
    }
    // What comes after first, so that the row's own number holds until its turn comes.
    const auto nowAt = static_cast<std::size_t>(now - rows_.begin());
    const auto thenAt = static_cast<std::size_t>(then - rows.begin());
    replaceRows(nowAt + 1, rows_.size() - nowAt - 1, std::span(rows).subspan(thenAt + 1));
    replaceRows(0, nowAt, std::span(rows).first(thenAt));
}

/// Rows that the two have in common at either end stay as they are.
void PersonTableModel::replaceRows(std::size_t first, std::size_t count, std::span<const RecordId> rows)
{
    while (count > 0 && !rows.empty() && rows_[first] == rows.front()) {
        ++first;
        --count;
        rows = rows.subspan(1);
    }
    while (count > 0 && !rows.empty() && rows_[first + count - 1] == rows.back()) {
        --count;
        rows = rows.first(rows.size() - 1);
    }
    const int from = static_cast<int>(first);
    if (count > 0) {
        beginRemoveRows({}, from, from + static_cast<int>(count) - 1);
        rows_.erase(at(rows_, first), at(rows_, first + count));
        endRemoveRows();
    }
    if (!rows.empty()) {
        beginInsertRows({}, from, from + static_cast<int>(rows.size()) - 1);
        rows_.insert(at(rows_, first), rows.begin(), rows.end());
        endInsertRows();
    }
}

void PersonTableModel::permuteRows(Ids rows)
{
    if (rows == rows_)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<RecordId> persons;
    std::ranges::transform(before, std::back_inserter(persons),
                           [this](const QModelIndex& index) { return rows_[static_cast<std::size_t>(index.row())]; });
    rows_ = std::move(rows);
    QModelIndexList after;
    for (const RecordId id : persons)
        after.append(index(rowOf(id), PersonCell));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

} // namespace lineara

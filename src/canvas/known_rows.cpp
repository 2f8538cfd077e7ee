#include "canvas/known_rows.h"

#include "model/object_context.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <ranges>
#include <utility>

namespace lineara {

namespace {

/// Spreads numbers that lie close together over the whole range.
std::uint64_t scattered(std::uint64_t number)
{
    number += 0x9e3779b97f4a7c15;
    number = (number ^ (number >> 30)) * 0xbf58476d1ce4e5b9;
    number = (number ^ (number >> 27)) * 0x94d049bb133111eb;
    return number ^ (number >> 31);
}

/// The same number for the same persons in any order.
std::uint64_t contentOf(const std::vector<RecordId>& row)
{
    return std::transform_reduce(row.begin(), row.end(), std::uint64_t{0}, std::plus{},
                                 [](RecordId person) { return scattered(person.number); });
}

bool haveSamePersons(std::vector<RecordId> one, std::vector<RecordId> other)
{
    std::ranges::sort(one, {}, &RecordId::number);
    std::ranges::sort(other, {}, &RecordId::number);
    return one == other;
}

} // namespace

void KnownRows::take(const Rows& rows)
{
    if (rows_ == rows)
        return;
    rows_ = rows;
    rowsByContent_.clear();
    rowOfPerson_.clear();
}

std::vector<std::int32_t> KnownRows::changedRows(const Rows& now) const
{
    std::vector<std::int32_t> changed;
    for (std::size_t row = 1; row < now.size(); ++row) {
        const bool isUnchanged = (row < rows_.size() && rows_[row] == now[row]) || isKnown(now[row]);
        if (!isUnchanged)
            changed.push_back(static_cast<std::int32_t>(row));
    }
    return changed;
}

bool KnownRows::isKnown(const std::vector<RecordId>& row) const
{
    if (rowsByContent_.empty()) {
        for (std::size_t known = 1; known < rows_.size(); ++known)
            rowsByContent_.emplace(contentOf(rows_[known]), known);
    }
    const auto [first, last] = rowsByContent_.equal_range(contentOf(row));
    return std::any_of(first, last, [&](const auto& known) { return haveSamePersons(rows_[known.second], row); });
}

std::vector<bool> KnownRows::stoodInRow(std::int32_t row, std::span<const RecordId> persons) const
{
    const auto index = static_cast<std::size_t>(row);
    std::vector<bool> stood(persons.size(), true);
    if (index < rows_.size() && std::ranges::equal(rows_[index], persons))
        return stood;
    indexPersons();
    std::vector<std::int32_t> origins;
    origins.reserve(persons.size());
    std::map<std::int32_t, std::size_t> shares;
    for (const RecordId person : persons) {
        const auto known = rowOfPerson_.find(person);
        origins.push_back(known == rowOfPerson_.end() ? 0 : known->second);
        if (origins.back() != 0)
            ++shares[origins.back()];
    }
    std::pair<std::int32_t, std::size_t> continued{0, 0};
    for (const auto& share : shares) {
        if (share.second > continued.second || (share.second == continued.second && share.first == row))
            continued = share;
    }
    std::transform(origins.begin(), origins.end(), stood.begin(),
                   [&](std::int32_t origin) { return origin != 0 && origin == continued.first; });
    return stood;
}

void KnownRows::indexPersons() const
{
    if (!rowOfPerson_.empty())
        return;
    const auto sizes = rows_ | std::views::transform([](const auto& row) { return row.size(); });
    rowOfPerson_.reserve(std::reduce(sizes.begin(), sizes.end()));
    for (std::size_t row = 1; row < rows_.size(); ++row) {
        for (const RecordId person : rows_[row])
            rowOfPerson_.emplace(person, static_cast<std::int32_t>(row));
    }
}

std::int64_t KnownRows::commonShift(const Pool& pool) const
{
    if (rows_ == pool.generations())
        return 0;
    std::optional<std::int64_t> shift;
    for (std::size_t row = 1; row < rows_.size(); ++row) {
        for (const RecordId id : rows_[row]) {
            const Person* const person = pool.context().person(id);
            if (!person || person->pool() != &pool || !person->generation())
                continue;
            const std::int64_t moved = std::int64_t{*person->generation()} - static_cast<std::int64_t>(row);
            if (moved == 0 || shift.value_or(moved) != moved)
                return 0;
            shift = moved;
        }
    }
    return shift.value_or(0);
}

} // namespace lineara

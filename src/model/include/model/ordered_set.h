#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <unordered_set>
#include <vector>

namespace lineara {

/// A set that enumerates in the order of insertion. T is a small value (a pointer or an id).
///
/// Membership is a linear search while the set is small and an index afterwards; removing keeps the order of the rest.
/// Not safe for concurrent use, not even for reading: the index is built at the first question.
template<class T>
class OrderedSet
{
public:
    using value_type = T;
    using const_iterator = typename std::vector<T>::const_iterator;

    OrderedSet() = default;

    std::size_t size() const { return members_.size(); }
    bool empty() const { return members_.empty(); }
    const_iterator begin() const { return members_.begin(); }
    const_iterator end() const { return members_.end(); }
    const T& operator[](std::size_t at) const { return members_[at]; }
    std::span<const T> span() const { return members_; }

    bool contains(const T& member) const
    {
        if (members_.size() < indexedFrom)
            return std::find(members_.begin(), members_.end(), member) != members_.end();
        if (!index_)
            index_ = std::make_unique<std::unordered_set<T>>(members_.begin(), members_.end());
        return index_->contains(member);
    }

    /// Position of the member, or no value if it is not in the set.
    std::optional<std::size_t> indexOf(const T& member) const
    {
        if (!contains(member))
            return std::nullopt;
        return static_cast<std::size_t>(std::find(members_.begin(), members_.end(), member) - members_.begin());
    }

    /// Adds at the end; false if it was there already.
    bool append(const T& member) { return insertAt(members_.size(), member); }

    /// Adds at the position (at most size()); false if it was there already.
    bool insertAt(std::size_t position, const T& member)
    {
        if (contains(member))
            return false;
        insertDistinctAt(position, member);
        return true;
    }

    /// Takes the member out; returns where it stood, or no value if it was not there.
    std::optional<std::size_t> remove(const T& member)
    {
        const auto position = indexOf(member);
        if (position) {
            members_.erase(members_.begin() + static_cast<std::ptrdiff_t>(*position));
            if (index_)
                index_->erase(member);
        }
        return position;
    }

    /// The same for a member that the caller knows not to be in the set: no search.
    void insertDistinctAt(std::size_t position, const T& member)
    {
        members_.insert(members_.begin() + static_cast<std::ptrdiff_t>(position), member);
        if (index_)
            index_->insert(member);
    }

    /// Takes out a member that the caller knows to be in the set; returns where it stood. Needs no index.
    std::size_t removePresent(const T& member)
    {
        const auto found = std::find(members_.begin(), members_.end(), member);
        const auto position = static_cast<std::size_t>(found - members_.begin());
        members_.erase(found);
        if (index_)
            index_->erase(member);
        return position;
    }

    /// Takes over members that the caller knows to be distinct, for reading whole files.
    void assignDistinct(std::vector<T> members)
    {
        members_ = std::move(members);
        index_.reset();
    }

private:
    static constexpr std::size_t indexedFrom = 24;

    std::vector<T> members_;
    mutable std::unique_ptr<std::unordered_set<T>> index_;
};

} // namespace lineara

#pragma once

#include "model/person.h"
#include "model/source_record.h"

#include <QByteArray>
#include <QUuid>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace lineara::store {

/// One list of values per record, all of them in one array.
template<class T>
class Lists
{
public:
    std::size_t size() const { return ends_.size(); }
    std::size_t total() const { return values_.size(); }
    std::span<const T> operator[](std::size_t list) const
    {
        const auto begin = list == 0 ? 0 : ends_[list - 1];
        return {values_.data() + begin, ends_[list] - begin};
    }

    void reserve(std::size_t lists, std::size_t values)
    {
        ends_.reserve(lists);
        values_.reserve(values);
    }
    /// Adds to the list that close() will end.
    void add(T value) { values_.push_back(value); }
    void close() { ends_.push_back(values_.size()); }
    /// Forgets what was added since the last close().
    void drop() { values_.resize(ends_.empty() ? 0 : ends_.back()); }
    void append(std::span<const T> list)
    {
        values_.insert(values_.end(), list.begin(), list.end());
        close();
    }

private:
    std::vector<T> values_;
    std::vector<std::size_t> ends_;
};

/// Unknown content of few records among many, by the index of the record.
using UnknownByIndex = std::vector<std::pair<std::size_t, std::vector<UnknownElement>>>;

/// A reference to a record by its number; 0 refers to none.
using Number = std::uint64_t;

struct RawPerson
{
    Number number = 0;
    PersonValues values;
    Number pool = 0;
    Number pic = 0;
    Number source = 0;
};

struct RawPic
{
    Number number = 0;
    QByteArray data;
    Number person = 0;
};

struct RawSource
{
    Number number = 0;
    SourceOrigin origin;
    QByteArray text;
    Number person = 0;
    std::shared_ptr<TakenPicture> takenPicture;
};

/// What a family file says, before anybody asked whether it makes sense. Records in the order of the file.
struct RawFamily
{
    QUuid uuid;
    Number nextNumber = 0;
    std::vector<UnknownElement> unknownInfo;

    std::vector<RawPerson> persons;
    Lists<Number> parents;
    Lists<Number> children;
    Lists<Number> partners;
    UnknownByIndex unknownOfPersons;

    std::vector<Number> pools;
    Lists<Number> members;
    UnknownByIndex unknownOfPools;

    std::vector<RawPic> pics;
    UnknownByIndex unknownOfPics;

    std::vector<RawSource> sources;
    UnknownByIndex unknownOfSources;

    std::vector<UnknownElement> unknownObjects;
    std::vector<Number> unknownNumbers;
};

} // namespace lineara::store

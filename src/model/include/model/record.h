#pragma once

#include <QString>
#include <QUuid>

#include <compare>
#include <cstdint>
#include <functional>

namespace lineara {

class ObjectContext;

enum class Entity : std::uint8_t
{
    Pool,
    Person,
    Pic,
    Source
};

/// Names a record for as long as its store lives. Numbers are never used twice, so a stale id finds nothing.
/// The file's "z102" and the number in a person's `id` ("p102") are this number.
struct RecordId
{
    std::uint64_t number = 0;
    friend bool operator==(RecordId, RecordId) = default;
};

/// Orders two ids as the texts of their decimal numbers compare ("10" before "9"), which is how `id` strings order.
std::strong_ordering compareAsText(RecordId a, RecordId b);

/// Content of a record that this version knows nothing about, kept so that saving gives it back.
struct UnknownElement
{
    std::uint32_t position = 0; ///< index among the elements of its object, or of the file
    QByteArray xml;             ///< the element as it stood, verbatim
};

/// What Person, Pool, Pic and SourceRecord share: an identity within the context that owns them.
class Record
{
public:
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    virtual ~Record() = default;

    Entity entity() const { return entity_; }
    RecordId recordId() const { return recordId_; }
    ObjectContext& context() const { return *context_; }

    /// Absolute text of the record's permanent identity: "x-lineara://UUID/Person/p102".
    QString id() const;

protected:
    Record(ObjectContext& context, Entity entity, RecordId recordId)
        : context_(&context), recordId_(recordId), entity_(entity)
    {}

private:
    ObjectContext* context_;
    RecordId recordId_;
    Entity entity_;
};

} // namespace lineara

template<>
struct std::hash<lineara::RecordId>
{
    std::size_t operator()(lineara::RecordId id) const noexcept { return std::hash<std::uint64_t>{}(id.number); }
};

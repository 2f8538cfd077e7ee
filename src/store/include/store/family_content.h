#pragma once

#include "model/person.h"
#include "model/source_record.h"

#include <QByteArray>
#include <QUuid>

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace lineara {

class ObjectContext;

/// Everything that a family file says of a family at one moment, as values of its own: what is written while the family
/// goes on changing. Taken on the main thread, then good for any thread, one at a time.
///
/// Texts and pictures are shared with the records, and the rest is packed, because the main thread pays for every byte.
class FamilyContent
{
public:
    /// The values of a person in half the room.
    class PackedValues
    {
    public:
        explicit PackedValues(const PersonValues& values);
        PersonValues unpacked() const;

    private:
        static constexpr std::size_t textCount = 2;
        static constexpr std::size_t numberCount = 8;

        std::array<QString, textCount> texts_;
        std::array<std::int32_t, numberCount> numbers_{};
        std::bitset<textCount + numberCount> present_; ///< texts before numbers
    };

    struct PersonPart
    {
        RecordId id;
        PackedValues values;
        std::optional<RecordId> pic;
        std::optional<RecordId> source;
        // Where this person's lists end among all links; parents begin where the partners of the person before end.
        std::size_t parentsEnd = 0;
        std::size_t childrenEnd = 0;
        std::size_t partnersEnd = 0;
    };

    struct PoolPart
    {
        RecordId id;
        std::size_t personsEnd; ///< the first pool's persons begin with the first of all, the others follow on
        std::vector<UnknownElement> unknown;
    };

    struct PicPart
    {
        RecordId id;
        std::optional<QByteArray> data;
        std::optional<RecordId> person;
        std::vector<UnknownElement> unknown;
    };

    struct SourcePart
    {
        RecordId id;
        SourceOrigin origin;
        QByteArray text;
        std::optional<RecordId> person;
        std::vector<UnknownElement> unknown;
        std::shared_ptr<const TakenPicture> takenPicture;
    };

    struct Links
    {
        std::span<const RecordId> parents;
        std::span<const RecordId> children;
        std::span<const RecordId> partners;
    };

    /// All in one go. Main thread only; time is linear in records and links.
    explicit FamilyContent(const ObjectContext& family);

    /// Lays values over what the record held: what is being typed and stands in no record yet. Without effect if the
    /// person is not in the content.
    void setValues(RecordId person, const PersonValues& values);

    const QUuid& storeUuid() const { return storeUuid_; }
    std::uint64_t nextNumber() const { return nextNumber_; }
    const std::vector<UnknownElement>& unknownObjects() const { return unknownObjects_; }
    const std::vector<UnknownElement>& unknownInfo() const { return unknownInfo_; }

    /// Pools, pictures and sources by number; persons pool by pool in the order of each, then those without a pool by
    /// number.
    const std::vector<PoolPart>& pools() const { return pools_; }
    const std::vector<PersonPart>& persons() const { return persons_; }
    const std::vector<PicPart>& pics() const { return pics_; }
    const std::vector<SourcePart>& sources() const { return sources_; }

    /// By position in pools().
    std::span<const PersonPart> personsOf(std::size_t pool) const;
    /// Those without a pool.
    std::span<const PersonPart> strangers() const;

    /// By position in persons().
    Links linksOf(std::size_t person) const;
    std::span<const UnknownElement> unknownOf(std::size_t person) const;

private:
    void addPersons(std::span<Person* const> persons);
    void add(const Person& person);
    void add(const Pic& pic);
    void add(const SourceRecord& source);
    std::size_t addLinks(const OrderedSet<Person*>& persons);
    std::size_t pooled() const { return pools_.empty() ? 0 : pools_.back().personsEnd; }

    QUuid storeUuid_;
    std::uint64_t nextNumber_;
    std::vector<UnknownElement> unknownObjects_;
    std::vector<UnknownElement> unknownInfo_;
    std::vector<PoolPart> pools_;
    std::vector<PersonPart> persons_;
    std::vector<RecordId> links_;
    std::vector<PicPart> pics_;
    std::vector<SourcePart> sources_;
    /// Of the few persons that have some, in the order of persons_.
    std::vector<std::pair<std::size_t, std::vector<UnknownElement>>> unknownOfPersons_;
};

} // namespace lineara

#pragma once

#include "engine/process.h"
#include "model/ordered_set.h"
#include "model/record.h"

#include <QStringView>

#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace lineara {

class Person;

/// The two kinds of link, by the names that files, notifications and the canvas use.
inline constexpr QStringView partnerLink = u"partner";
inline constexpr QStringView offspringLink = u"offspring";

/// One record of the pool's link lists. Ids, because a list may outlive a person.
struct LinkRecord
{
    RecordId source;
    RecordId target;
    friend bool operator==(const LinkRecord&, const LinkRecord&) = default;
};

/// The family as the engine sees it, and the way back from its indices to the records.
struct FamilySnapshot
{
    engine::FamilyGraph graph;
    std::vector<RecordId> persons; ///< by graph index

    /// No value if the person is neither a member nor linked to one. Time is linear in the persons.
    std::optional<engine::PersonIndex> indexOf(RecordId person) const;
    std::vector<RecordId> idsOf(std::span<const engine::PersonIndex> indices) const;
};

/// The family: its members, and what the generation engine worked out last. Main thread only.
class Pool : public Record
{
public:
    const OrderedSet<Person*>& persons() const { return persons_; }

    void addPerson(Person& person);
    void removePerson(Person& person);

    /// Works all generations out again and stores them: snapshot, engine, write-back and log in one call.
    /// False if `stop` was requested first; nothing is changed then.
    bool process(std::stop_token stop = {});

    /// The two halves of process() around the computation, for running the engine on another thread.
    FamilySnapshot snapshot() const;
    /// Writes generations (one event, one journal entry) and all results. Persons that are gone are skipped.
    void apply(const FamilySnapshot& snapshot, const engine::ProcessResult& result);

    /// Builds the rows and sizes from the generations as they are.
    void arrangeGenerations();
    /// Builds the rows, the sizes and both link lists from the records as they are, generations included: what is left
    /// to do after undo or redo.
    void rebuildLists();

    std::int32_t maxGeneration() const { return maxGeneration_; }
    std::optional<RecordId> maxGenerationOf() const { return maxGenerationOf_; }
    std::int32_t maxGenerationSize() const { return maxGenerationSize_; }
    const std::vector<LinkRecord>& partners() const { return partners_; }
    const std::vector<LinkRecord>& offspring() const { return offspring_; }
    /// Row i holds the persons of generation i; row 0 also those without one. Empty before the first run.
    const std::vector<std::vector<RecordId>>& generations() const { return generations_; }

    /// Whether a link of this type may be made. Time is linear in the persons walked.
    bool canLink(QStringView type, const Person& from, const Person& to) const;

    /// True if `a` is a child of `b` or a descendant of one of its children.
    bool isDescendedFrom(const Person& a, const Person& b) const;

    /// Number of persons on the longest line from the person up through its parents, the person included.
    std::int32_t maxPath(const Person& person) const;

    /// Marks the person and all its descendants as not to be walked up into.
    void markWillWalk(Person& person);

    /// Raises the person by `levels`; with partners, each of them is set to the same generation.
    void pushUp(Person& person, std::int32_t levels, bool withPartners);

    const std::vector<UnknownElement>& unknown() const { return unknown_; }

private:
    friend class ObjectContext;
    friend class ContextLoader;
    friend class LinkSides;

    Pool(ObjectContext& context, RecordId recordId) : Record(context, Entity::Pool, recordId) {}

    void writeMarks(const FamilySnapshot& snapshot, const std::vector<bool>& willWalk);
    void writeGenerations(const FamilySnapshot& snapshot, const std::vector<engine::Generation>& generations);

    OrderedSet<Person*> persons_;
    std::int32_t maxGeneration_ = 0;
    std::optional<RecordId> maxGenerationOf_;
    std::int32_t maxGenerationSize_ = 0;
    std::vector<LinkRecord> partners_;
    std::vector<LinkRecord> offspring_;
    std::vector<std::vector<RecordId>> generations_;
    std::vector<UnknownElement> unknown_;
};

} // namespace lineara

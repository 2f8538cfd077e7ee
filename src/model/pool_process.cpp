#include "engine/process.h"

#include "model/object_context.h"
#include "platform/log.h"
#include "visit.h"

#include <compare>
#include <string>
#include <utility>

namespace lineara {

namespace {

using engine::PersonIndex;

/// Numbers persons in the order in which they are met, and writes their links as lists of those numbers.
class SnapshotTaker
{
public:
    SnapshotTaker(const Pool& pool) : visit_(pool.context()), order_(pool.persons().begin(), pool.persons().end()) {}

    FamilySnapshot take()
    {
        prepare();
        // The order grows while persons are met that are linked to members without being members themselves.
        for (std::size_t at = 0; at < order_.size(); ++at)
            add(*order_[at]);
        writeMarks();
        return std::move(snapshot_);
    }

private:
    void prepare()
    {
        std::size_t parents = 0;
        std::size_t partners = 0;
        for (std::size_t at = 0; at < order_.size(); ++at) {
            visit_.meet(*order_[at], static_cast<PersonIndex>(at));
            parents += order_[at]->parents().size();
            partners += order_[at]->partners().size();
        }
        engine::FamilyGraph& graph = snapshot_.graph;
        graph.members = static_cast<std::uint32_t>(order_.size());
        graph.numbers.reserve(order_.size());
        snapshot_.persons.reserve(order_.size());
        graph.parents.reserve(order_.size(), parents);
        graph.children.reserve(order_.size(), parents);
        graph.partners.reserve(order_.size(), partners);
    }

    void add(const Person& person)
    {
        snapshot_.persons.push_back(person.recordId());
        snapshot_.graph.numbers.push_back(person.recordId().number);
        add(person.parents(), snapshot_.graph.parents);
        add(person.children(), snapshot_.graph.children);
        add(person.partners(), snapshot_.graph.partners);
        if (person.willWalk())
            marked_.push_back(visit_.note(person));
    }

    /// Nobody is marked as a rule, and then the graph holds no marks at all.
    void writeMarks()
    {
        if (marked_.empty())
            return;
        snapshot_.graph.willWalk.assign(order_.size(), false);
        for (const PersonIndex person : marked_)
            snapshot_.graph.willWalk[person] = true;
    }

    void add(const OrderedSet<Person*>& persons, engine::Adjacency& list)
    {
        for (Person* const person : persons)
            list.add(indexOf(*person));
        list.endPerson();
    }

    PersonIndex indexOf(Person& person)
    {
        if (!visit_.met(person)) {
            visit_.meet(person, static_cast<PersonIndex>(order_.size()));
            order_.push_back(&person);
        }
        return visit_.note(person);
    }

    Visit visit_;
    std::vector<Person*> order_;
    std::vector<PersonIndex> marked_;
    FamilySnapshot snapshot_;
};

std::optional<std::int32_t> stored(engine::Generation generation)
{
    if (generation == engine::noGeneration)
        return std::nullopt;
    return generation;
}

std::vector<LinkRecord> linkRecords(const std::vector<engine::GraphLink>& links, const std::vector<RecordId>& persons)
{
    std::vector<LinkRecord> records;
    records.reserve(links.size());
    for (const engine::GraphLink& link : links)
        records.push_back({persons[link.source], persons[link.target]});
    return records;
}

std::vector<std::vector<RecordId>> rowsOf(const std::vector<std::vector<PersonIndex>>& rows,
                                          const std::vector<RecordId>& persons)
{
    std::vector<std::vector<RecordId>> named(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        named[row].reserve(rows[row].size());
        for (const PersonIndex person : rows[row])
            named[row].push_back(persons[person]);
    }
    return named;
}

void writeLines(const std::vector<engine::LogEntry>& log)
{
    if (log.empty())
        return;
    std::string lines;
    for (const engine::LogEntry& entry : log) {
        lines += engine::logLine(entry);
        lines += '\n';
    }
    writeLog(lines);
}

} // namespace

bool Pool::process(std::stop_token stop)
{
    const FamilySnapshot family = snapshot();
    const auto result = engine::process(family.graph, std::move(stop));
    if (result)
        apply(family, *result);
    return result.has_value();
}

std::optional<engine::PersonIndex> FamilySnapshot::indexOf(RecordId person) const
{
    const auto found = std::ranges::find(persons, person);
    if (found == persons.end())
        return std::nullopt;
    return static_cast<engine::PersonIndex>(found - persons.begin());
}

std::vector<RecordId> FamilySnapshot::idsOf(std::span<const engine::PersonIndex> indices) const
{
    std::vector<RecordId> ids;
    ids.reserve(indices.size());
    for (const engine::PersonIndex index : indices)
        ids.push_back(persons[index]);
    return ids;
}

FamilySnapshot Pool::snapshot() const
{
    return SnapshotTaker(*this).take();
}

void Pool::apply(const FamilySnapshot& snapshot, const engine::ProcessResult& result)
{
    maxGeneration_ = result.maxGeneration;
    maxGenerationOf_.reset();
    if (result.maxGenerationOf)
        maxGenerationOf_ = snapshot.persons[*result.maxGenerationOf];
    partners_ = linkRecords(result.partners, snapshot.persons);
    offspring_ = linkRecords(result.offspring, snapshot.persons);
    if (result.rowsBuilt) {
        maxGenerationSize_ = result.maxGenerationSize;
        generations_ = rowsOf(result.rows, snapshot.persons);
    }
    writeMarks(snapshot, result.willWalk);
    writeGenerations(snapshot, result.generations);
    writeLines(result.log);
}

void Pool::writeMarks(const FamilySnapshot& snapshot, const std::vector<bool>& willWalk)
{
    for (std::size_t at = 0; at < willWalk.size(); ++at) {
        if (Person* const person = context().person(snapshot.persons[at]))
            person->setWillWalk(willWalk[at]);
    }
}

void Pool::writeGenerations(const FamilySnapshot& snapshot, const std::vector<engine::Generation>& generations)
{
    std::vector<Person*> persons;
    std::vector<std::optional<std::int32_t>> values;
    persons.reserve(snapshot.persons.size());
    values.reserve(snapshot.persons.size());
    for (std::size_t at = 0; at < snapshot.persons.size(); ++at) {
        if (Person* const person = context().person(snapshot.persons[at])) {
            persons.push_back(person);
            values.push_back(stored(generations[at]));
        }
    }
    context().setMany(PersonAttribute::Generation, persons, values);
}

void Pool::arrangeGenerations()
{
    // Rows come from the numbers alone, so the graph needs no links.
    FamilySnapshot family;
    std::vector<engine::Generation> generations;
    for (const Person* const person : persons_) {
        family.persons.push_back(person->recordId());
        family.graph.numbers.push_back(person->recordId().number);
        generations.push_back(person->generation().value_or(engine::noGeneration));
        family.graph.parents.endPerson();
        family.graph.children.endPerson();
        family.graph.partners.endPerson();
    }
    family.graph.members = static_cast<std::uint32_t>(persons_.size());
    const engine::Rows rows = engine::arrangeGenerations(family.graph, generations);
    maxGeneration_ = rows.maxGeneration;
    maxGenerationSize_ = rows.maxGenerationSize;
    generations_ = rowsOf(rows.rows, family.persons);
}

void Pool::rebuildLists()
{
    arrangeGenerations();
    partners_.clear();
    offspring_.clear();
    for (const Person* const person : persons_) {
        for (const Person* const partner : person->partners()) {
            if (std::is_lt(compareAsText(person->recordId(), partner->recordId())))
                partners_.push_back({person->recordId(), partner->recordId()});
        }
        for (const Person* const child : person->children())
            offspring_.push_back({person->recordId(), child->recordId()});
    }
}

} // namespace lineara

#include "store/family_content.h"

#include "field_names.h"
#include "model/object_context.h"

#include <algorithm>

namespace lineara {

namespace {

std::optional<RecordId> idOf(const Record* record)
{
    return record ? std::optional(record->recordId()) : std::nullopt;
}

/// Asks for a piece of memory ahead of its use. The empty statement keeps the compiler from taking the function for one
/// without effect and leaving it out.
inline void fetch(const void* memory)
{
    __builtin_prefetch(memory);
    asm volatile("");
}

/// Asks the memory for what the coming persons of a walk need, so that the walk need not wait for record, text and
/// list one after the other. Halves the time for families that no cache holds.
class LookAhead
{
public:
    explicit LookAhead(std::span<Person* const> persons) : persons_(persons) {}

    void from(std::size_t at) const
    {
        if (const auto* person = after(at, 12))
            fetchRecord(*person);
        if (const auto* person = after(at, 8))
            fetchContent(*person);
        if (const auto* person = after(at, 4))
            fetchLinked(*person);
    }

private:
    const Person* after(std::size_t at, std::size_t distance) const
    {
        return at + distance < persons_.size() ? persons_[at + distance] : nullptr;
    }

    static void fetchRecord(const Person& person)
    {
        constexpr std::size_t cacheLine = 64;
        const auto* bytes = reinterpret_cast<const char*>(&person);
        for (std::size_t at = 0; at < sizeof(Person); at += cacheLine)
            fetch(bytes + at);
    }

    static void fetchContent(const Person& person)
    {
        for (const auto& field : store::personTexts) {
            if (const auto& text = person.values().*field.value)
                fetch(headerOf(*text));
        }
        for (const auto* set : {&person.parents(), &person.children(), &person.partners()})
            fetch(set->span().data());
    }

    /// Where the users of a shared text are counted: just ahead of its characters.
    static const void* headerOf(const QString& text)
    {
        return reinterpret_cast<const char*>(text.constData()) - sizeof(QArrayData);
    }

    static void fetchLinked(const Person& person)
    {
        for (const auto* set : {&person.parents(), &person.children(), &person.partners()}) {
            for (const auto* linked : *set)
                fetch(linked);
        }
    }

    std::span<Person* const> persons_;
};

} // namespace

FamilyContent::PackedValues::PackedValues(const PersonValues& values)
{
    static_assert(store::personTexts.size() == textCount && store::personNumbers.size() == numberCount);
    for (std::size_t i = 0; i < textCount; ++i) {
        const auto& text = values.*store::personTexts[i].value;
        present_[i] = text.has_value();
        texts_[i] = text.value_or(QString());
    }
    for (std::size_t i = 0; i < numberCount; ++i) {
        const auto& number = values.*store::personNumbers[i].value;
        present_[textCount + i] = number.has_value();
        numbers_[i] = number.value_or(0);
    }
}

PersonValues FamilyContent::PackedValues::unpacked() const
{
    PersonValues values;
    for (std::size_t i = 0; i < textCount; ++i) {
        if (present_[i])
            values.*store::personTexts[i].value = texts_[i];
    }
    for (std::size_t i = 0; i < numberCount; ++i) {
        if (present_[textCount + i])
            values.*store::personNumbers[i].value = numbers_[i];
    }
    return values;
}

FamilyContent::FamilyContent(const ObjectContext& family)
    : storeUuid_(family.storeUuid()), nextNumber_(family.nextNumber()), unknownObjects_(family.unknownObjects()),
      unknownInfo_(family.unknownInfo())
{
    // More than most families have; what is not used costs nothing.
    constexpr std::size_t linksPerPerson = 8;
    auto strangers = family.allPersons();
    persons_.reserve(strangers.size());
    links_.reserve(strangers.size() * linksPerPerson);
    for (const auto* pool : family.allPools()) {
        addPersons(pool->persons().span());
        pools_.push_back({pool->recordId(), persons_.size(), pool->unknown()});
    }
    std::erase_if(strangers, [](const Person* person) { return person->pool(); });
    addPersons(strangers);
    for (const auto* pic : family.allPics())
        add(*pic);
    const auto sources = family.allSources();
    sources_.reserve(sources.size());
    for (const auto* source : sources)
        add(*source);
}

void FamilyContent::addPersons(std::span<Person* const> persons)
{
    const LookAhead lookAhead(persons);
    for (std::size_t at = 0; at < persons.size(); ++at) {
        lookAhead.from(at);
        add(*persons[at]);
    }
}

void FamilyContent::add(const Person& person)
{
    if (!person.unknown().empty())
        unknownOfPersons_.emplace_back(persons_.size(), person.unknown());
    auto& part = persons_.emplace_back(
        PersonPart{person.recordId(), PackedValues(person.values()), idOf(person.pic()), idOf(person.source())});
    part.parentsEnd = addLinks(person.parents());
    part.childrenEnd = addLinks(person.children());
    part.partnersEnd = addLinks(person.partners());
}

std::size_t FamilyContent::addLinks(const OrderedSet<Person*>& persons)
{
    for (const auto* person : persons)
        links_.push_back(person->recordId());
    return links_.size();
}

void FamilyContent::add(const Pic& pic)
{
    const auto data = pic.hasData() ? std::optional(pic.data()) : std::nullopt;
    pics_.push_back({pic.recordId(), data, idOf(pic.person()), pic.unknown()});
}

void FamilyContent::add(const SourceRecord& source)
{
    sources_.push_back({source.recordId(), source.origin(), source.text(), idOf(source.person()), source.unknown(),
                        source.takenPicture()});
}

void FamilyContent::setValues(RecordId person, const PersonValues& values)
{
    const auto found =
        std::find_if(persons_.begin(), persons_.end(), [person](const auto& part) { return part.id == person; });
    if (found != persons_.end())
        found->values = PackedValues(values);
}

std::span<const FamilyContent::PersonPart> FamilyContent::personsOf(std::size_t pool) const
{
    const auto begin = pool == 0 ? 0 : pools_[pool - 1].personsEnd;
    return std::span(persons_).subspan(begin, pools_[pool].personsEnd - begin);
}

std::span<const FamilyContent::PersonPart> FamilyContent::strangers() const
{
    return std::span(persons_).subspan(pooled());
}

FamilyContent::Links FamilyContent::linksOf(std::size_t person) const
{
    const auto& part = persons_[person];
    const auto begin = person == 0 ? 0 : persons_[person - 1].partnersEnd;
    const std::span all(links_);
    return {all.subspan(begin, part.parentsEnd - begin),
            all.subspan(part.parentsEnd, part.childrenEnd - part.parentsEnd),
            all.subspan(part.childrenEnd, part.partnersEnd - part.childrenEnd)};
}

std::span<const UnknownElement> FamilyContent::unknownOf(std::size_t person) const
{
    const auto found = std::lower_bound(unknownOfPersons_.begin(), unknownOfPersons_.end(), person,
                                        [](const auto& entry, std::size_t wanted) { return entry.first < wanted; });
    return found != unknownOfPersons_.end() && found->first == person ? std::span(found->second)
                                                                      : std::span<const UnknownElement>();
}

} // namespace lineara

#include "gedcom_check.h"

#include "engine/link_rules.h"
#include "interchange/further_facts.h"
#include "interchange/gedcom_import.h"
#include "model/text_hygiene.h"

#include <algorithm>
#include <unordered_map>

namespace lineara {

namespace {

bool isWritable(const std::optional<QString>& text)
{
    return !text || writableText(*text) == *text;
}

bool isPossible(std::optional<std::int32_t> part, std::int32_t most)
{
    return !part || (*part >= 1 && *part <= most);
}

QString checkValues(const Person& person)
{
    if (!isWritable(person.name()) || !isWritable(person.additional()))
        return u"a text can't be written"_qs;
    if (!isPossible(person.birthDay(), 31) || !isPossible(person.deathDay(), 31) ||
        !isPossible(person.birthMonth(), 12) || !isPossible(person.deathMonth(), 12))
        return u"a date does not exist"_qs;
    if (person.birthYear() == 0 || person.deathYear() == 0)
        return u"there is no year 0"_qs;
    return {};
}

QString checkLinks(const Person& person)
{
    if (person.parents().size() > 2)
        return u"a person has more than two parents"_qs;
    if (std::find(person.partners().begin(), person.partners().end(), &person) != person.partners().end())
        return u"a person is its own partner"_qs;
    return {};
}

/// Every link again from nothing: a cycle would make one of them impossible.
QString checkCycles(const std::vector<Person*>& persons)
{
    std::unordered_map<const Person*, engine::PersonIndex> indices;
    for (const Person* person : persons)
        indices.emplace(person, static_cast<engine::PersonIndex>(indices.size()));
    std::vector<engine::OffspringWish> links;
    for (const Person* person : persons) {
        for (const Person* child : person->children())
            links.push_back({indices.at(person), indices.at(child)});
    }
    const auto verdicts = engine::judgeOffspring(static_cast<std::uint32_t>(persons.size()), links);
    const bool isSound = std::all_of(verdicts.begin(), verdicts.end(),
                                     [](auto verdict) { return verdict == engine::LinkVerdict::Allowed; });
    return isSound ? QString() : u"a person is its own ancestor"_qs;
}

/// Everything that is not blank stands in a kept record, once, and was counted.
QString checkKept(const ObjectContext& family, const ImportReport& report)
{
    std::size_t lines = 0;
    std::size_t ofPersons = 0;
    for (const SourceRecord* source : family.allSources()) {
        if (!source->text().endsWith('\n'))
            return u"a kept record has no end"_qs;
        for (const QByteArray& line : source->text().split('\n'))
            lines += line.simplified().isEmpty() ? 0u : 1u;
        ofPersons += source->person() ? 1u : 0u;
    }
    if (lines != report.lines || family.allSources().size() != report.records)
        return u"lines are lost"_qs;
    return ofPersons == report.persons ? QString() : u"a person has no record"_qs;
}

/// Asked of some persons only: thousands could share one family that names thousands.
QString checkFacts(ObjectContext& family, const std::vector<Person*>& persons)
{
    constexpr std::size_t most = 32;
    ImportedFacts facts(family);
    for (std::size_t at = 0; at < std::min(most, persons.size()); ++at) {
        const auto list = facts.of(*persons[at]);
        const auto headings = std::ranges::count_if(list, &FurtherFact::isHeading);
        if (facts.count(*persons[at]) + static_cast<std::size_t>(headings) != list.size())
            return u"further facts are not counted right"_qs;
    }
    return {};
}

} // namespace

QString checkGedcom(const QByteArray& bytes)
{
    const auto first = importGedcom(bytes, u"first"_qs);
    if (first.failed())
        return first.failure().message.isEmpty() ? u"refused without a reason"_qs : QString();
    const auto persons = first.value().context->allPersons();
    for (const Person* person : persons) {
        for (const QString& complaint : {checkValues(*person), checkLinks(*person)}) {
            if (!complaint.isEmpty())
                return complaint;
        }
    }
    const ImportReport& report = first.value().report;
    if (report.persons != persons.size() || report.persons != first.value().context->allPools().at(0)->persons().size())
        return u"persons are not counted right"_qs;
    if (importGedcom(bytes, u"first"_qs).value().report.notes != report.notes)
        return u"a second import tells something else"_qs;
    for (const QString& complaint :
         {checkKept(*first.value().context, report), checkFacts(*first.value().context, persons)}) {
        if (!complaint.isEmpty())
            return complaint;
    }
    return checkCycles(persons);
}

} // namespace lineara

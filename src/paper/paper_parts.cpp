#include "paper/paper_parts.h"

#include <QCoreApplication>

#include <utility>

namespace lineara {

namespace {

struct PaperPartsTexts
{
    Q_DECLARE_TR_FUNCTIONS(PaperParts)
};

/// Everybody who is reached from a person, the person included. Families may be of any depth, and go in circles where
/// a file was wrong.
template<class Next>
std::vector<const Person*> reached(const Person& from, std::unordered_set<RecordId>& seen, Next next)
{
    std::vector<const Person*> persons{&from};
    seen.insert(from.recordId());
    for (std::size_t at = 0; at < persons.size(); ++at) {
        for (const Person* const person : next(*persons[at])) {
            if (seen.insert(person->recordId()).second)
                persons.push_back(person);
        }
    }
    return persons;
}

} // namespace

PicturePart ancestorsOf(const Person& person)
{
    std::unordered_set<RecordId> seen;
    reached(
        person, seen, [](const Person& of) -> const auto& { return of.parents(); });
    return {std::move(seen)};
}

PicturePart descendantsOf(const Person& person)
{
    std::unordered_set<RecordId> seen;
    const auto persons = reached(
        person, seen, [](const Person& of) -> const auto& { return of.children(); });
    for (const Person* const descendant : persons) {
        for (const Person* const partner : descendant->partners())
            seen.insert(partner->recordId());
        for (const Person* const child : descendant->children()) {
            for (const Person* const parent : child->parents())
                seen.insert(parent->recordId());
        }
    }
    return {std::move(seen)};
}

std::vector<PaperPart> partsOf(const Person* person)
{
    std::vector<PaperPart> parts{{PaperPartsTexts::tr("The whole family"), {}}};
    if (!person)
        return parts;
    const QString name = person->name().value_or(QString()).simplified();
    const QString shown = name.isEmpty() ? PaperPartsTexts::tr("the selected person") : name;
    parts.push_back({PaperPartsTexts::tr("Ancestors of %1").arg(shown), ancestorsOf(*person)});
    parts.push_back({PaperPartsTexts::tr("Descendants of %1, with their partners").arg(shown), descendantsOf(*person)});
    return parts;
}

} // namespace lineara

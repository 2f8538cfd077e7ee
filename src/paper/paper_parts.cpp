#include "paper/paper_parts.h"

#include "kinship/relatives.h"
#include "model/pool.h"

#include <QCoreApplication>

#include <utility>

namespace lineara {

namespace {

struct PaperPartsTexts
{
    Q_DECLARE_TR_FUNCTIONS(PaperParts)
};

/// The person and whoever else `reach` tells of the family.
template<class Reach>
PicturePart goingOutFrom(const Person& person, Reach reach)
{
    std::unordered_set<RecordId> part{person.recordId()};
    if (person.pool()) {
        const FamilySnapshot family = person.pool()->snapshot();
        const auto reached = family.idsOf(reach(family.graph, *family.indexOf(person.recordId())));
        part.insert(reached.begin(), reached.end());
    }
    return {std::move(part)};
}

} // namespace

PicturePart ancestorsOf(const Person& person)
{
    return goingOutFrom(person, kinship::ancestorsOf);
}

PicturePart descendantsOf(const Person& person)
{
    return goingOutFrom(person, [](const engine::FamilyGraph& family, engine::PersonIndex from) {
        auto line = kinship::descendantsOf(family, from);
        line.push_back(from);
        return kinship::withPartners(family, line);
    });
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

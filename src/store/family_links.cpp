#include "family_links.h"

#include "link_walks.h"
#include "store_texts.h"

namespace lineara::store {

namespace {

constexpr std::size_t mostParents = 2;

bool hasThirdParent(const Lists<PersonIndex>& parents)
{
    for (std::size_t person = 0; person < parents.size(); ++person) {
        if (parents[person].size() > mostParents)
            return true;
    }
    return false;
}

bool hasLinkToItself(const Lists<PersonIndex>& partners)
{
    for (std::size_t person = 0; person < partners.size(); ++person) {
        for (const auto partner : partners[person]) {
            if (partner == person)
                return true;
        }
    }
    return false;
}

} // namespace

QString called(const RawPerson& person)
{
    constexpr qsizetype longest = 60;
    auto name = person.values.name.value_or(QString());
    if (name.size() > longest)
        name = name.first(longest) + u'…';
    return name.isEmpty() ? u"z%1"_qs.arg(person.number) : StoreTexts::tr("“%1” (z%2)").arg(name).arg(person.number);
}

Outcome<Lists<PersonIndex>> resolve(const Lists<Number>& references, const RawFamily& family, const IdIndex& index,
                                    const QString& relationship)
{
    Lists<PersonIndex> result;
    result.reserve(references.size(), references.total());
    for (std::size_t owner = 0; owner < references.size(); ++owner) {
        for (const auto number : references[owner]) {
            const auto place = index.find(number);
            if (place && place->kind == Kind::Person) {
                result.add(place->index);
                continue;
            }
            const auto reason =
                place ? StoreTexts::tr("which is no person.") : StoreTexts::tr("which is not in the file.");
            const auto ownerNumber = relationship == u"persons" ? family.pools[owner] : family.persons[owner].number;
            return Failure{StoreTexts::tr("object z%1: relationship “%2” refers to z%3, %4")
                               .arg(ownerNumber)
                               .arg(relationship)
                               .arg(number)
                               .arg(reason)};
        }
        result.close();
    }
    return result;
}

bool areSound(const FamilyLinks& links)
{
    // A person that is its own parent is found as the smallest cycle.
    return areInverse(links.children, links.parents) && areInverse(links.partners, links.partners) &&
           !hasThirdParent(links.parents) && !hasLinkToItself(links.partners) &&
           isFreeOfCycles(links.children, links.parents);
}

} // namespace lineara::store

#include "made_family.h"

#include <array>
#include <random>
#include <vector>

namespace lineara {

namespace {

constexpr std::array<const char16_t*, 8> firstNames{u"Ada",    u"Benjamin", u"Zoë",    u"Dorothea",
                                                    u"Edward", u"Fanny",    u"George", u"Henrietta"};
constexpr std::array<const char16_t*, 6> lastNames{u"Lovelace", u"Fairchild", u"Müller",
                                                   u"Ashdown",  u"Oak",       u"Winterbourne"};
constexpr std::array<const char16_t*, 4> notes{
    u"Baptised at St. Mary's; emigrated as a child.",
    u"Clockmaker & brewer. Letters kept by the family.",
    u"Named in the census of the county.\nNo grave known.",
    u"Studied abroad, returned after the war, taught at the village school for thirty years.",
};

constexpr std::size_t generations = 25;

template<class Array>
QString pick(const Array& from, std::mt19937& random)
{
    return QString::fromUtf16(from[random() % from.size()]);
}

std::int32_t between(int low, int high, std::mt19937& random)
{
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

PersonValues madeValues(std::size_t row, std::size_t place, std::mt19937& random)
{
    PersonValues values;
    values.name = pick(firstNames, random) + u' ' + pick(lastNames, random);
    values.additional = pick(notes, random);
    values.birthDay = between(1, 28, random);
    values.birthMonth = between(1, 12, random);
    values.birthYear = 1250 + static_cast<std::int32_t>(row) * 30 + between(0, 25, random);
    values.deathYear = *values.birthYear + between(20, 90, random);
    values.generation = static_cast<std::int32_t>(generations - row);
    values.x = static_cast<std::int32_t>(place) * 152;
    return values;
}

} // namespace

std::unique_ptr<ObjectContext> madeFamily(std::size_t persons)
{
    std::mt19937 random(1);
    auto family = std::make_unique<ObjectContext>(QUuid(u"1c0b3a52-6d0e-4b5e-9a51-0d2f3c4b5a69"_qs));
    const Journal::Pause pause(family->journal());
    auto& pool = family->insertPool();
    const auto width = std::max<std::size_t>(2, persons / generations);
    std::vector<Person*> all;
    for (std::size_t i = 0; i < persons; ++i) {
        auto& person = family->insertPerson(madeValues(i / width, i % width, random));
        all.push_back(&person);
        pool.addPerson(person);
        if (i % 2 == 1)
            all[i - 1]->addPartner(person);
        // Three of four persons below the first row have both parents, a couple that stands near in the row above.
        if (i >= width && i % 4 != 3) {
            const auto couple = (i - width) / 2 * 2;
            all[couple]->addChild(person);
            all[couple + 1]->addChild(person);
        }
    }
    return family;
}

} // namespace lineara

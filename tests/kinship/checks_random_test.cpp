#include "engine/family_maker.h"
#include "literal_checks.h"

#include <gmock/gmock.h>

#include <map>
#include <random>

namespace lineara::kinship {

void PrintTo(const FoundPerson& found, std::ostream* out)
{
    *out << "person " << found.person << " finding " << static_cast<int>(found.finding);
    if (found.other)
        *out << " with " << *found.other;
}

namespace {

#ifdef LINEARA_SANITIZED
constexpr int families = 60;
#else
constexpr int families = 1'500;
#endif

/// Dates so close together that every rule is broken now and then, and so vague that it is often uncertain.
class DateChance
{
public:
    explicit DateChance(std::mt19937_64& random) : random_(random) {}

    PartialDate date(std::int32_t firstYear, std::int32_t years)
    {
        PartialDate date;
        if (random_() % 10 == 0)
            return date;
        date.year = firstYear + upTo(years);
        if (random_() % 4 == 0)
            return date;
        date.month = 1 + upTo(12);
        if (random_() % 4 != 0)
            date.day = 1 + upTo(28);
        return date;
    }

    Sex sex() { return static_cast<Sex>(random_() % 3); }

private:
    std::int32_t upTo(std::int32_t end) { return static_cast<std::int32_t>(random_() % static_cast<unsigned>(end)); }

    std::mt19937_64& random_;
};

TEST(ChecksRandomTest, FindsWhatHoldsForEveryDayThatMayBeMeant)
{
    std::mt19937_64 random{11};
    DateChance chance(random);
    std::map<Finding, int> seen;
    for (int round = 0; round < families; ++round) {
        const auto family = engine::randomFamily({.greatestPersons = 10, .offspringPerPerson = 1.4}, random);
        const std::int32_t years = random() % 2 == 0 ? 3 : 150;
        std::vector<LifeDates> dates;
        std::vector<Sex> sexes;
        for (PersonIndex person = 0; person < family.persons(); ++person) {
            dates.push_back({chance.date(1'800, years), chance.date(1'800 + years / 3, years)});
            sexes.push_back(chance.sex());
        }
        const CheckedFamily checked{family, dates, random() % 3 == 0 ? std::span<const Sex>() : sexes};
        const auto found = findings(checked).value();
        ASSERT_THAT(found, testing::ElementsAreArray(literal::findings(checked))) << "family " << round;
        for (const FoundPerson& one : found)
            ++seen[one.finding];
    }
    for (int finding = 0; finding <= static_cast<int>(Finding::BornTooSoonAfterSibling); ++finding)
        EXPECT_GT(seen[static_cast<Finding>(finding)], families / 60) << finding;
}

} // namespace
} // namespace lineara::kinship

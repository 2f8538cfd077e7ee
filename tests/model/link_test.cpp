#include "model/dump.h"

#include <gmock/gmock.h>

#include <sstream>

namespace lineara {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Trio
{
    ObjectContext context;
    Person& a = context.insertPerson();
    Person& b = context.insertPerson();
    Person& c = context.insertPerson();
};

class LinkLog
{
public:
    explicit LinkLog(ObjectContext& context)
        : subscription_(context.observe([this](const Change& change) {
              std::ostringstream entry;
              if (const auto* const link = std::get_if<LinkChanged>(&change))
                  entry << (link->added ? '+' : '-') << link->owner.recordId().number << '>'
                        << link->member.recordId().number;
              entries.push_back(entry.str());
          }))
    {}

    std::vector<std::string> entries;

private:
    Subscription subscription_;
};

} // namespace

TEST(Links, AreKeptFromBothSides)
{
    Trio trio;
    trio.a.addChild(trio.b);
    trio.c.addPartner(trio.a);
    EXPECT_THAT(trio.a.children(), ElementsAre(&trio.b));
    EXPECT_THAT(trio.b.parents(), ElementsAre(&trio.a));
    EXPECT_THAT(trio.a.partners(), ElementsAre(&trio.c));
    EXPECT_THAT(trio.c.partners(), ElementsAre(&trio.a));
    trio.a.removeChild(trio.b);
    trio.a.removePartner(trio.c);
    EXPECT_THAT(trio.a.children(), IsEmpty());
    EXPECT_THAT(trio.b.parents(), IsEmpty());
    EXPECT_THAT(trio.a.partners(), IsEmpty());
    EXPECT_THAT(trio.c.partners(), IsEmpty());
}

TEST(Links, AreReportedOnceWithBothSidesInPlace)
{
    Trio trio;
    bool bothSides = false;
    const Subscription subscription = trio.context.observe(
        [&](const Change&) { bothSides = trio.a.children().contains(&trio.b) == trio.b.parents().contains(&trio.a); });
    const LinkLog log(trio.context);
    trio.a.addChild(trio.b);
    EXPECT_TRUE(bothSides);
    trio.a.addPartner(trio.c);
    trio.c.removePartner(trio.a);
    trio.a.removeChild(trio.b);
    EXPECT_TRUE(bothSides);
    EXPECT_THAT(log.entries, ElementsAre("+101>102", "+101>103", "-103>101", "-101>102"));
}

TEST(Links, ChangeNothingWhenMadeTwiceOrTakenFromStrangers)
{
    Trio trio;
    trio.a.addChild(trio.b);
    trio.a.addPartner(trio.c);
    const LinkLog log(trio.context);
    trio.a.addChild(trio.b);
    trio.a.addPartner(trio.c);
    trio.c.addPartner(trio.a);
    trio.b.removeChild(trio.a);
    trio.b.removePartner(trio.c);
    EXPECT_THAT(log.entries, IsEmpty());
}

TEST(Links, AreNotMadeFromAPersonToItself)
{
    Trio trio;
    const LinkLog log(trio.context);
    trio.a.addChild(trio.a);
    trio.a.addPartner(trio.a);
    EXPECT_THAT(log.entries, IsEmpty());
    EXPECT_THAT(trio.a.children(), IsEmpty());
    EXPECT_THAT(trio.a.partners(), IsEmpty());
}

TEST(Links, MayJoinPartnersAsParentAndChild)
{
    Trio trio;
    trio.a.addPartner(trio.b);
    trio.a.addChild(trio.b);
    EXPECT_THAT(trio.a.partners(), ElementsAre(&trio.b));
    EXPECT_THAT(trio.a.children(), ElementsAre(&trio.b));
}

TEST(Links, EnumerateInTheOrderTheyWereMade)
{
    ObjectContext context;
    Person& parent = context.insertPerson();
    std::vector<Person*> expected;
    for (int child = 0; child < 100; ++child)
        expected.push_back(&context.insertPerson());
    std::reverse(expected.begin(), expected.end());
    for (Person* const child : expected)
        parent.addChild(*child);
    EXPECT_THAT(parent.children(), testing::ElementsAreArray(expected));
}

TEST(Disconnect, LeavesNoTraceWithAnyRelative)
{
    Trio trio;
    Person& d = trio.context.insertPerson();
    trio.a.addChild(trio.b);
    trio.b.addPartner(trio.c);
    trio.b.addPartner(d);
    trio.b.addChild(d);
    trio.b.disconnect();
    EXPECT_EQ(test::inconsistencies(trio.context), "");
    for (const Person* const person : trio.context.allPersons()) {
        EXPECT_THAT(person->parents(), IsEmpty());
        EXPECT_THAT(person->children(), IsEmpty());
        EXPECT_THAT(person->partners(), IsEmpty());
    }
}

TEST(Disconnect, TakesPartnersThenChildrenThenParents)
{
    Trio trio;
    Person& d = trio.context.insertPerson();
    trio.a.addChild(trio.b);
    trio.b.addChild(d);
    trio.c.addPartner(trio.b);
    const LinkLog log(trio.context);
    trio.b.disconnect();
    EXPECT_THAT(log.entries, ElementsAre("-102>103", "-102>104", "-101>102"));
}

TEST(Pool, HoldsAPersonOnce)
{
    Trio trio;
    Pool& first = trio.context.insertPool();
    Pool& second = trio.context.insertPool();
    first.addPerson(trio.a);
    first.addPerson(trio.a);
    first.addPerson(trio.b);
    EXPECT_THAT(first.persons(), ElementsAre(&trio.a, &trio.b));
    second.addPerson(trio.a);
    EXPECT_THAT(first.persons(), ElementsAre(&trio.b));
    EXPECT_THAT(second.persons(), ElementsAre(&trio.a));
    EXPECT_EQ(trio.a.pool(), &second);
    first.removePerson(trio.a);
    EXPECT_EQ(trio.a.pool(), &second);
    second.removePerson(trio.a);
    EXPECT_EQ(trio.a.pool(), nullptr);
}

TEST(Removal, TakesThePersonOutOfEverything)
{
    Trio trio;
    Pool& pool = trio.context.insertPool();
    pool.addPerson(trio.a);
    pool.addPerson(trio.b);
    trio.a.addChild(trio.b);
    trio.b.addPartner(trio.c);
    const RecordId id = trio.b.recordId();
    trio.context.remove(trio.b);
    EXPECT_EQ(trio.context.person(id), nullptr);
    EXPECT_THAT(trio.context.allPersons(), ElementsAre(&trio.a, &trio.c));
    EXPECT_THAT(pool.persons(), ElementsAre(&trio.a));
    EXPECT_THAT(trio.a.children(), IsEmpty());
    EXPECT_THAT(trio.c.partners(), IsEmpty());
}

TEST(Removal, IsReportedWhileTheRecordStillExistsWithoutLinks)
{
    Trio trio;
    trio.context.insertPool().addPerson(trio.b);
    trio.a.addChild(trio.b);
    bool seen = false;
    const Subscription subscription = trio.context.observe([&](const Change& change) {
        const auto* const removed = std::get_if<RecordRemoved>(&change);
        if (!removed)
            return;
        seen = &removed->record == &trio.b && trio.context.person({102}) == &trio.b && trio.b.parents().empty() &&
               !trio.b.pool();
    });
    trio.context.remove(trio.b);
    EXPECT_TRUE(seen);
}

TEST(Removal, OfAPoolSetsItsPersonsFree)
{
    Trio trio;
    Pool& pool = trio.context.insertPool();
    pool.addPerson(trio.a);
    pool.addPerson(trio.b);
    trio.context.remove(pool);
    EXPECT_EQ(trio.a.pool(), nullptr);
    EXPECT_THAT(trio.context.allPools(), IsEmpty());
    EXPECT_EQ(trio.context.allPersons().size(), 3u);
}

} // namespace lineara

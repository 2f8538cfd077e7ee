#include "hang_guard.h"
#include "model/object_context.h"

#include <gmock/gmock.h>

#include <numeric>
#include <random>

namespace lineara {

namespace {

#ifdef LINEARA_SANITIZED
constexpr std::size_t lengthOfLine = 40'000;
#else
constexpr std::size_t lengthOfLine = 200'000;
#endif

struct Folk
{
    ObjectContext context;
    Pool& pool = context.insertPool();
    std::vector<Person*> persons;

    explicit Folk(std::size_t count)
    {
        for (std::size_t at = 0; at < count; ++at) {
            persons.push_back(&context.insertPerson());
            pool.addPerson(*persons.back());
        }
    }

    Person& operator[](std::size_t at) const { return *persons[at]; }

    /// Makes the link if the rules allow it.
    bool offspring(std::size_t parent, std::size_t child)
    {
        if (!pool.canLink(offspringLink, *persons[parent], *persons[child]))
            return false;
        persons[parent]->addChild(*persons[child]);
        return true;
    }
};

/// 60 generations of two who are both parents of the next two.
struct Lattice : Folk
{
    Lattice() : Folk(120)
    {
        for (std::size_t parent = 0; parent + 2 < persons.size(); ++parent) {
            const std::size_t nextRow = parent - parent % 2 + 2;
            persons[parent]->addChild(*persons[nextRow]);
            persons[parent]->addChild(*persons[nextRow + 1]);
        }
    }
};

/// The rule as it is told: down from `b`, child by child.
bool descendedByTheLetter(const Person& a, const Person& b)
{
    return std::ranges::any_of(b.children(),
                               [&](const Person* child) { return child == &a || descendedByTheLetter(a, *child); });
}

} // namespace

TEST(LinkRules, RefuseAnyLinkToOneself)
{
    Folk folk(1);
    EXPECT_FALSE(folk.pool.canLink(partnerLink, folk[0], folk[0]));
    EXPECT_FALSE(folk.pool.canLink(offspringLink, folk[0], folk[0]));
    EXPECT_FALSE(folk.pool.canLink(u"friend", folk[0], folk[0]));
}

TEST(LinkRules, RefuseToMakeAnAncestorAChild)
{
    Folk folk(3);
    folk[0].addChild(folk[1]);
    folk[1].addChild(folk[2]);
    EXPECT_FALSE(folk.pool.canLink(offspringLink, folk[2], folk[0]));
    EXPECT_FALSE(folk.pool.canLink(offspringLink, folk[1], folk[0]));
    EXPECT_TRUE(folk.pool.canLink(offspringLink, folk[0], folk[2]));
}

TEST(LinkRules, RefuseAThirdParentEvenWhenTheLinkIsThere)
{
    Folk folk(4);
    folk[0].addChild(folk[2]);
    EXPECT_TRUE(folk.pool.canLink(offspringLink, folk[0], folk[2]));
    folk[1].addChild(folk[2]);
    EXPECT_FALSE(folk.pool.canLink(offspringLink, folk[0], folk[2]));
    EXPECT_FALSE(folk.pool.canLink(offspringLink, folk[3], folk[2]));
}

TEST(LinkRules, AllowPartnersToBecomeParentAndChildAndTheOtherWayRound)
{
    Folk folk(2);
    folk[0].addPartner(folk[1]);
    EXPECT_TRUE(folk.pool.canLink(offspringLink, folk[0], folk[1]));
    folk[0].addChild(folk[1]);
    EXPECT_TRUE(folk.pool.canLink(partnerLink, folk[1], folk[0]));
}

TEST(LinkRules, AllowAnyOtherKindOfLinkBetweenTwo)
{
    Folk folk(2);
    folk[0].addChild(folk[1]);
    EXPECT_TRUE(folk.pool.canLink(u"Offspring", folk[1], folk[0]));
    EXPECT_TRUE(folk.pool.canLink(u"", folk[1], folk[0]));
    EXPECT_TRUE(folk.pool.canLink(partnerLink, folk[0], folk[1]));
}

TEST(Descent, IsThatOfChildrenAndTheirDescendants)
{
    Folk folk(4);
    folk[0].addChild(folk[1]);
    folk[1].addChild(folk[2]);
    folk[2].addPartner(folk[3]);
    EXPECT_TRUE(folk.pool.isDescendedFrom(folk[1], folk[0]));
    EXPECT_TRUE(folk.pool.isDescendedFrom(folk[2], folk[0]));
    EXPECT_FALSE(folk.pool.isDescendedFrom(folk[0], folk[2]));
    EXPECT_FALSE(folk.pool.isDescendedFrom(folk[3], folk[0]));
    EXPECT_FALSE(folk.pool.isDescendedFrom(folk[0], folk[0]));
}

TEST(Descent, IsTheSameAsWalkingDownByTheLetter)
{
    std::mt19937 random(7);
    for (int family = 0; family < 300; ++family) {
        Folk folk(12);
        for (int link = 0; link < 16; ++link)
            folk.offspring(random() % 12, random() % 12);
        for (const Person* const a : folk.persons) {
            for (const Person* const b : folk.persons)
                ASSERT_EQ(folk.pool.isDescendedFrom(*a, *b), descendedByTheLetter(*a, *b));
        }
    }
}

TEST(Descent, IsFoundAtOnceInALatticeOfCousinMarriages)
{
    const Lattice folk;
    const HangGuard guard;
    EXPECT_FALSE(folk.pool.canLink(offspringLink, folk[118], folk[0]));
    EXPECT_TRUE(folk.pool.isDescendedFrom(folk[119], folk[1]));
    EXPECT_FALSE(folk.pool.isDescendedFrom(folk[1], folk[119]));
}

TEST(Descent, LetsALongLineBeLinkedInAnyOrder)
{
    std::mt19937 random(3);
    std::vector<std::size_t> order(lengthOfLine - 1);
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (const bool shuffled : {false, true}) {
        Folk folk(lengthOfLine);
        if (shuffled)
            std::ranges::shuffle(order, random);
        else
            std::ranges::reverse(order);
        const HangGuard guard;
        const auto links = std::ranges::count_if(order, [&](std::size_t at) { return folk.offspring(at, at + 1); });
        EXPECT_EQ(links, lengthOfLine - 1);
        EXPECT_FALSE(folk.offspring(lengthOfLine - 1, 0));
    }
}

TEST(Descent, OfAPersonWithThousandsOfChildrenIsFoundAtOnce)
{
    constexpr std::size_t children = 5'000;
    Folk folk(children + 2);
    const HangGuard guard;
    for (std::size_t child = 1; child <= children; ++child)
        EXPECT_TRUE(folk.offspring(0, child));
    for (std::size_t child = 1; child <= children; ++child)
        EXPECT_TRUE(folk.offspring(children + 1, child));
}

TEST(MaxPath, CountsTheLongestLineOfAncestors)
{
    Folk folk(6);
    EXPECT_EQ(folk.pool.maxPath(folk[0]), 1);
    folk[0].addChild(folk[1]);
    folk[1].addChild(folk[2]);
    folk[2].addChild(folk[5]);
    folk[4].addChild(folk[5]);
    EXPECT_EQ(folk.pool.maxPath(folk[2]), 3);
    EXPECT_EQ(folk.pool.maxPath(folk[4]), 1);
    EXPECT_EQ(folk.pool.maxPath(folk[5]), 4);
}

TEST(MaxPath, CountsAParentWhoIsAlsoAGrandparent)
{
    for (const bool grandparentFirst : {true, false}) {
        Folk folk(3);
        folk[grandparentFirst ? 0 : 1].addChild(folk[2]);
        folk[grandparentFirst ? 1 : 0].addChild(folk[2]);
        folk[0].addChild(folk[1]);
        EXPECT_EQ(folk.pool.maxPath(folk[2]), 3);
    }
}

TEST(MaxPath, NeitherOverflowsNorWalksALatticeAgainAndAgain)
{
    const Lattice folk;
    EXPECT_EQ(folk.pool.maxPath(folk[118]), 60);
    EXPECT_EQ(folk.pool.maxPath(folk[119]), 60);
    Folk line(lengthOfLine);
    for (std::size_t at = 0; at + 1 < lengthOfLine; ++at)
        line[at].addChild(line[at + 1]);
    EXPECT_EQ(line.pool.maxPath(line[lengthOfLine - 1]), static_cast<std::int32_t>(lengthOfLine));
}

TEST(MarkWillWalk, ReachesThePersonAndAllDescendants)
{
    Lattice folk;
    folk[4].addPartner(folk.context.insertPerson());
    folk.pool.markWillWalk(folk[4]);
    for (std::size_t at = 0; at < folk.persons.size(); ++at)
        EXPECT_EQ(folk[at].willWalk(), at == 4 || at >= 6);
    EXPECT_FALSE(folk[4].partners()[0]->willWalk());
}

TEST(MarkWillWalk, GoesBeyondThoseWhoAreMarkedAlready)
{
    Folk folk(3);
    folk[0].addChild(folk[1]);
    folk[1].addChild(folk[2]);
    folk[1].setWillWalk(true);
    folk.pool.markWillWalk(folk[0]);
    EXPECT_TRUE(folk[2].willWalk());
}

TEST(PushUp, RaisesThePersonAndSetsItsPartnersToTheSame)
{
    Folk folk(3);
    folk[0].addPartner(folk[1]);
    folk[0].setGeneration(3);
    folk[1].setGeneration(9);
    folk[2].setGeneration(1);
    int events = 0;
    const Subscription subscription = folk.context.observe([&](const Change&) { ++events; });
    folk.pool.pushUp(folk[0], 2, true);
    EXPECT_EQ(folk[0].generation(), 5);
    EXPECT_EQ(folk[1].generation(), 5);
    EXPECT_EQ(folk[2].generation(), 1);
    EXPECT_EQ(events, 1);
}

TEST(PushUp, LeavesPartnersAloneWhenToldSo)
{
    Folk folk(2);
    folk[0].addPartner(folk[1]);
    folk.pool.pushUp(folk[0], 4, false);
    EXPECT_EQ(folk[0].generation(), 4);
    EXPECT_EQ(folk[1].generation(), std::nullopt);
}

TEST(MarkWillWalk, KeepsTheRunFromWalkingUpAndIsResetOnWhoeverIsPlaced)
{
    ObjectContext context;
    Pool& pool = context.insertPool();
    Person& parent = context.insertPerson();
    Person& child = context.insertPerson();
    for (Person* const person : {&parent, &child})
        pool.addPerson(*person);
    parent.addChild(child);
    pool.markWillWalk(parent);
    pool.process();
    EXPECT_EQ(child.generation(), 1);
    EXPECT_FALSE(child.willWalk());
    // Not walked up into, the parent is found later and stands at the top of the longest line; the mark stays.
    EXPECT_EQ(parent.generation(), 2);
    EXPECT_TRUE(parent.willWalk());
}

} // namespace lineara

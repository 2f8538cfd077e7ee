#include "model/dump.h"
#include "platform/log.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace lineara {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct GrowingFolk
{
    ObjectContext context;
    Pool& pool = context.insertPool();

    Person& member()
    {
        Person& person = context.insertPerson();
        pool.addPerson(person);
        return person;
    }
};

} // namespace

TEST(Snapshot, NamesMembersInPoolOrderAndTheirLinksInTheirs)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    Person& c = folk.member();
    c.addChild(a);
    b.addChild(a);
    b.addPartner(c);
    const FamilySnapshot family = folk.pool.snapshot();
    EXPECT_EQ(family.graph.members, 3u);
    EXPECT_THAT(family.persons, ElementsAre(RecordId{102}, RecordId{103}, RecordId{104}));
    EXPECT_THAT(family.graph.numbers, ElementsAre(102, 103, 104));
    EXPECT_THAT(family.graph.parents[0], ElementsAre(2, 1));
    EXPECT_THAT(family.graph.parents[1], IsEmpty());
    EXPECT_THAT(family.graph.children[1], ElementsAre(0));
    EXPECT_THAT(family.graph.children[2], ElementsAre(0));
    EXPECT_THAT(family.graph.partners[1], ElementsAre(2));
    EXPECT_THAT(family.graph.partners[2], ElementsAre(1));
}

TEST(Snapshot, ReachesPersonsLinkedBeforeTheyAreMembers)
{
    GrowingFolk folk;
    Person& far = folk.context.insertPerson();
    Person& near = folk.context.insertPerson();
    folk.context.insertPerson();
    Person& member = folk.member();
    member.addPartner(near);
    near.addChild(far);
    const FamilySnapshot family = folk.pool.snapshot();
    EXPECT_EQ(family.graph.members, 1u);
    EXPECT_THAT(family.persons, ElementsAre(member.recordId(), near.recordId(), far.recordId()));
    EXPECT_THAT(family.graph.parents[2], ElementsAre(1));
    EXPECT_EQ(folk.pool.snapshot().persons, family.persons);
}

TEST(Apply, WritesResultsWithOneEventAndOneStep)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    Person& c = folk.member();
    b.setGeneration(1);
    const std::string before = test::dump(folk.context);
    folk.context.journal().begin(u"Link"_qs);
    std::vector<std::size_t> changed;
    const Subscription subscription = folk.context.observe([&](const Change& change) {
        if (const auto* const many = std::get_if<ManyChanged>(&change))
            changed.push_back(many->persons.size());
    });
    engine::ProcessResult result;
    result.generations = {2, 1, 2};
    result.rowsBuilt = true;
    result.maxGeneration = 2;
    result.maxGenerationOf = 1;
    result.maxGenerationSize = 2;
    result.rows = {{}, {1}, {0, 2}};
    result.partners = {{0, 2}};
    result.offspring = {{0, 1}, {2, 1}};
    folk.pool.apply(folk.pool.snapshot(), result);
    EXPECT_THAT(changed, ElementsAre(2));
    EXPECT_EQ(a.generation(), 2);
    EXPECT_EQ(c.generation(), 2);
    EXPECT_EQ(folk.pool.maxGeneration(), 2);
    EXPECT_EQ(folk.pool.maxGenerationOf(), b.recordId());
    EXPECT_EQ(folk.pool.maxGenerationSize(), 2);
    EXPECT_THAT(folk.pool.partners(), ElementsAre(LinkRecord{a.recordId(), c.recordId()}));
    EXPECT_THAT(folk.pool.offspring(),
                ElementsAre(LinkRecord{a.recordId(), b.recordId()}, LinkRecord{c.recordId(), b.recordId()}));
    EXPECT_THAT(folk.pool.generations(),
                ElementsAre(IsEmpty(), ElementsAre(b.recordId()), ElementsAre(a.recordId(), c.recordId())));
    folk.context.journal().undo();
    EXPECT_EQ(test::dump(folk.context), before);
}

TEST(Apply, SkipsPersonsWhoAreGone)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    const RecordId gone = a.recordId();
    const FamilySnapshot family = folk.pool.snapshot();
    folk.context.remove(a);
    engine::ProcessResult result;
    result.generations = {1, 1};
    result.rowsBuilt = true;
    result.maxGeneration = 1;
    result.rows = {{}, {0, 1}};
    folk.pool.apply(family, result);
    EXPECT_EQ(b.generation(), 1);
    EXPECT_EQ(folk.context.person(gone), nullptr);
}

TEST(Process, PlacesTheFamilyInRows)
{
    GrowingFolk folk;
    Person& g1 = folk.member();
    Person& g2 = folk.member();
    Person& c = folk.member();
    Person& p = folk.member();
    Person& k = folk.member();
    g1.addPartner(g2);
    g1.addChild(c);
    g2.addChild(c);
    c.addPartner(p);
    c.addChild(k);
    p.addChild(k);
    EXPECT_TRUE(folk.pool.process());
    EXPECT_EQ(folk.pool.maxGeneration(), 3);
    EXPECT_EQ(folk.pool.maxGenerationOf(), k.recordId());
    EXPECT_EQ(folk.pool.maxGenerationSize(), 2);
    EXPECT_THAT(folk.pool.generations(),
                ElementsAre(IsEmpty(), ElementsAre(k.recordId()), UnorderedElementsAre(c.recordId(), p.recordId()),
                            UnorderedElementsAre(g1.recordId(), g2.recordId())));
    EXPECT_THAT(folk.pool.partners(),
                ElementsAre(LinkRecord{g1.recordId(), g2.recordId()}, LinkRecord{c.recordId(), p.recordId()}));
    EXPECT_EQ(folk.pool.offspring().size(), 4u);
}

TEST(Process, PutsAPersonWithoutLinksInRowZero)
{
    GrowingFolk folk;
    Person& person = folk.member();
    person.setGeneration(4);
    EXPECT_TRUE(folk.pool.process());
    EXPECT_EQ(person.generation(), std::nullopt);
    EXPECT_EQ(folk.pool.maxGenerationOf(), person.recordId());
    EXPECT_EQ(folk.pool.maxGeneration(), 0);
    EXPECT_THAT(folk.pool.generations(), ElementsAre(ElementsAre(person.recordId())));
}

TEST(Process, LeavesRowsAsTheyWereWhenTheLastPersonIsGone)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    a.addChild(b);
    EXPECT_TRUE(folk.pool.process());
    const auto rows = folk.pool.generations();
    EXPECT_EQ(folk.pool.maxGenerationSize(), 1);
    folk.context.remove(a);
    folk.context.remove(b);
    EXPECT_TRUE(folk.pool.process());
    EXPECT_EQ(folk.pool.maxGeneration(), 0);
    EXPECT_EQ(folk.pool.maxGenerationOf(), std::nullopt);
    EXPECT_THAT(folk.pool.partners(), IsEmpty());
    EXPECT_THAT(folk.pool.offspring(), IsEmpty());
    EXPECT_EQ(folk.pool.generations(), rows);
    EXPECT_EQ(folk.pool.maxGenerationSize(), 1);
}

TEST(Process, ChangesNothingWhenStoppedFirst)
{
    GrowingFolk folk;
    folk.member().addChild(folk.member());
    std::stop_source stop;
    stop.request_stop();
    const std::string before = test::dump(folk.context);
    EXPECT_FALSE(folk.pool.process(stop.get_token()));
    EXPECT_EQ(test::dump(folk.context), before);
    EXPECT_THAT(folk.pool.generations(), IsEmpty());
}

TEST(Process, GivesTheSameNumbersAfterARemovalWasUndone)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    Person& c = folk.member();
    a.addChild(b);
    a.addPartner(c);
    b.addPartner(c);
    folk.pool.process();
    EXPECT_EQ(a.generation(), 2);
    EXPECT_EQ(b.generation(), 1);
    EXPECT_EQ(c.generation(), 1);
    const std::string before = test::dump(folk.context);
    folk.context.journal().begin(u"Remove Person"_qs);
    folk.context.remove(a);
    folk.pool.process();
    const std::string after = test::dump(folk.context);
    folk.context.journal().undo();
    EXPECT_EQ(test::dump(folk.context), before);
    folk.pool.process();
    EXPECT_EQ(test::dump(folk.context), before);
    folk.context.journal().redo();
    EXPECT_EQ(test::dump(folk.context), after);
}

TEST(Process, PlacesAPersonLinkedBeforeItIsAMember)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& late = folk.context.insertPerson();
    a.addPartner(late);
    EXPECT_TRUE(folk.pool.process());
    EXPECT_EQ(late.generation(), a.generation());
    EXPECT_THAT(folk.pool.generations().at(1), ElementsAre(a.recordId()));
}

TEST(Process, KeepsLinkedPersonsBelowTheFirstRowInRowZero)
{
    GrowingFolk folk;
    std::vector<Person*> z;
    for (int person = 0; person < 8; ++person)
        z.push_back(&folk.member());
    const auto number = [&](std::size_t at) { return z.at(at - 101); };
    number(102)->addChild(*number(101));
    number(106)->addChild(*number(103));
    number(103)->addPartner(*number(104));
    number(104)->addChild(*number(105));
    number(105)->addPartner(*number(107));
    number(107)->addChild(*number(108));
    folk.pool.process();
    std::vector<int> generations;
    for (const Person* const person : z)
        generations.push_back(person->generation().value_or(-99));
    EXPECT_THAT(generations, ElementsAre(1, 2, 1, 1, 0, 2, 0, -1));
    std::vector<RecordId> everyone;
    for (const auto& row : folk.pool.generations())
        everyone.insert(everyone.end(), row.begin(), row.end());
    EXPECT_EQ(everyone.size(), 8u);
}

TEST(Process, IsOneStepTogetherWithTheLinkThatCausedIt)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    folk.pool.process();
    const std::string before = test::dump(folk.context);
    folk.context.journal().begin(u"Link Offspring"_qs);
    a.addChild(b);
    folk.pool.process();
    EXPECT_EQ(folk.context.journal().depth(), 1u);
    folk.context.journal().undo();
    EXPECT_EQ(test::dump(folk.context), before);
}

TEST(Process, SaysWhichNumbersWereRefused)
{
    GrowingFolk folk;
    Person& child = folk.member();
    Person& mother = folk.member();
    Person& father = folk.member();
    mother.addChild(child);
    father.addChild(child);
    mother.addChild(father);
    const LogCapture log;
    folk.pool.process();
    const std::string text(log.text());
    EXPECT_THAT(text, testing::StartsWith("Failed to assign generation "));
    EXPECT_EQ(text.back(), '\n');
}

TEST(Process, DoesNotWalkUpIntoThoseWhoAreMarkedAndFreesWhomItReaches)
{
    GrowingFolk folk;
    Person& child = folk.member();
    Person& parent = folk.member();
    Person& partner = folk.member();
    parent.addChild(child);
    parent.addPartner(partner);
    folk.pool.markWillWalk(parent);
    EXPECT_TRUE(child.willWalk());
    EXPECT_TRUE(folk.pool.process());
    EXPECT_TRUE(parent.willWalk());
    EXPECT_FALSE(child.willWalk());
    EXPECT_FALSE(partner.willWalk());
    EXPECT_EQ(child.generation(), 1);
    EXPECT_EQ(parent.generation(), 2);
}

TEST(Process, WritesHundredsOfLinesExactlyAndAtOnce)
{
    GrowingFolk folk;
    constexpr int refusals = 572;
    engine::ProcessResult result;
    for (int line = 0; line < refusals; ++line)
        result.log.push_back({engine::LogEntry::Kind::RefusedGeneration, line, line + 1});
    const FamilySnapshot family = folk.pool.snapshot();
    const LogCapture log;
    folk.pool.apply(family, result);
    EXPECT_EQ(std::ranges::count(log.text(), '\n'), refusals);
    EXPECT_THAT(std::string(log.text()),
                testing::StartsWith("Failed to assign generation 0 to person with existing generation 1\n"));
}

TEST(ArrangeGenerations, BuildsRowsFromTheNumbersAsTheyAre)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    Person& c = folk.member();
    a.setGeneration(3);
    b.setGeneration(1);
    folk.pool.arrangeGenerations();
    EXPECT_EQ(folk.pool.maxGeneration(), 3);
    EXPECT_EQ(folk.pool.maxGenerationSize(), 1);
    EXPECT_THAT(folk.pool.generations(), ElementsAre(ElementsAre(c.recordId()), ElementsAre(b.recordId()), IsEmpty(),
                                                     ElementsAre(a.recordId())));
}

TEST(ArrangeGenerations, PutsEverybodyUnlinkedIntoOneRow)
{
    GrowingFolk folk;
    Person& a = folk.member();
    Person& b = folk.member();
    folk.pool.arrangeGenerations();
    EXPECT_EQ(folk.pool.maxGeneration(), 0);
    EXPECT_EQ(folk.pool.maxGenerationSize(), 2);
    EXPECT_THAT(folk.pool.generations(), ElementsAre(ElementsAre(a.recordId(), b.recordId())));
}

} // namespace lineara

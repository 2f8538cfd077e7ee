#include "model/dump.h"

#include <gmock/gmock.h>

namespace lineara {

namespace {

using test::dump;
using testing::ElementsAre;

/// A(102) parent of B(103), C(104) partner of A, then of B, all in the pool(101) in that order.
struct LinkedFamily
{
    ObjectContext context;
    Journal& journal = context.journal();
    Pool& pool = context.insertPool();
    Person& a = member();
    Person& b = member();
    Person& c = member();

    LinkedFamily()
    {
        a.addChild(b);
        a.addPartner(c);
        b.addPartner(c);
    }

    Person& member()
    {
        Person& person = context.insertPerson();
        pool.addPerson(person);
        return person;
    }
};

} // namespace

TEST(Journal, IsEmptyAtFirst)
{
    LinkedFamily family;
    EXPECT_FALSE(family.journal.canUndo());
    EXPECT_FALSE(family.journal.canRedo());
    EXPECT_EQ(family.journal.depth(), 0u);
    EXPECT_EQ(family.journal.undoName(), QString());
    EXPECT_EQ(family.journal.redoName(), QString());
    const std::string before = dump(family.context);
    family.journal.undo();
    family.journal.redo();
    EXPECT_EQ(dump(family.context), before);
}

TEST(Journal, NamesWhatCanBeUndoneAndRedone)
{
    LinkedFamily family;
    family.journal.begin(u"Rename"_qs);
    family.a.setName(u"Ada"_qs);
    family.journal.begin(u"Link Partner"_qs);
    family.a.addPartner(family.b);
    EXPECT_EQ(family.journal.undoName(), u"Link Partner"_qs);
    EXPECT_EQ(family.journal.depth(), 2u);
    family.journal.undo();
    EXPECT_EQ(family.journal.undoName(), u"Rename"_qs);
    EXPECT_EQ(family.journal.redoName(), u"Link Partner"_qs);
    family.journal.undo();
    EXPECT_FALSE(family.journal.canUndo());
    EXPECT_EQ(family.journal.redoName(), u"Rename"_qs);
    family.journal.redo();
    EXPECT_EQ(family.a.name(), u"Ada"_qs);
    EXPECT_EQ(family.journal.redoName(), u"Link Partner"_qs);
}

TEST(Journal, PutsARemovedPersonBackInItsPlaceInEverySet)
{
    LinkedFamily family;
    const std::string before = dump(family.context);
    family.journal.begin(u"Remove Person"_qs);
    family.context.remove(family.a);
    const std::string after = dump(family.context);
    family.journal.undo();
    EXPECT_EQ(dump(family.context), before);
    EXPECT_THAT(family.pool.persons(), ElementsAre(&family.a, &family.b, &family.c));
    EXPECT_THAT(family.c.partners(), ElementsAre(&family.a, &family.b));
    family.journal.redo();
    EXPECT_EQ(dump(family.context), after);
    EXPECT_THAT(family.pool.persons(), ElementsAre(&family.b, &family.c));
    family.journal.undo();
    EXPECT_EQ(dump(family.context), before);
}

TEST(Journal, RestoresPlacesAmongChildrenAndParents)
{
    ObjectContext context;
    std::vector<Person*> persons;
    for (int count = 0; count < 6; ++count)
        persons.push_back(&context.insertPerson());
    for (int child = 2; child < 6; ++child) {
        persons[0]->addChild(*persons[static_cast<std::size_t>(child)]);
        persons[1]->addChild(*persons[static_cast<std::size_t>(child)]);
    }
    const std::string before = dump(context);
    context.journal().begin(u"Remove"_qs);
    persons[0]->removeChild(*persons[3]);
    persons[1]->removeChild(*persons[2]);
    context.remove(*persons[4]);
    context.remove(*persons[0]);
    context.journal().undo();
    EXPECT_EQ(dump(context), before);
}

TEST(Journal, BringsBackTheSameRecordAtTheSameAddress)
{
    LinkedFamily family;
    family.journal.begin(u"Remove Person"_qs);
    Person* const address = &family.a;
    family.a.setName(u"Ada"_qs);
    family.context.remove(family.a);
    family.journal.undo();
    EXPECT_EQ(family.context.person({102}), address);
}

TEST(Journal, RestoresTheNextNumber)
{
    LinkedFamily family;
    const std::uint64_t next = family.context.nextNumber();
    family.journal.begin(u"Add"_qs);
    family.context.insertPerson();
    family.context.remove(family.context.insertPerson());
    EXPECT_EQ(family.context.nextNumber(), next + 2);
    family.journal.undo();
    EXPECT_EQ(family.context.nextNumber(), next);
    family.journal.redo();
    EXPECT_EQ(family.context.nextNumber(), next + 2);
    family.journal.undo();
    EXPECT_EQ(family.context.insertPerson().recordId().number, next);
}

TEST(Journal, GivesNoLivingNumberAgain)
{
    LinkedFamily family;
    family.journal.begin(u"Add"_qs);
    family.context.insertPerson();
    {
        const Journal::Pause pause(family.journal);
        family.context.insertPerson();
    }
    family.journal.undo();
    EXPECT_EQ(family.context.nextNumber(), 107u);
    family.journal.redo();
    EXPECT_EQ(family.context.nextNumber(), 107u);
    EXPECT_EQ(family.context.allPersons().size(), 5u);
}

TEST(Journal, TakesDerivedChangesBackWithTheirGesture)
{
    LinkedFamily family;
    const std::string before = dump(family.context);
    family.journal.begin(u"Link"_qs);
    family.b.addChild(family.c);
    const std::vector<Person*> persons{&family.a, &family.b};
    const std::vector<std::optional<std::int32_t>> generations{3, 2};
    family.context.setMany(PersonAttribute::Generation, persons, generations);
    family.context.shiftX(family.pool, 40);
    const std::string after = dump(family.context);
    EXPECT_EQ(family.journal.depth(), 1u);
    family.journal.undo();
    EXPECT_EQ(dump(family.context), before);
    family.journal.redo();
    EXPECT_EQ(dump(family.context), after);
}

TEST(Journal, LeavesNoTraceOfAStepThatChangesNothing)
{
    LinkedFamily family;
    family.journal.begin(u"Rename"_qs);
    family.a.setName(u"Ada"_qs);
    family.journal.begin(u"Rename again"_qs);
    family.a.setName(u"Bea"_qs);
    family.a.setName(u"Ada"_qs);
    family.b.addPartner(family.a);
    family.b.removePartner(family.a);
    EXPECT_EQ(family.journal.depth(), 1u);
    EXPECT_EQ(family.journal.undoName(), u"Rename"_qs);
    family.journal.begin(u"Nothing"_qs);
    EXPECT_EQ(family.journal.depth(), 1u);
    family.journal.undo();
    EXPECT_EQ(family.a.name(), std::nullopt);
    EXPECT_FALSE(family.journal.canUndo());
}

TEST(Journal, LeavesNoTraceOfAShiftThereAndBack)
{
    LinkedFamily family;
    for (Person* const person : family.pool.persons())
        person->setX(10);
    family.journal.begin(u"Move"_qs);
    family.context.shiftX(family.pool, 7);
    family.context.shiftX(family.pool, -7);
    EXPECT_FALSE(family.journal.canUndo());
    const std::vector<Person*> persons{&family.a, &family.c};
    family.context.setMany(PersonAttribute::X, persons, std::vector<std::optional<std::int32_t>>{1, 2});
    family.context.setMany(PersonAttribute::X, persons, std::vector<std::optional<std::int32_t>>{10, 10});
    EXPECT_FALSE(family.journal.canUndo());
}

TEST(Journal, DoesNotKeepChangesMadeBeforeTheFirstStepOrUnderAPause)
{
    LinkedFamily family;
    family.a.setX(1);
    {
        const Journal::Pause pause(family.journal);
        family.journal.begin(u"Open"_qs);
        const Journal::Pause inner(family.journal);
        family.a.setX(2);
    }
    EXPECT_FALSE(family.journal.canUndo());
    family.a.setX(3);
    family.journal.undo();
    EXPECT_EQ(family.a.x(), 2);
}

TEST(Journal, DoesNotKeepChangesBetweenUndoAndTheNextStep)
{
    LinkedFamily family;
    family.journal.begin(u"First"_qs);
    family.a.setName(u"Ada"_qs);
    family.journal.begin(u"Second"_qs);
    family.a.setName(u"Bea"_qs);
    family.journal.undo();
    family.b.setX(5);
    EXPECT_TRUE(family.journal.canRedo());
    family.journal.redo();
    family.b.setX(6);
    family.journal.undo();
    family.journal.undo();
    EXPECT_EQ(family.b.x(), 6);
    EXPECT_EQ(family.a.name(), std::nullopt);
}

TEST(Journal, ForgetsUndoneStepsWhenANewOneBegins)
{
    LinkedFamily family;
    family.journal.begin(u"Add"_qs);
    family.context.insertPerson();
    family.journal.undo();
    family.journal.begin(u"Rename"_qs);
    EXPECT_TRUE(family.journal.canRedo());
    family.a.setX(5);
    EXPECT_FALSE(family.journal.canRedo());
    EXPECT_EQ(family.context.insertPerson().recordId().number, 105u);
}

TEST(Journal, ForgetsEverythingWhenCleared)
{
    LinkedFamily family;
    family.journal.begin(u"Add"_qs);
    family.context.insertPerson();
    family.journal.clear();
    family.a.setX(1);
    EXPECT_FALSE(family.journal.canUndo());
    EXPECT_FALSE(family.journal.canRedo());
}

TEST(Journal, EmitsTheSameEventsAgain)
{
    LinkedFamily family;
    std::vector<std::string> heard;
    const Subscription subscription = family.context.observe([&](const Change& change) {
        heard.push_back(std::to_string(change.index()));
        if (const auto* const link = std::get_if<LinkChanged>(&change))
            heard.back() += link->added ? '+' : '-';
        if (const auto* const attributes = std::get_if<AttributesChanged>(&change))
            heard.back() += 'a' + std::to_string(attributes->attributes.toInt());
        if (const auto* const many = std::get_if<ManyChanged>(&change))
            heard.back() += 'm' + std::to_string(many->persons.size());
    });
    family.journal.begin(u"All"_qs);
    family.a.setBirthYear(1901);
    family.context.insertPerson();
    family.context.remove(family.b);
    family.context.shiftX(family.pool, 2);
    std::vector<std::string> done = heard;
    done.push_back(std::to_string(Change(Replayed()).index()));
    heard.clear();
    family.journal.undo();
    EXPECT_EQ(heard.size(), done.size());
    heard.clear();
    family.journal.redo();
    EXPECT_EQ(heard, done);
}

TEST(Journal, RestoresXAcrossShiftsAndSingleWrites)
{
    LinkedFamily family;
    family.a.setX(100);
    family.b.setX(200);
    const std::string before = dump(family.context);
    family.journal.begin(u"Drag"_qs);
    for (int move = 1; move <= 50; ++move) {
        family.a.setX(move * -3);
        family.context.shiftX(family.pool, move * -3);
        if (move == 20)
            family.b.setX(std::nullopt);
        if (move == 30)
            family.b.setX(7);
    }
    const std::string after = dump(family.context);
    for (int time = 0; time < 2; ++time) {
        family.journal.undo();
        EXPECT_EQ(dump(family.context), before);
        family.journal.redo();
        EXPECT_EQ(dump(family.context), after);
    }
}

TEST(Journal, SurvivesWhatHappensBehindItsBack)
{
    LinkedFamily family;
    family.journal.begin(u"Change"_qs);
    family.a.setName(u"Ada"_qs);
    family.pool.removePerson(family.c);
    family.context.remove(family.b);
    family.context.shiftX(family.pool, 3);
    Person& d = family.member();
    d.addChild(family.c);
    {
        const Journal::Pause pause(family.journal);
        family.context.remove(family.a);
        family.pool.removePerson(d);
        d.addPartner(family.c);
        family.c.disconnect();
    }
    for (int time = 0; time < 3; ++time) {
        family.journal.undo();
        EXPECT_EQ(test::inconsistencies(family.context), "");
        family.journal.redo();
        EXPECT_EQ(test::inconsistencies(family.context), "");
    }
}

TEST(Journal, TakesAPersonMarriedBehindItsBackOutOfEverything)
{
    LinkedFamily family;
    family.journal.begin(u"Add"_qs);
    Person& d = family.context.insertPerson();
    {
        const Journal::Pause pause(family.journal);
        family.pool.addPerson(d);
        family.a.addPartner(d);
    }
    family.journal.undo();
    EXPECT_EQ(test::inconsistencies(family.context), "");
    EXPECT_THAT(family.a.partners(), ElementsAre(&family.c));
}

TEST(Journal, HoldsTensOfThousandsOfSteps)
{
    LinkedFamily family;
    const std::string before = dump(family.context);
    for (int step = 0; step < 30'000; ++step) {
        family.journal.begin(u"Move"_qs);
        family.a.setX(step);
    }
    EXPECT_EQ(family.journal.depth(), 30'000u);
    while (family.journal.canUndo())
        family.journal.undo();
    EXPECT_EQ(dump(family.context), before);
    while (family.journal.canRedo())
        family.journal.redo();
    EXPECT_EQ(family.a.x(), 29'999);
}

} // namespace lineara

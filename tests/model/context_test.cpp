#include "model/dump.h"

#include <gmock/gmock.h>

#include <memory>

namespace lineara {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST(Context, NumbersRecordsFrom101On)
{
    ObjectContext context;
    EXPECT_EQ(context.nextNumber(), 101u);
    EXPECT_EQ(context.insertPool().recordId(), RecordId{101});
    EXPECT_EQ(context.insertPerson().recordId(), RecordId{102});
    EXPECT_EQ(context.insertPic().recordId(), RecordId{103});
    EXPECT_EQ(context.nextNumber(), 104u);
}

TEST(Context, NeverGivesANumberTwice)
{
    ObjectContext context;
    context.remove(context.insertPerson());
    EXPECT_EQ(context.insertPerson().recordId(), RecordId{102});
    EXPECT_EQ(context.person({101}), nullptr);
}

TEST(Context, FindsRecordsByNumberAndEntity)
{
    ObjectContext context;
    Pool& pool = context.insertPool();
    Person& person = context.insertPerson();
    Pic& pic = context.insertPic();
    EXPECT_EQ(context.pool({101}), &pool);
    EXPECT_EQ(context.person({102}), &person);
    EXPECT_EQ(context.pic({103}), &pic);
    EXPECT_EQ(context.person({101}), nullptr);
    EXPECT_EQ(context.pool({103}), nullptr);
    EXPECT_EQ(context.person({104}), nullptr);
    EXPECT_EQ(context.person({0}), nullptr);
}

TEST(Context, KeepsTheValuesThatAnImporterGives)
{
    ObjectContext context;
    const PersonValues values{.name = u"Edith"_qs, .birthYear = 1901, .generation = 3, .x = -7};
    EXPECT_EQ(context.insertPerson(values).values(), values);
}

TEST(Context, SetsManyWithOneEvent)
{
    ObjectContext context;
    Person& a = context.insertPerson();
    Person& b = context.insertPerson({.generation = 2});
    Person& c = context.insertPerson();
    std::vector<std::vector<Person*>> heard;
    const Subscription subscription = context.observe([&](const Change& change) {
        const auto& many = std::get<ManyChanged>(change);
        EXPECT_EQ(many.attributes, PersonAttribute::Generation);
        heard.emplace_back(many.persons.begin(), many.persons.end());
    });
    const std::vector<Person*> persons{&c, &b, &a};
    const std::vector<std::optional<std::int32_t>> values{1, 2, 3};
    context.setMany(PersonAttribute::Generation, persons, values);
    context.setMany(PersonAttribute::Generation, persons, values);
    EXPECT_THAT(heard, ElementsAre(ElementsAre(&c, &a)));
    EXPECT_EQ(a.generation(), 3);
    EXPECT_EQ(b.generation(), 2);
    EXPECT_EQ(c.generation(), 1);
}

TEST(Context, ShiftsAWholePoolWithOneEvent)
{
    ObjectContext context;
    Pool& pool = context.insertPool();
    Person& a = context.insertPerson({.x = 300});
    Person& b = context.insertPerson();
    Person& stranger = context.insertPerson({.x = 5});
    pool.addPerson(a);
    pool.addPerson(b);
    int events = 0;
    const Subscription subscription = context.observe([&](const Change&) { ++events; });
    context.shiftX(pool, 47);
    EXPECT_EQ(events, 1);
    EXPECT_EQ(a.x(), 253);
    EXPECT_EQ(b.x(), -47);
    EXPECT_EQ(stranger.x(), 5);
}

TEST(Context, ShiftsNothingInSilence)
{
    ObjectContext context;
    Pool& pool = context.insertPool();
    Pool& empty = context.insertPool();
    pool.addPerson(context.insertPerson({.x = 1}));
    context.journal().begin(u"Move"_qs);
    int events = 0;
    const Subscription subscription = context.observe([&](const Change&) { ++events; });
    context.shiftX(pool, 0);
    context.shiftX(empty, 10);
    EXPECT_EQ(events, 0);
    EXPECT_FALSE(context.journal().canUndo());
}

TEST(Context, WrapsWholeNumbersAt32Bits)
{
    ObjectContext context;
    Pool& pool = context.insertPool();
    Person& person = context.insertPerson({.x = std::numeric_limits<std::int32_t>::min()});
    pool.addPerson(person);
    context.journal().begin(u"Move"_qs);
    context.shiftX(pool, 1);
    EXPECT_EQ(person.x(), std::numeric_limits<std::int32_t>::max());
    context.journal().undo();
    EXPECT_EQ(person.x(), std::numeric_limits<std::int32_t>::min());
}

TEST(Observers, HearUntilTheyLeave)
{
    ObjectContext context;
    int heard = 0;
    {
        const Subscription subscription = context.observe([&](const Change&) { ++heard; });
        context.insertPerson();
    }
    context.insertPerson();
    EXPECT_EQ(heard, 1);
}

TEST(Observers, MayLeaveWhileTheyAreCalled)
{
    ObjectContext context;
    std::vector<int> heard;
    auto first = std::make_unique<Subscription>();
    auto second = std::make_unique<Subscription>();
    *first = context.observe([&](const Change&) {
        const std::vector<int> stillUsable{1};
        first.reset();
        second.reset();
        heard.insert(heard.end(), stillUsable.begin(), stillUsable.end());
    });
    *second = context.observe([&](const Change&) { heard.push_back(2); });
    const Subscription third = context.observe([&](const Change&) { heard.push_back(3); });
    context.insertPerson();
    context.insertPerson();
    EXPECT_THAT(heard, ElementsAre(1, 3, 3));
}

TEST(Observers, ThatComeDuringAnEventHearTheNext)
{
    ObjectContext context;
    std::vector<Subscription> late;
    int heard = 0;
    const Subscription subscription = context.observe([&](const Change&) {
        for (int more = 0; more < 20; ++more)
            late.push_back(context.observe([&](const Change&) { ++heard; }));
    });
    context.insertPerson();
    EXPECT_EQ(heard, 0);
    context.insertPerson();
    EXPECT_EQ(heard, 20);
}

TEST(Observers, MayOutliveTheContext)
{
    Subscription subscription;
    {
        ObjectContext context;
        subscription = context.observe([](const Change&) {});
    }
    subscription = {};
}

TEST(Observers, MayChangeRecordsThemselves)
{
    ObjectContext context;
    context.journal().begin(u"Add"_qs);
    const Subscription subscription = context.observe([&](const Change& change) {
        const auto* const inserted = std::get_if<RecordInserted>(&change);
        if (inserted && inserted->record.entity() == Entity::Person)
            context.insertPic();
    });
    const std::string before = test::dump(context);
    context.insertPerson();
    EXPECT_EQ(context.allPics().size(), 1u);
    const std::string after = test::dump(context);
    context.journal().undo();
    EXPECT_EQ(test::dump(context), before);
    EXPECT_NE(before, after);
}

TEST(Awakening, ComesToPersonsInsertedFromThenOn)
{
    ObjectContext context;
    std::vector<Person*> awake;
    context.setAwakening([&](Person& person) { awake.push_back(&person); });
    EXPECT_THAT(awake, IsEmpty());
    context.insertPool();
    Person& person = context.insertPerson();
    EXPECT_THAT(awake, ElementsAre(&person));
}

TEST(Awakening, ComesToThoseWhoAreThereInNumberOrderAndOnlyOnce)
{
    ObjectContext context;
    Person& a = context.insertPerson();
    Person& b = context.insertPerson();
    std::vector<Person*> awake;
    const auto note = [&](Person& person) { awake.push_back(&person); };
    context.setAwakening(note);
    context.setAwakening(note);
    EXPECT_THAT(awake, ElementsAre(&a, &b));
}

TEST(Awakening, ComesBeforeTheInsertionIsReported)
{
    ObjectContext context;
    std::vector<std::string> order;
    context.setAwakening([&](Person&) { order.emplace_back("awake"); });
    const Subscription subscription = context.observe([&](const Change&) { order.emplace_back("event"); });
    context.insertPerson();
    EXPECT_THAT(order, ElementsAre("awake", "event"));
}

TEST(Awakening, ComesAgainToAPersonBroughtBack)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    std::vector<Person*> awake;
    context.setAwakening([&](Person& woken) { awake.push_back(&woken); });
    context.journal().begin(u"Remove"_qs);
    context.remove(person);
    context.journal().undo();
    EXPECT_THAT(awake, ElementsAre(&person, &person));
}

} // namespace lineara

#include "model/object_context.h"

#include <gtest/gtest.h>

#include <compare>

namespace lineara {

namespace {

Person& born(ObjectContext& context, std::optional<std::int32_t> birth, std::optional<std::int32_t> death)
{
    return context.insertPerson({.birthYear = birth, .deathYear = death});
}

/// What was reported about one person's attributes.
class Heard
{
public:
    explicit Heard(ObjectContext& context)
        : subscription_(context.observe([this](const Change& change) {
              ++events;
              if (const auto* const changed = std::get_if<AttributesChanged>(&change))
                  attributes |= changed->attributes;
          }))
    {}

    PersonAttributes attributes;
    int events = 0;

private:
    Subscription subscription_;
};

} // namespace

TEST(Person, IsNewWithoutGenerationPlacePoolAndPicture)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    EXPECT_EQ(person.values(), PersonValues());
    EXPECT_EQ(person.pool(), nullptr);
    EXPECT_EQ(person.pic(), nullptr);
    EXPECT_EQ(person.leafView(), nullptr);
    EXPECT_TRUE(person.linkLayers().empty());
    EXPECT_FALSE(person.willWalk());
    EXPECT_EQ(person.image(), std::nullopt);
    EXPECT_TRUE(person.unknown().empty());
}

TEST(Person, StaysSmall)
{
    EXPECT_LE(sizeof(Person), 400u);
}

TEST(Person, ShowsItsLifeSpan)
{
    ObjectContext context;
    EXPECT_EQ(born(context, {}, {}).era(), u""_qs);
    EXPECT_EQ(born(context, 1901, 1968).era(), u"1901 - 1968"_qs);
    EXPECT_EQ(born(context, 1901, {}).era(), u"b.1901"_qs);
    EXPECT_EQ(born(context, {}, 1968).era(), u"d.1968"_qs);
    EXPECT_EQ(born(context, 0, 0).era(), u"0 - 0"_qs);
    EXPECT_EQ(born(context, -44, {}).era(), u"b.-44"_qs);
    EXPECT_FALSE(born(context, {}, {}).era().isNull());
}

TEST(Person, AnnouncesItsLifeSpanWithEveryChangeOfAYear)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    {
        Heard heard(context);
        person.setBirthYear(1901);
        EXPECT_EQ(heard.attributes, PersonAttribute::BirthYear | PersonAttribute::Era);
        EXPECT_EQ(heard.events, 1);
    }
    Heard heard(context);
    person.setDeathYear(1968);
    EXPECT_EQ(heard.attributes, PersonAttribute::DeathYear | PersonAttribute::Era);
}

TEST(Person, DoesNotAnnounceItsLifeSpanWithOtherChanges)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    Heard heard(context);
    person.setAdditional(u"notes"_qs);
    person.setName(u"name"_qs);
    person.setBirthDay(1);
    person.setBirthMonth(2);
    person.setDeathDay(3);
    person.setDeathMonth(4);
    person.setX(5);
    person.setGeneration(6);
    EXPECT_FALSE(heard.attributes.testFlag(PersonAttribute::Era));
    EXPECT_EQ(heard.events, 8);
}

TEST(Person, SaysNothingWhenAValueIsSetToWhatItIs)
{
    ObjectContext context;
    Person& person = context.insertPerson({.name = u"Edith"_qs, .birthYear = 1901});
    context.journal().begin(u"Edit"_qs);
    Heard heard(context);
    person.setName(u"Edith"_qs);
    person.setBirthYear(1901);
    person.setDeathYear(std::nullopt);
    EXPECT_EQ(heard.events, 0);
    EXPECT_FALSE(context.journal().canUndo());
}

TEST(Person, KeepsAbsentApartFromEmptyAndZero)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    person.setName(u""_qs);
    person.setBirthYear(0);
    EXPECT_EQ(person.name(), u""_qs);
    EXPECT_EQ(person.birthYear(), 0);
    EXPECT_EQ(person.era(), u"b.0"_qs);
    person.setName(std::nullopt);
    person.setBirthYear(std::nullopt);
    EXPECT_EQ(person.name(), std::nullopt);
    EXPECT_EQ(person.birthYear(), std::nullopt);
}

TEST(Person, HasAnAddressThatNamesStoreEntityAndNumber)
{
    ObjectContext context(QUuid(u"{0f8fad5b-d9cb-469f-a165-70867728950e}"_qs));
    Pool& pool = context.insertPool();
    Person& person = context.insertPerson();
    Pic& pic = context.insertPic();
    EXPECT_EQ(pool.id(), u"x-lineara://0F8FAD5B-D9CB-469F-A165-70867728950E/Pool/p101"_qs);
    EXPECT_EQ(person.id(), u"x-lineara://0F8FAD5B-D9CB-469F-A165-70867728950E/Person/p102"_qs);
    EXPECT_EQ(pic.id(), u"x-lineara://0F8FAD5B-D9CB-469F-A165-70867728950E/Pic/p103"_qs);
}

TEST(RecordId, OrdersAsTheTextOfItsNumber)
{
    EXPECT_EQ(compareAsText({10}, {9}), std::strong_ordering::less);
    EXPECT_EQ(compareAsText({1000}, {999}), std::strong_ordering::less);
    EXPECT_EQ(compareAsText({10}, {100}), std::strong_ordering::less);
    EXPECT_EQ(compareAsText({2}, {19}), std::strong_ordering::greater);
    EXPECT_EQ(compareAsText({18446744073709551615u}, {18446744073709551615u}), std::strong_ordering::equal);
}

} // namespace lineara

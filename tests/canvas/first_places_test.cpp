#include "canvas/tidying.h"
#include "model/object_context.h"

#include <gtest/gtest.h>

namespace lineara {
namespace {

/// A couple with four children, all of whom have places; the last child has a place of its own far to the right.
class FirstPlaces : public testing::Test
{
protected:
    FirstPlaces()
    {
        for (const std::int32_t x : {453, 605, 253, 405, 557, farRight})
            placed.push_back(&add(x));
        placed[0]->addPartner(*placed[1]);
        for (std::size_t child = 2; child < placed.size(); ++child) {
            placed[0]->addChild(*placed[child]);
            placed[1]->addChild(*placed[child]);
        }
    }

    Person& add(std::optional<std::int32_t> x)
    {
        Person& person = family.insertPerson({.x = x});
        pool.addPerson(person);
        return person;
    }

    void open()
    {
        pool.process();
        giveFirstPlaces(pool);
    }

    static constexpr std::int32_t farRight = 4'000;
    static constexpr std::int32_t pitch = 152;

    ObjectContext family;
    Pool& pool = family.insertPool();
    std::vector<Person*> placed;
};

TEST_F(FirstPlaces, AreGivenRightBesideWhoeverStandsFarthestRight)
{
    Person& child = add(std::nullopt);
    placed[2]->addChild(child);
    open();
    EXPECT_EQ(child.x(), farRight + pitch);
}

TEST_F(FirstPlaces, AreGivenToWholeFamiliesAtOnce)
{
    Person& mother = add(std::nullopt);
    Person& father = add(std::nullopt);
    Person& son = add(std::nullopt);
    mother.addPartner(father);
    mother.addChild(son);
    father.addChild(son);
    open();
    EXPECT_EQ(std::min(mother.x(), father.x()), farRight + pitch);
    EXPECT_EQ(std::abs(*mother.x() - *father.x()), pitch);
    EXPECT_EQ(*son.x(), (*mother.x() + *father.x()) / 2);
}

TEST_F(FirstPlaces, MoveNobodyWhoHasOne)
{
    placed[2]->addChild(add(std::nullopt));
    open();
    EXPECT_EQ(placed[0]->x(), 453);
    EXPECT_EQ(placed[2]->x(), 253);
    EXPECT_EQ(placed[5]->x(), farRight);
}

} // namespace
} // namespace lineara

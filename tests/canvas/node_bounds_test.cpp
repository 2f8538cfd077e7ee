#include "elements/leaf_view.h"
#include "shown_family.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace lineara {

namespace {

Frame literalBounds(const FamilyScene& scene)
{
    double left = 1e9, bottom = 1e9, right = -1e9, top = -1e9;
    for (const LeafView* const node : scene.personLayer().nodes()) {
        const Frame frame = node->frame();
        left = std::min(left, frame.x);
        bottom = std::min(bottom, frame.y);
        right = std::max(right, frame.x + frame.width);
        top = std::max(top, frame.y + frame.height);
    }
    return {left, bottom, right - left, top - bottom};
}

class NodeBoundsTest : public testing::Test
{
protected:
    void addShown(std::int32_t x) { scene.addNode(*family.add(x, 1).leafView()); }

    ShownFamily family;
    FamilyScene scene{family.pool};
};

} // namespace

TEST_F(NodeBoundsTest, areNoneWithoutNodes)
{
    EXPECT_EQ(scene.bounds(), std::nullopt);
    addShown(10);
    EXPECT_TRUE(scene.bounds());
    scene.removePerson(scene.personLayer().nodes().front()->person());
    EXPECT_EQ(scene.bounds(), std::nullopt);
}

TEST_F(NodeBoundsTest, shrinkWhenTheOutermostMovesInwards)
{
    for (std::int32_t person = 0; person < 600; ++person)
        addShown(person * 200);
    ASSERT_EQ(scene.bounds(), literalBounds(scene));
    Person& last = scene.personLayer().nodes().back()->person();
    last.setX(0);
    scene.nodeMoved(*last.leafView());
    EXPECT_EQ(scene.bounds(), literalBounds(scene));
}

TEST_F(NodeBoundsTest, agreeWithAWholeScanWhateverHappens)
{
    std::mt19937 random(11);
    const auto upTo = [&](std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(random); };
    const auto place = [&] { return static_cast<std::int32_t>(upTo(2000)) - 1000; };
    for (int person = 0; person < 700; ++person)
        addShown(place());
    for (int round = 0; round < 3000; ++round) {
        const auto& nodes = scene.personLayer().nodes();
        Person& person = nodes[upTo(nodes.size() - 1)]->person();
        switch (upTo(3)) {
        case 0:
            addShown(place());
            break;
        case 1:
            scene.removePerson(person);
            break;
        default:
            person.setX(place());
            scene.nodeMoved(*person.leafView());
        }
        if (upTo(2) == 0) {
            ASSERT_EQ(scene.bounds(), literalBounds(scene)) << round;
        }
    }
}

} // namespace lineara

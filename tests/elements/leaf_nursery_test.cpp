#include "elements/leaf_nursery.h"

#include "elements/family.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using tests::Family;

TEST(LeafNursery, EveryNewPersonHasANode)
{
    Family family;
    Person& ann = family.add();
    ASSERT_NE(ann.leafView(), nullptr);
    EXPECT_EQ(&ann.leafView()->person(), &ann);
    EXPECT_EQ(&ann.leafView()->infoView().person(), &ann);
    EXPECT_EQ(&ann.leafView()->imageView().person(), &ann);
    EXPECT_EQ(family.nursery.nodeCount(), 1u);
}

TEST(LeafNursery, PersonsThatWereThereFirstGetNodesToo)
{
    ObjectContext context;
    const Person& ann = context.insertPerson();
    {
        const LeafNursery nursery(context);
        EXPECT_NE(ann.leafView(), nullptr);
    }
    EXPECT_EQ(ann.leafView(), nullptr);
    const LeafNursery again(context);
    EXPECT_NE(ann.leafView(), nullptr);
}

TEST(LeafNursery, UndoBringsThePersonBackWithItsOldNode)
{
    Family family;
    Person& ann = family.add();
    const RecordId id = ann.recordId();
    const LeafView* const node = ann.leafView();
    const auto leaves = node->imageView().rotationSteps();
    family.context.journal().begin(u"Remove Person"_qs);
    family.context.remove(ann);
    family.context.journal().undo();
    ASSERT_NE(family.context.person(id), nullptr);
    EXPECT_EQ(family.context.person(id)->leafView(), node);
    EXPECT_EQ(node->imageView().rotationSteps(), leaves);
    EXPECT_EQ(family.nursery.nodeCount(), 1u);
    family.nursery.forgetRemoved();
    EXPECT_EQ(family.nursery.nodeCount(), 1u);
}

TEST(LeafNursery, NodesOfTheForgottenGo)
{
    Family family;
    Person& ann = family.add();
    family.add();
    family.context.journal().begin(u"Remove Person"_qs);
    family.context.remove(ann);
    EXPECT_EQ(family.nursery.nodeCount(), 2u);
    family.context.journal().clear();
    family.nursery.forgetRemoved();
    EXPECT_EQ(family.nursery.nodeCount(), 1u);
    family.add();
    EXPECT_EQ(family.nursery.nodeCount(), 2u);
}

TEST(LeafNursery, LeavesFollowFromThePersonsNumberWithoutARandomSource)
{
    std::vector<std::array<std::uint8_t, 2>> first;
    for (int run = 0; run < 2; ++run) {
        ObjectContext context;
        const LeafNursery nursery(context);
        for (std::size_t at = 0; at < 50; ++at) {
            const auto steps = context.insertPerson().leafView()->imageView().rotationSteps();
            if (run == 0)
                first.push_back(steps);
            else
                EXPECT_EQ(steps, first[at]);
        }
    }
    EXPECT_NE(first[0], first[1]);
}

} // namespace
} // namespace lineara

// How the canvas follows the records: persons and links that come, change and go.

#include "canvas/tree_view.h"
#include "shown_family.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lineara {
namespace {

/// Two different persons of a row leave a gap, whichever of them stands to the left.
bool standApart(const Person& one, const Person& other)
{
    if (&one == &other || one.generation() != other.generation())
        return true;
    const auto [left, right] = std::minmax({one.leafView(), other.leafView()},
                                           [](const auto* a, const auto* b) { return a->frame().x < b->frame().x; });
    return right->frame().x >= left->frame().x + left->width() + 10;
}

TEST(TreeViewChanges, NewPersonStandsInTheLeftHalfAboveTheBottomOfTheView)
{
    ShownFamily family;
    for (int person = 0; person < 30; ++person)
        family.add(person * 152, 1 + person % 9);
    TreeView& view = family.show();
    view.zoomTo(1, {0, 0});
    view.scrollTo(500, 300);
    Person& person = family.add(std::nullopt);
    view.addViewForPerson(person);
    EXPECT_GE(person.x(), 501);
    EXPECT_LE(person.x(), 950);
    EXPECT_EQ(family.xConstant(person), person.x());
    EXPECT_EQ(family.yConstant(person), -550);
}

TEST(TreeViewChanges, NewPersonIsLiftedWhateverItsGenerationAndGlidesToItsRowAtTheNextRefresh)
{
    ShownFamily family;
    family.add(0, 1);
    TreeView& view = family.show();
    Person& person = family.add(std::nullopt, 2);
    view.addViewForPerson(person);
    EXPECT_EQ(family.yConstant(person), -250);
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(family.yConstant(person), -451);
}

TEST(TreeViewChanges, NewPersonWithoutLinksStaysWhereItIsAtSomebodyElsesRefresh)
{
    ShownFamily family;
    family.add(0, 1);
    TreeView& view = family.show();
    Person& person = family.add(std::nullopt);
    view.addViewForPerson(person);
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(family.yConstant(person), -250);
}

TEST(TreeViewChanges, NewPersonIsScrolledIntoAViewThatIsTooSmallForTheLift)
{
    ShownFamily family;
    family.add(0, 9);
    TreeView& view = family.show();
    view.zoomTo(4, {0, 600});
    Person& person = family.add(std::nullopt);
    view.addViewForPerson(person);
    const Frame node = person.leafView()->frame();
    const Frame visible = view.documentVisibleRect();
    EXPECT_TRUE(visible.contains(node.centre()));
}

TEST(TreeViewChanges, ReturningPersonKeepsItsPlace)
{
    ShownFamily family;
    Person& person = family.add(70, 2);
    TreeView& view = family.show();
    view.removeViewForPerson(person);
    EXPECT_TRUE(view.personLayer().nodes().empty());
    view.addViewForPerson(person);
    view.addViewForPerson(person);
    EXPECT_EQ(view.personLayer().nodes().size(), 1u);
    EXPECT_EQ(family.xConstant(person), 70);
    EXPECT_EQ(family.yConstant(person), -451);
}

TEST(TreeViewChanges, KeepsACopyOfTheRowsAsOfTheLastPass)
{
    ShownFamily family;
    Person& person = family.add(0, 2);
    TreeView& view = family.show();
    const auto before = family.pool.generations();
    EXPECT_EQ(view.generations(), before);
    person.setGeneration(1);
    family.pool.arrangeGenerations();
    EXPECT_EQ(view.generations(), before);
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(view.generations(), family.pool.generations());
}

TEST(TreeViewChanges, PersonThatLeavesTakesNodeAndLinksAlong)
{
    ShownFamily family;
    Person& parent = family.add(0);
    Person& child = family.add(200);
    Person& other = family.add(400);
    parent.addChild(child);
    parent.addPartner(other);
    TreeView& view = family.processAndShow();
    EXPECT_EQ(view.branchLayer().layers().size(), 2u);
    family.context.remove(child);
    EXPECT_EQ(view.personLayer().nodes().size(), 2u);
    EXPECT_EQ(view.branchLayer().layers().size(), 1u);
    EXPECT_EQ(parent.linkLayers().size(), 1u);
    family.pool.process();
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(view.generations(), family.pool.generations());
}

TEST(TreeViewChanges, PersonsThatAreGoneForGoodLeaveNothingBehind)
{
    ShownFamily family;
    Person& first = family.add(0);
    Person& second = family.add(200);
    first.addPartner(second);
    TreeView& view = family.processAndShow();
    for (Person* const person : {&first, &second})
        family.context.remove(*person);
    family.context.journal().clear();
    family.nursery.forgetRemoved();
    Person& parent = family.add(0);
    Person& child = family.add(200);
    parent.addChild(child);
    family.pool.process();
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(view.generations(), family.pool.generations());
    EXPECT_EQ(view.personLayer().nodes().size(), 2u);
    EXPECT_EQ(family.yConstant(parent), rowConstant(2));
    EXPECT_EQ(view.hit(child.leafView()->infoFrame().centre()).node, child.leafView());
}

TEST(TreeViewChanges, UndoBringsOneNodeAndOneShapeForEachLinkBack)
{
    ShownFamily family;
    Person& parent = family.add(0);
    Person& child = family.add(200);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    family.context.journal().begin(QStringLiteral("Remove"));
    child.disconnect();
    family.context.remove(child);
    family.context.journal().undo();
    family.pool.process();
    view.refreshHierarchy();
    view.settle();
    ASSERT_EQ(view.personLayer().nodes().size(), 2u);
    ASSERT_EQ(view.branchLayer().layers().size(), 1u);
    const Person& restored = *view.branchLayer().layers()[0]->target();
    EXPECT_EQ(restored.x(), 200);
    EXPECT_EQ(family.yConstant(restored), rowConstant(1));
    EXPECT_EQ(view.branchLayer().layers()[0]->endPoint(), restored.leafView()->frame().centre());
}

TEST(TreeViewChanges, RefreshRepairsTheShapesWhateverCameBefore)
{
    ShownFamily family;
    Person& parent = family.add(0);
    Person& child = family.add(200);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    view.addLink({parent.recordId(), child.recordId()}, offspringLink.toString());
    EXPECT_EQ(view.branchLayer().layers().size(), 2u);
    view.refreshHierarchy();
    EXPECT_EQ(view.branchLayer().layers().size(), 1u);
    parent.removeChild(child);
    family.pool.process();
    view.refreshHierarchy();
    EXPECT_TRUE(view.branchLayer().layers().empty());
}

TEST(TreeViewChanges, LinksFollowTheirNodes)
{
    ShownFamily family;
    Person& parent = family.add(0);
    Person& child = family.add(200);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    child.setX(640);
    const auto link = [&]() -> const LinkLayer& { return *view.branchLayer().layers()[0]; };
    EXPECT_EQ(link().startPoint(), parent.leafView()->frame().centre());
    EXPECT_EQ(link().endPoint(), child.leafView()->frame().centre());
    view.adjustBy(-50);
    EXPECT_EQ(link().startPoint(), parent.leafView()->frame().centre());
}

TEST(TreeViewChanges, LongerNameWidensTheNodeForHitsAndLinks)
{
    ShownFamily family;
    Person& person = family.add(100, 1, QStringLiteral("Al"));
    TreeView& view = family.show();
    const Frame before = person.leafView()->frame();
    const CanvasPoint beyond{before.x + before.width + 2, before.y + 30};
    EXPECT_EQ(view.hit(beyond).node, nullptr);
    person.setName(QStringLiteral("Wilhelmina of Orange"));
    EXPECT_EQ(view.hit(beyond).node, person.leafView());
}

TEST(TreeViewChanges, PersonsWithoutPlacesGetRowsInWhichNobodyOverlaps)
{
    std::vector<std::optional<std::int32_t>> places[2];
    for (auto& found : places) {
        ShownFamily family;
        Person& mother = family.add(std::nullopt);
        Person& father = family.add(std::nullopt);
        mother.addPartner(father);
        for (int child = 0; child < 3; ++child) {
            Person& born = family.add(std::nullopt);
            mother.addChild(born);
            father.addChild(born);
        }
        family.processAndShow();
        EXPECT_EQ(family.yConstant(mother), -451);
        EXPECT_EQ(family.yConstant(*family.pool.persons()[2]), -230);
        for (const Person* const left : family.pool.persons())
            for (const Person* const right : family.pool.persons())
                EXPECT_TRUE(standApart(*left, *right));
        for (const Person* const person : family.pool.persons())
            found.push_back(person->x());
    }
    EXPECT_EQ(places[0], places[1]);
}
TEST(TreeViewChanges, WhoWasSelectedWithoutANodeComesBackUnselected)
{
    ShownFamily family;
    Person& person = family.add(100);
    TreeView& view = family.show();
    family.context.journal().begin(QStringLiteral("Remove"));
    family.pool.removePerson(person);
    view.focus(person);
    family.context.remove(person);
    family.context.journal().undo();
    view.settle();
    ASSERT_TRUE(view.scene().shows(person));
    EXPECT_FALSE(person.leafView()->infoView().isFocused());
}

} // namespace
} // namespace lineara

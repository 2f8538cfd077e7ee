// What stands where on the canvas, and how that follows the records.

#include "canvas/tree_view.h"
#include "elements/node_layout.h"
#include "shown_family.h"

#include <gmock/gmock.h>

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace lineara {
namespace {

using testing::ElementsAre;

/// Counts the changes of x that a block makes, and the persons that they name.
class PlaceChanges
{
public:
    explicit PlaceChanges(ObjectContext& context)
        : subscription_(context.observe([this](const Change& change) { take(change); }))
    {}
    std::vector<std::size_t> sizes;

private:
    void take(const Change& change)
    {
        if (const auto* const one = std::get_if<AttributesChanged>(&change);
            one && (one->attributes & PersonAttribute::X))
            sizes.push_back(1);
        if (const auto* const many = std::get_if<ManyChanged>(&change); many && (many->attributes & PersonAttribute::X))
            sizes.push_back(many->persons.size());
    }
    Subscription subscription_;
};

/// Two different persons of a row leave a gap, whichever of them stands to the left.
bool standApart(const Person& one, const Person& other)
{
    if (&one == &other || one.generation() != other.generation())
        return true;
    const auto [left, right] = std::minmax({one.leafView(), other.leafView()},
                                           [](const auto* a, const auto* b) { return a->frame().x < b->frame().x; });
    return right->frame().x >= left->frame().x + left->width() + 10;
}

TEST(TreeView, EmptyPoolHasBothLayersAndNoNodes)
{
    ShownFamily family;
    TreeView& view = family.show();
    EXPECT_TRUE(view.personLayer().nodes().empty());
    EXPECT_TRUE(view.branchLayer().layers().empty());
    view.refreshHierarchy();
    view.fit();
    view.settle();
    EXPECT_EQ(view.zoom(), 1);
}

TEST(TreeView, NodeStandsAtItsXInTheRowOfItsGeneration)
{
    ShownFamily family;
    const Person& person = family.add(40, 2);
    family.show();
    EXPECT_EQ(person.leafView()->xConstraint(), (PlacementConstraint{40, 953}));
    EXPECT_EQ(person.leafView()->yConstraint(), (PlacementConstraint{-451, 1000}));
    EXPECT_EQ(toPicture(person.leafView()->frame()).bottom(), -451);
    EXPECT_EQ(toPicture(person.leafView()->frame()).left(), 40);
}

TEST(TreeView, PersonWithoutGenerationStandsInRowZeroAndStaysThere)
{
    ShownFamily family;
    const Person& person = family.add(40);
    TreeView& view = family.show();
    EXPECT_EQ(family.yConstant(person), -9);
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(family.yConstant(person), -9);
}

TEST(TreeView, PersonBelowTheFirstRowIsDrawnInRowZero)
{
    ShownFamily family;
    const Person& person = family.add(40, -1);
    family.show();
    EXPECT_EQ(family.yConstant(person), -9);
}

TEST(TreeView, AbsurdGenerationIsShownWithoutOverflow)
{
    ShownFamily family;
    const Person& person = family.add(40, 2'000'000'000);
    family.view = std::make_unique<TreeView>(family.pool, QSize(900, 600), family.random);
    family.view->resize(900, 600);
    family.view->show();
    family.view->fit();
    EXPECT_EQ(family.yConstant(person), -2147483647.0);
    EXPECT_TRUE(QRectF(0, 0, 900, 600).contains(family.pixelOf(person)));
}

TEST(TreeView, CanvasIsAsLargeAsTheViewForASmallFamily)
{
    ShownFamily family;
    family.add(40);
    EXPECT_EQ(family.show().canvasSize(), QSizeF(900, 600));
}

TEST(TreeView, CanvasReachesToTheLastNode)
{
    ShownFamily family;
    const Person& person = family.add(40);
    TreeView& view = family.show();
    const int width = person.leafView()->width();
    family.context.person(person.recordId())->setX(2000 - width);
    view.settle();
    EXPECT_EQ(view.canvasSize(), QSizeF(2000, 600));
}

TEST(TreeView, CanvasReachesToTheHighestNode)
{
    ShownFamily family;
    Person& person = family.add(40, 1);
    TreeView& view = family.show();
    person.setGeneration(10);
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(view.canvasSize().height(), 221 * 10 + 9 + node_layout::nodeHeight);
}

TEST(TreeView, CanvasCoversTheViewAtEveryZoom)
{
    ShownFamily family;
    family.add(40);
    TreeView& view = family.show();
    view.zoomTo(0.25, {0, 0});
    EXPECT_EQ(view.canvasSize(), QSizeF(3600, 2400));
}

TEST(TreeView, CanvasStartsWithRoomForTheWidestRowAndTheHighest)
{
    ShownFamily family;
    for (int person = 0; person < 10; ++person)
        family.add(person * 152, 3);
    TreeView& view = family.show();
    view.actualSize();
    EXPECT_EQ(view.canvasSize(), QSizeF(1824, 936));
}

TEST(TreeView, CanvasDoesNotShrinkWhileAPointerIsDown)
{
    ShownFamily family;
    Person& person = family.add(3000);
    family.add(0);
    TreeView& view = family.show();
    const QSizeF before = view.canvasSize();
    const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    person.setX(100);
    view.settle();
    EXPECT_EQ(view.canvasSize(), before);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    EXPECT_EQ(view.canvasSize(), QSizeF(900, 600));
}

TEST(TreeView, RowWiderThanTheViewIsNotPressedTogether)
{
    ShownFamily family;
    for (int person = 0; person < 500; ++person)
        family.add(person * 152);
    TreeView& view = family.show({400, 300});
    for (int person = 0; person < 500; ++person)
        EXPECT_EQ(family.pool.persons()[static_cast<std::size_t>(person)]->x(), person * 152);
    const Frame last = family.pool.persons()[499]->leafView()->frame();
    EXPECT_GE(view.canvasSize().width(), last.x + last.width);
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), static_cast<int>(view.canvasSize().width()) - 400);
}

TEST(TreeView, GrowthAtTheTopMovesNothingOnTheScreen)
{
    ShownFamily family;
    Person& parent = family.add(300, 2);
    Person& child = family.add(300, 1);
    TreeView& view = family.show();
    const QPointF before = family.pixelOf(child);
    parent.setGeneration(8);
    family.pool.arrangeGenerations();
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(family.yConstant(parent), -(221 * 8 + 9));
    EXPECT_GT(view.verticalScrollBar()->maximum(), view.verticalScrollBar()->minimum());
    EXPECT_EQ(family.pixelOf(child), before);
}

TEST(TreeView, GrowthAtTheTopMovesNothingInAScrolledView)
{
    ShownFamily family;
    for (int row = 1; row <= 9; ++row)
        family.add(row * 100, row);
    TreeView& view = family.show();
    view.verticalScrollBar()->setValue(-700);
    const Person& middle = *family.pool.persons()[4];
    const QPointF before = family.pixelOf(middle);
    family.pool.persons()[8]->setGeneration(40);
    family.pool.arrangeGenerations();
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(family.pixelOf(middle), before);
}

TEST(TreeView, FamilyThatBeginsFarRightIsTrimmedOnce)
{
    ShownFamily family;
    const Person& first = family.add(300);
    Person& second = family.add(500);
    const PlaceChanges changes(family.context);
    TreeView& view = family.show();
    EXPECT_EQ(first.x(), 253);
    EXPECT_EQ(second.x(), 453);
    EXPECT_EQ(family.xConstant(first), 253);
    EXPECT_THAT(changes.sizes, ElementsAre(2));
    family.pool.removePerson(*family.pool.persons()[0]);
    view.refreshHierarchy();
    view.settle();
    EXPECT_EQ(second.x(), 453);
}

TEST(TreeView, FamilyThatBeginsWithinTheMarginStays)
{
    for (const int smallest : {253, 200, 0}) {
        ShownFamily family;
        const Person& first = family.add(smallest);
        family.add(900);
        family.show();
        EXPECT_EQ(first.x(), smallest);
    }
}

TEST(TreeView, OpeningLeavesNoUndoStep)
{
    ShownFamily family;
    family.add(300);
    family.add(std::nullopt);
    family.context.journal().clear();
    family.show();
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST(TreeView, NodesLeftOfTheCanvasPutEverybodyRightByOneShift)
{
    for (const auto& [first, second] : {std::pair{-10, -20}, std::pair{-20, -10}}) {
        ShownFamily family;
        Person& one = family.add(0);
        Person& other = family.add(200);
        const Person& third = family.add(400);
        TreeView& view = family.show();
        one.setX(first);
        other.setX(second);
        const PlaceChanges changes(family.context);
        view.settle();
        EXPECT_EQ(one.x(), first + 20);
        EXPECT_EQ(other.x(), second + 20);
        EXPECT_EQ(third.x(), 420);
        EXPECT_EQ(family.xConstant(third), 420);
        EXPECT_THAT(changes.sizes, ElementsAre(3));
    }
}

TEST(TreeView, NegativePlaceAsksForAPassByItself)
{
    ShownFamily family;
    Person& person = family.add(30);
    family.show();
    person.setX(-7);
    QCoreApplication::processEvents();
    EXPECT_EQ(person.x(), 0);
}

TEST(TreeView, AdjustBySubtractsFromEverybodyInOneChange)
{
    ShownFamily family;
    const Person& first = family.add(100);
    const Person& second = family.add(250);
    TreeView& view = family.show();
    const PlaceChanges changes(family.context);
    view.adjustBy(30);
    EXPECT_EQ(first.x(), 70);
    EXPECT_EQ(second.x(), 220);
    EXPECT_EQ(family.xConstant(second), 220);
    EXPECT_THAT(changes.sizes, ElementsAre(2));
    view.adjustBy(0);
    EXPECT_EQ(first.x(), 70);
}

TEST(TreeView, NewPersonStandsInTheLeftHalfAboveTheBottomOfTheView)
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

TEST(TreeView, NewPersonIsLiftedWhateverItsGenerationAndGlidesToItsRowAtTheNextRefresh)
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

TEST(TreeView, NewPersonWithoutLinksStaysWhereItIsAtSomebodyElsesRefresh)
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

TEST(TreeView, NewPersonIsScrolledIntoAViewThatIsTooSmallForTheLift)
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

TEST(TreeView, ReturningPersonKeepsItsPlace)
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

TEST(TreeView, KeepsACopyOfTheRowsAsOfTheLastPass)
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

TEST(TreeView, PersonThatLeavesTakesNodeAndLinksAlong)
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

TEST(TreeView, UndoBringsOneNodeAndOneShapeForEachLinkBack)
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

TEST(TreeView, RefreshRepairsTheShapesWhateverCameBefore)
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

TEST(TreeView, LinksFollowTheirNodes)
{
    ShownFamily family;
    Person& parent = family.add(0);
    Person& child = family.add(200);
    parent.addChild(child);
    TreeView& view = family.processAndShow();
    child.setX(640);
    const LinkLayer& link = *view.branchLayer().layers()[0];
    EXPECT_EQ(link.startPoint(), parent.leafView()->frame().centre());
    EXPECT_EQ(link.endPoint(), child.leafView()->frame().centre());
    view.adjustBy(-50);
    EXPECT_EQ(link.startPoint(), parent.leafView()->frame().centre());
}

TEST(TreeView, LongerNameWidensTheNodeForHitsAndLinks)
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

TEST(TreeView, PersonsWithoutPlacesGetRowsInWhichNobodyOverlaps)
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

} // namespace
} // namespace lineara

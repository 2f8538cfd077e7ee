// What stands where on the canvas.

#include "canvas/tree_view.h"
#include "elements/node_layout.h"
#include "shown_family.h"

#include <gmock/gmock.h>

#include <QMouseEvent>
#include <QScrollBar>

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
} // namespace
} // namespace lineara

#include "elements/family.h"
#include "elements/link_layer.h"
#include "elements/recording_host.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

namespace lineara {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class NodeDragging : public testing::Test
{
protected:
    NodeDragging()
    {
        node.setXConstraint({10, horizontalPlacementPriority});
        node.setYConstraint({-9, requiredPriority});
        ann.setX(10);
    }
    ~NodeDragging() override { LeafView::stopDragging(); }

    void press(CanvasPoint point) { node.mouseDown(point, NodePart::Info); }
    void drag(CanvasPoint point) { node.mouseDragged(point, host); }
    double height() const { return node.yConstraint()->constant; }

    tests::Family family;
    tests::RecordingHost host{family.pool};
    Person& ann = family.add();
    LeafView& node = *ann.leafView();
};

TEST_F(NodeDragging, CutsTheNewPlaceToWholePointsAtEveryEvent)
{
    const auto draggedBy = [&](double distance) {
        ann.setX(10);
        press({100, 50});
        drag({100 + distance, 50});
        LeafView::stopDragging();
        return *ann.x();
    };
    EXPECT_EQ(draggedBy(3.7), 13);
    EXPECT_EQ(draggedBy(0.6), 10);
    EXPECT_EQ(draggedBy(-0.6), 9);
    EXPECT_EQ(draggedBy(-10.9), 0);
    EXPECT_EQ(draggedBy(-11.2), -1);
    EXPECT_EQ(draggedBy(1e12), std::numeric_limits<std::int32_t>::max());
}

TEST_F(NodeDragging, LosesWhatWasCutOffSoSlowDragsDifferByDirection)
{
    ann.setX(100);
    press({100, 50});
    for (int event = 1; event <= 20; ++event)
        drag({100 + 0.5 * event, 50});
    EXPECT_EQ(ann.x(), 100);
    press({100, 50});
    for (int event = 1; event <= 20; ++event)
        drag({100 - 0.5 * event, 50});
    EXPECT_EQ(ann.x(), 80);
}

TEST_F(NodeDragging, AbsentPlaceReadsAsZero)
{
    ann.setX(std::nullopt);
    press({100, 50});
    drag({105, 50});
    EXPECT_EQ(ann.x(), 5);
}

TEST_F(NodeDragging, UnlinkedPersonIsPulledUpAndComesBackNoFurtherThanTheBottom)
{
    press({100, 50});
    drag({100, 90});
    EXPECT_EQ(height(), -49);
    drag({100, 60});
    EXPECT_EQ(height(), -19);
    drag({100, 20});
    EXPECT_EQ(height(), 0);
    drag({100, 10});
    EXPECT_EQ(height(), 0);
    drag({100, 30});
    EXPECT_EQ(height(), -20);
    EXPECT_EQ(ann.x(), 10);
}

TEST_F(NodeDragging, LinkedPersonStaysInItsRow)
{
    Person& bob = family.add();
    LinkLayer link(&ann, &bob, u"partner"_qs);
    ann.linkLayers().push_back(&link);
    press({100, 50});
    drag({107, 90});
    EXPECT_EQ(height(), -9);
    EXPECT_EQ(ann.x(), 17);
    ann.linkLayers().clear();
}

TEST_F(NodeDragging, AnnouncesEachKindOfMovementOnlyWhereThereIsOne)
{
    press({100, 50});
    const double before = height();
    drag({100, 60});
    EXPECT_THAT(host.log, ElementsAre("was pulled", "autoscroll"));
    EXPECT_EQ(host.heightBefore, before);
    host.log.clear();
    drag({105, 60});
    EXPECT_THAT(host.log, ElementsAre("will move", "autoscroll"));
    host.log.clear();
    drag({105, 60});
    EXPECT_THAT(host.log, ElementsAre("autoscroll"));
}

TEST_F(NodeDragging, AsksForAPassAtTheEventThatLeavesTheCanvas)
{
    press({100, 50});
    drag({90, 50});
    EXPECT_EQ(ann.x(), 0);
    EXPECT_THAT(host.log, Not(Contains("needs update")));
    drag({89, 50});
    EXPECT_EQ(ann.x(), -1);
    EXPECT_THAT(host.log, Contains("needs update"));
}

TEST_F(NodeDragging, WithoutConstraintsOnlyTheRecordMoves)
{
    Person& bare = family.add();
    bare.leafView()->mouseDown({0, 0}, NodePart::Image);
    bare.leafView()->mouseDragged({4, 30}, host);
    EXPECT_EQ(bare.x(), 4);
    EXPECT_EQ(bare.leafView()->frame().y, 0);
}

TEST_F(NodeDragging, ReleaseIsAClickAfterTheEndOfTheDragHasBeenHeardOf)
{
    press({100, 50});
    drag({300, 50});
    host.log.clear();
    node.mouseUp(host);
    EXPECT_FALSE(LeafView::isDragging());
    EXPECT_THAT(host.log, ElementsAre("node is first responder", "PersonDragEnded"));
    QCoreApplication::processEvents();
    EXPECT_THAT(host.log, ElementsAre("node is first responder", "PersonDragEnded", "PersonClicked"));
}

TEST_F(NodeDragging, ReleaseWithoutMovementIsAClickToo)
{
    press({100, 50});
    node.mouseUp(host);
    QCoreApplication::processEvents();
    EXPECT_THAT(host.log, ElementsAre("node is first responder", "PersonDragEnded", "PersonClicked"));
    EXPECT_EQ(ann.x(), 10);
}

TEST_F(NodeDragging, PressOnTheBackgroundBeginsNothingAndLeavesTheFlag)
{
    node.mouseDown({100, 50}, std::nullopt);
    EXPECT_FALSE(LeafView::isDragging());
    drag({130, 50});
    node.mouseUp(host);
    QCoreApplication::processEvents();
    EXPECT_EQ(ann.x(), 10);
    EXPECT_THAT(host.log, IsEmpty());

    press({100, 50});
    node.mouseDown({200, 50}, std::nullopt);
    EXPECT_TRUE(LeafView::isDragging());
    drag({201, 50});
    EXPECT_EQ(ann.x(), 11);
}

TEST_F(NodeDragging, StateIsSharedByAllNodes)
{
    Person& bob = family.add();
    bob.setX(40);
    press({100, 50});
    bob.leafView()->mouseDragged({103, 50}, host);
    EXPECT_EQ(bob.x(), 43);
    EXPECT_EQ(ann.x(), 10);
    LeafView::stopDragging();
    bob.leafView()->mouseDragged({110, 50}, host);
    EXPECT_EQ(bob.x(), 43);
}

} // namespace
} // namespace lineara

#include "elements/leaf_view.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/node_layout.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using tests::Family;

class LeafViewTest : public testing::Test
{
protected:
    Family family;
    Person& ann = family.add();
    LeafView& node = *ann.leafView();
};

TEST_F(LeafViewTest, ConstraintsPlaceTheNode)
{
    node.setXConstraint({130, horizontalPlacementPriority});
    node.setYConstraint({-451, requiredPriority});
    const Frame frame = node.frame();
    EXPECT_EQ(frame.x, 130);
    EXPECT_EQ(frame.y, 451);
    EXPECT_EQ(toPicture(frame).bottom(), -451);
    EXPECT_EQ(toPicture(frame).top(), -451 - node_layout::nodeHeight);
    EXPECT_FALSE(LeafView::isFlipped());
}

TEST_F(LeafViewTest, MissingConstraintsDoNotChange)
{
    node.setXConstant(40);
    node.setYConstant(-40);
    ann.setX(12);
    EXPECT_FALSE(node.xConstraint());
    EXPECT_FALSE(node.yConstraint());
    EXPECT_EQ(node.frame().x, 0);
    EXPECT_EQ(node.frame().y, 0);
}

TEST_F(LeafViewTest, FollowsThePersonsPlace)
{
    node.setXConstraint({0, horizontalPlacementPriority});
    ann.setX(77);
    EXPECT_EQ(*node.xConstraint(), (PlacementConstraint{77, 953}));
    family.context.shiftX(family.pool, 100);
    EXPECT_EQ(node.xConstraint()->constant, -23);
    ann.setX(std::nullopt);
    EXPECT_EQ(node.xConstraint()->constant, 0);
}

TEST_F(LeafViewTest, EveryPassAddsAPairOfLeastSizes)
{
    EXPECT_EQ(node.minimumSizePairs(), 0u);
    for (int pass = 0; pass < 10; ++pass)
        node.updateConstraints();
    EXPECT_EQ(node.minimumSizePairs(), 10u);
    EXPECT_GE(node.frame().width, 10);
    EXPECT_GE(node.frame().height, 10);
}

TEST_F(LeafViewTest, RowsKeepTheirDistance)
{
    EXPECT_LT(node.frame().height, 200);
    EXPECT_EQ(node.frame().height, node_layout::nodeHeight);
}

TEST_F(LeafViewTest, FocusTwiceAndUnfocusOnceLeavesTheNormalBorder)
{
    EXPECT_EQ(node.infoView().borderColor(), QColor::fromRgbF(0.72f, 0.72f, 0.72f, 0.7f));
    node.focus();
    node.focus();
    EXPECT_EQ(node.infoView().borderColor(), QColor::fromRgbF(0.28f, 0.28f, 1.0f, 1.0f));
    node.unfocus();
    EXPECT_EQ(node.infoView().borderColor(), QColor::fromRgbF(0.72f, 0.72f, 0.72f, 0.7f));
}

TEST_F(LeafViewTest, PartsStandWithinTheNode)
{
    Family::moveTo(ann, {500, 300});
    const Frame frame = node.frame();
    for (const Frame& part :
         {node.imageFrame(), node.infoFrame(), node.partnerHandle().frame(), node.childHandle().frame()}) {
        EXPECT_GE(part.x, frame.x);
        EXPECT_GE(part.y, frame.y);
        EXPECT_LE(part.x + part.width, frame.x + frame.width);
        EXPECT_LE(part.y + part.height, frame.y + frame.height);
    }
    EXPECT_EQ(node.imageFrame().centre().x, frame.centre().x);
}

TEST_F(LeafViewTest, PartsAreFoundByPoint)
{
    Family::moveTo(ann, {500, 300});
    EXPECT_EQ(node.partAt(node.infoFrame().centre()), NodePart::Info);
    EXPECT_EQ(node.partAt(node.imageFrame().centre()), NodePart::Image);
    EXPECT_EQ(node.partAt(node.partnerHandle().frame().centre()), NodePart::PartnerHandle);
    EXPECT_EQ(node.partAt(node.childHandle().frame().centre()), NodePart::ChildHandle);
    const Frame frame = node.frame();
    EXPECT_FALSE(node.partAt({frame.x + 1, frame.y + 1}));
    EXPECT_FALSE(node.partAt({frame.x - 1, frame.y + 60}));
}

TEST_F(LeafViewTest, FarNodeKeepsItsExactPlace)
{
    ann.setX(20000001);
    node.setXConstraint({20000001, horizontalPlacementPriority});
    node.setYConstraint({-9, requiredPriority});
    EXPECT_EQ(node.frame().x, 20000001);
    EXPECT_FALSE(node.frame().contains({20000000.5, 50}));
    EXPECT_TRUE(node.frame().contains({20000001.5, 50}));
}

} // namespace
} // namespace lineara

#include "elements/connector_view.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/recording_host.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

class ConnectorViewTest : public testing::Test
{
protected:
    tests::Family family;
    Person& ann = family.addAt({300, 200});
    LeafView& node = *ann.leafView();
};

TEST_F(ConnectorViewTest, EachNodeHasAPartnerAndAChildHandle)
{
    EXPECT_EQ(node.partnerHandle().type(), u"partner"_qs);
    EXPECT_EQ(node.childHandle().type(), u"offspring"_qs);
    EXPECT_EQ(&node.partnerHandle().person(), &ann);
    EXPECT_EQ(&node.childHandle().person(), &ann);
}

TEST_F(ConnectorViewTest, FillFollowsTheType)
{
    EXPECT_EQ(node.partnerHandle().fillColor(), QColor::fromRgbF(1.0f, 0.87f, 0.93f, 1.0f));
    for (const QString& type : {u"offspring"_qs, u"friend"_qs, QString()}) {
        const ConnectorView handle(node, type);
        EXPECT_EQ(handle.fillColor(), QColor::fromRgbF(0.73f, 0.73f, 0.6f, 1.0f));
        EXPECT_EQ(handle.toolTip(), u"Click and drag to connect to child"_qs);
        EXPECT_EQ(handle.type(), type);
    }
    EXPECT_EQ(node.partnerHandle().toolTip(), u"Click and drag to connect to partner"_qs);
}

TEST_F(ConnectorViewTest, HighlightIsOrangeAndPasses)
{
    ConnectorView& handle = node.partnerHandle();
    EXPECT_EQ(handle.circleFill(), handle.fillColor());
    handle.mouseEntered();
    EXPECT_EQ(handle.circleFill(), QColor::fromRgbF(1.0f, 0.5f, 0.0f, 1.0f));
    handle.mouseExited();
    EXPECT_EQ(handle.circleFill(), colours::partnerFill());
}

TEST_F(ConnectorViewTest, HandlesSitOnTheEdgesOfTheNode)
{
    const Frame frame = node.frame();
    const Frame partner = node.partnerHandle().frame();
    EXPECT_EQ(partner.x + partner.width, frame.x + frame.width);
    const Frame child = node.childHandle().frame();
    EXPECT_EQ(child.y, frame.y);
    EXPECT_EQ(child.centre().x, frame.centre().x);
}

TEST_F(ConnectorViewTest, CircleIsInsetByOnePoint)
{
    const Frame frame = node.childHandle().frame();
    EXPECT_EQ(node.childHandle().circle(), (Frame{frame.x + 1, frame.y + 1, frame.width - 2, frame.height - 2}));
    EXPECT_EQ(ConnectorView::lineWidth(), 1.0);
    EXPECT_EQ(colours::handleOutline(), QColor::fromRgbF(0.8f, 0.8f, 0.8f, 0.8f));
}

TEST_F(ConnectorViewTest, EveryDragEventIsOrangeAndAnnouncedAfterScrolling)
{
    tests::RecordingHost host(family.pool);
    ConnectorView& handle = node.partnerHandle();
    handle.mouseDragged(host);
    handle.mouseDragged(host);
    EXPECT_THAT(host.log,
                testing::ElementsAre("autoscroll", "connectionDrag partner", "autoscroll", "connectionDrag partner"));
    EXPECT_EQ(host.handle, &handle);
    EXPECT_EQ(host.family, &family.pool);
    EXPECT_EQ(handle.circleFill(), colours::handleHover());
}

TEST_F(ConnectorViewTest, ReleaseIsAnnouncedAndNormalEvenWithoutADrag)
{
    tests::RecordingHost host(family.pool);
    ConnectorView& handle = node.childHandle();
    handle.mouseEntered();
    handle.mouseUp(host);
    EXPECT_THAT(host.log, testing::ElementsAre("connectionEnd offspring"));
    EXPECT_EQ(host.handle, &handle);
    EXPECT_EQ(handle.circleFill(), handle.fillColor());
}

} // namespace
} // namespace lineara

#include "elements/person_layer_view.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/link_painter.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPainter>

namespace lineara {
namespace {

using testing::ElementsAre;

class PersonLayerViewTest : public testing::Test
{
protected:
    tests::Family family;
    PersonLayerView layer{family.pool};
    LeafView& ann = *family.addAt({100, 100}).leafView();
    LeafView& bob = *family.addAt({110, 100}).leafView();
    LeafView& cleo = *family.addAt({600, 100}).leafView();
};

TEST_F(PersonLayerViewTest, LaterNodesStandAboveEarlierOnes)
{
    layer.addNode(ann);
    layer.addNode(bob);
    layer.addNode(ann);
    EXPECT_THAT(layer.nodes(), ElementsAre(&ann, &bob));
    EXPECT_EQ(layer.nodeAt({105, 100}), &bob);
    EXPECT_EQ(layer.nodeAt({600, 100}), nullptr);
    EXPECT_EQ(bob.index(), 1u);
}

TEST_F(PersonLayerViewTest, RemovedNodeClosesTheRanks)
{
    for (LeafView* node : {&ann, &bob, &cleo})
        layer.addNode(*node);
    layer.removeNode(bob);
    layer.removeNode(bob);
    EXPECT_THAT(layer.nodes(), ElementsAre(&ann, &cleo));
    EXPECT_EQ(cleo.index(), 1u);
    EXPECT_FALSE(layer.contains(bob));
    layer.addNode(bob);
    EXPECT_THAT(layer.nodes(), ElementsAre(&ann, &cleo, &bob));
}

TEST_F(PersonLayerViewTest, RubberBandHasTheColourOfItsType)
{
    layer.drawConnection(u"partner"_qs, {10, 20}, {30, 40});
    EXPECT_EQ(layer.connection(), (RubberBand{colours::partnerStroke(), {10, 20}, {30, 40}}));
    for (const QString& type : {u"offspring"_qs, u"anything"_qs, QString()}) {
        layer.drawConnection(type, {10, 20}, {50, 60});
        EXPECT_EQ(layer.connection(), (RubberBand{colours::offspringStroke(), {10, 20}, {50, 60}}));
    }
}

TEST_F(PersonLayerViewTest, ClearedRubberBandStaysCleared)
{
    layer.drawConnection(u"partner"_qs, {10, 20}, {30, 40});
    layer.clearConnection();
    EXPECT_FALSE(layer.connection());
    layer.clearConnection();
    EXPECT_FALSE(layer.connection());
}

TEST_F(PersonLayerViewTest, RubberBandIsDashedEveryTwentyPoints)
{
    QImage image(120, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(0, 20);
    paintRubberBand(painter, {colours::offspringStroke(), {10, 10}, {110, 10}});
    painter.end();
    const QColor white(Qt::white);
    for (int dash = 0; dash < 5; ++dash) {
        EXPECT_NE(image.pixelColor(12 + 20 * dash, 10), white) << "dash " << dash;
        EXPECT_EQ(image.pixelColor(22 + 20 * dash, 10), white) << "gap after dash " << dash;
    }
    // Five points wide, and rounded ends reach half of that beyond a dash.
    EXPECT_NE(image.pixelColor(12, 8), white);
    EXPECT_EQ(image.pixelColor(12, 5), white);
    EXPECT_NE(image.pixelColor(16, 10), white);
}

TEST_F(PersonLayerViewTest, MarksEndWithTheirNode)
{
    layer.addNode(ann);
    layer.markFocused(&ann);
    layer.markLinkTarget(LinkTarget{&ann, u"partner"_qs, true});
    layer.removeNode(ann);
    EXPECT_EQ(layer.marks().focused, nullptr);
    EXPECT_FALSE(layer.marks().linkTarget);
}

TEST(PersonLayerView, PassesCountForNodesFromWhenTheyCameUntilTheyGo)
{
    tests::Family family;
    LeafView& early = *family.add().leafView();
    LeafView& late = *family.add().leafView();
    {
        PersonLayerView layer{family.pool};
        layer.addNode(early);
        layer.updateConstraints();
        layer.addNode(late);
        EXPECT_EQ(late.minimumSizePairs(), 0u);
        for (int pass = 0; pass < 10; ++pass)
            layer.updateConstraints();
        EXPECT_EQ(early.minimumSizePairs(), 11u);
        EXPECT_EQ(late.minimumSizePairs(), 10u);
        late.updateConstraints();
        layer.removeNode(late);
        layer.updateConstraints();
        EXPECT_EQ(early.minimumSizePairs(), 12u);
        EXPECT_EQ(late.minimumSizePairs(), 11u);
        layer.addNode(late);
        layer.updateConstraints();
    }
    EXPECT_EQ(early.minimumSizePairs(), 13u);
    EXPECT_EQ(late.minimumSizePairs(), 12u);
}

} // namespace
} // namespace lineara

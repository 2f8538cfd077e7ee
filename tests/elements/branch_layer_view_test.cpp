#include "elements/branch_layer_view.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/recording_host.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

namespace lineara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using tests::Family;

bool noneHidden(const Person&)
{
    return false;
}

class BranchLayerViewTest : public testing::Test
{
protected:
    std::vector<LinkLayer*> shapes(const BranchLayerView& view) const
    {
        std::vector<LinkLayer*> found;
        for (const auto& layer : view.layers())
            found.push_back(layer.get());
        return found;
    }

    Family family;
    Person& ann = family.addAt({100, 300});
    Person& bob = family.addAt({300, 300});
    Person& cleo = family.addAt({200, 80});
    Person& dan = family.addAt({500, 300});
};

TEST_F(BranchLayerViewTest, OffspringLiesAbovePartnersAndPersonsListTheirShapes)
{
    ann.addChild(cleo);
    ann.addPartner(bob);
    bob.addPartner(dan);
    family.pool.process();
    const BranchLayerView view(family.pool);
    const auto layers = shapes(view);
    ASSERT_EQ(layers.size(), 3u);
    EXPECT_EQ(layers[0]->linkType(), u"partner"_qs);
    EXPECT_EQ(layers[1]->linkType(), u"partner"_qs);
    EXPECT_EQ(layers[2]->linkType(), u"offspring"_qs);
    EXPECT_EQ(layers[2]->source(), &ann);
    EXPECT_EQ(layers[2]->target(), &cleo);
    EXPECT_THAT(ann.linkLayers(), UnorderedElementsAre(layers[0], layers[2]));
    EXPECT_THAT(bob.linkLayers(), UnorderedElementsAre(layers[0], layers[1]));
    EXPECT_THAT(cleo.linkLayers(), ElementsAre(layers[2]));
    EXPECT_THAT(dan.linkLayers(), ElementsAre(layers[1]));
    layers[2]->layoutSublayers();
    EXPECT_EQ(layers[2]->endPoint(), (CanvasPoint{200, 80}));
    for (std::uint32_t index = 0; index < layers.size(); ++index)
        EXPECT_EQ(layers[index]->index(), index);
}

TEST_F(BranchLayerViewTest, NewLinkComesOnTop)
{
    ann.addChild(cleo);
    family.pool.process();
    BranchLayerView view(family.pool);
    LinkLayer& added = view.addLink({ann.recordId(), bob.recordId()}, u"partner"_qs);
    EXPECT_EQ(shapes(view).back(), &added);
    EXPECT_EQ(added.startPoint(), (CanvasPoint{100, 300}));
    EXPECT_THAT(bob.linkLayers(), ElementsAre(&added));
}

TEST_F(BranchLayerViewTest, ShapeMadeAloneIsListedButNotShown)
{
    const BranchLayerView view(family.pool);
    const auto layer = view.layerFromLink({ann.recordId(), bob.recordId()}, u"partner"_qs);
    EXPECT_THAT(view.layers(), IsEmpty());
    EXPECT_THAT(ann.linkLayers(), ElementsAre(layer.get()));
    ann.linkLayers().clear();
    bob.linkLayers().clear();
}

TEST_F(BranchLayerViewTest, RecordWithAMissingEndGivesAShapeToTheOrigin)
{
    BranchLayerView view(family.pool);
    LinkLayer& layer = view.addLink({ann.recordId(), RecordId{424242}}, u"offspring"_qs);
    EXPECT_EQ(layer.target(), nullptr);
    EXPECT_EQ(layer.endPoint(), CanvasPoint{});
}

TEST_F(BranchLayerViewTest, RemovedPersonTakesItsShapesAlong)
{
    ann.addPartner(bob);
    bob.addPartner(dan);
    family.pool.process();
    BranchLayerView view(family.pool);
    view.select(*ann.linkLayers().front());
    view.removeLayersOf(ann);
    EXPECT_EQ(view.layers().size(), 1u);
    EXPECT_EQ(view.layers().front()->index(), 0u);
    EXPECT_EQ(view.selectedLink(), nullptr);
    EXPECT_THAT(ann.linkLayers(), IsEmpty());
    EXPECT_THAT(bob.linkLayers(), ElementsAre(view.layers().front().get()));
}

TEST_F(BranchLayerViewTest, RemovedShapeIsListedNoLonger)
{
    ann.addPartner(bob);
    family.pool.process();
    BranchLayerView view(family.pool);
    view.removeLayer(*view.layers().front());
    EXPECT_THAT(view.layers(), IsEmpty());
    EXPECT_THAT(ann.linkLayers(), IsEmpty());
    EXPECT_THAT(bob.linkLayers(), IsEmpty());
}

TEST_F(BranchLayerViewTest, NothingIsListedAfterTheEnd)
{
    ann.addPartner(bob);
    family.pool.process();
    {
        const BranchLayerView view(family.pool);
        EXPECT_EQ(ann.linkLayers().size(), 1u);
    }
    EXPECT_THAT(ann.linkLayers(), IsEmpty());
}

TEST_F(BranchLayerViewTest, SyncLeavesExactlyOneShapeForEveryLink)
{
    ann.addPartner(bob);
    ann.addChild(cleo);
    family.pool.process();
    BranchLayerView view(family.pool);
    const auto before = shapes(view);
    EXPECT_FALSE(view.syncWithRecords(noneHidden));
    EXPECT_EQ(shapes(view), before);

    // A doubled shape, one whose link is gone, and a link without a shape.
    view.addLink({bob.recordId(), ann.recordId()}, u"partner"_qs);
    ann.removeChild(cleo);
    bob.addChild(cleo);
    family.pool.process();
    EXPECT_TRUE(view.syncWithRecords(noneHidden));
    ASSERT_EQ(view.layers().size(), 2u);
    EXPECT_EQ(shapes(view).front(), before.front());
    EXPECT_EQ(shapes(view).back()->source(), &bob);
    EXPECT_EQ(shapes(view).back()->target(), &cleo);
    EXPECT_THAT(ann.linkLayers(), ElementsAre(before.front()));
    EXPECT_FALSE(view.syncWithRecords(noneHidden));
}

TEST_F(BranchLayerViewTest, SyncKeepsTheFirstOfDoublesWithItsSelection)
{
    // Persons in the order of the links that are expected: cleo and dan, then eve and fay.
    Person& eve = family.addAt({100, 500});
    Person& fay = family.addAt({300, 500});
    BranchLayerView view(family.pool);
    const LinkRecord doubled{eve.recordId(), fay.recordId()};
    LinkLayer& first = view.addLink(doubled, u"partner"_qs);
    LinkLayer& between = view.addLink({cleo.recordId(), dan.recordId()}, u"partner"_qs);
    view.addLink(doubled, u"partner"_qs);
    view.select(first);
    cleo.addPartner(dan);
    eve.addPartner(fay);
    EXPECT_TRUE(view.syncWithRecords(noneHidden));
    EXPECT_THAT(shapes(view), ElementsAre(&first, &between));
    EXPECT_THAT(eve.linkLayers(), ElementsAre(&first));
    EXPECT_THAT(fay.linkLayers(), ElementsAre(&first));
    EXPECT_EQ(view.selectedLink(), &first);
    EXPECT_EQ(first.strokeColor(), colours::selectedStroke());
}

TEST_F(BranchLayerViewTest, SyncTellsParentFromChildAndPartnerFromBoth)
{
    ann.addChild(cleo);
    family.pool.process();
    BranchLayerView view(family.pool);
    view.addLink({cleo.recordId(), ann.recordId()}, u"offspring"_qs);
    view.addLink({ann.recordId(), cleo.recordId()}, u"partner"_qs);
    EXPECT_TRUE(view.syncWithRecords(noneHidden));
    ASSERT_EQ(view.layers().size(), 1u);
    EXPECT_EQ(view.layers().front()->source(), &ann);
}

TEST_F(BranchLayerViewTest, SyncGoesByTheLinksAndNotByTheListsOfTheLastRun)
{
    BranchLayerView view(family.pool);
    ann.addPartner(bob);
    EXPECT_TRUE(view.syncWithRecords(noneHidden));
    EXPECT_EQ(view.layers().size(), 1u);
    family.pool.process();
    ann.removePartner(bob);
    EXPECT_TRUE(view.syncWithRecords(noneHidden));
    EXPECT_THAT(view.layers(), IsEmpty());
}

TEST_F(BranchLayerViewTest, LinksOfHiddenPersonsHaveNoShape)
{
    ann.addPartner(bob);
    ann.addChild(cleo);
    bob.addPartner(dan);
    family.pool.process();
    BranchLayerView view(family.pool);
    EXPECT_TRUE(view.syncWithRecords([&](const Person& person) { return &person == &bob; }));
    ASSERT_EQ(view.layers().size(), 1u);
    EXPECT_EQ(view.layers().front()->target(), &cleo);
    EXPECT_TRUE(view.syncWithRecords(noneHidden));
    EXPECT_EQ(view.layers().size(), 3u);
}

TEST_F(BranchLayerViewTest, SyncOfALargeFamilyIsLinear)
{
#ifdef LINEARA_SANITIZED
    constexpr int children = 2000;
#else
    constexpr int children = 40000;
#endif
    for (int child = 0; child < children; ++child)
        ann.addChild(family.add());
    family.pool.process();
    BranchLayerView view(family.pool);
    EXPECT_FALSE(view.syncWithRecords(noneHidden));
    EXPECT_EQ(view.layers().size(), static_cast<std::size_t>(children));
    view.removeLayersOf(ann);
    EXPECT_THAT(view.layers(), IsEmpty());
}

TEST_F(BranchLayerViewTest, SelectedLinkIsBlueUntilDeselected)
{
    ann.addPartner(bob);
    ann.addChild(cleo);
    family.pool.process();
    BranchLayerView view(family.pool);
    LinkLayer& partner = *shapes(view).front();
    LinkLayer& offspring = *shapes(view).back();
    view.select(partner);
    EXPECT_EQ(partner.strokeColor(), colours::selectedStroke());
    EXPECT_EQ(offspring.strokeColor(), colours::offspringStroke());

    view.select(offspring);
    EXPECT_EQ(view.selectedLink(), &offspring);
    EXPECT_EQ(partner.strokeColor(), colours::partnerStroke());
    EXPECT_EQ(offspring.strokeColor(), colours::selectedStroke());

    view.deselectSelected();
    EXPECT_EQ(view.selectedLink(), nullptr);
    EXPECT_EQ(offspring.strokeColor(), colours::offspringStroke());
    view.deselectSelected();
    EXPECT_EQ(view.selectedLink(), nullptr);
}

TEST_F(BranchLayerViewTest, SelectedLinkStaysBlueWhenItsEndMoves)
{
    ann.addPartner(bob);
    family.pool.process();
    BranchLayerView view(family.pool);
    LinkLayer& link = *view.layers().front();
    view.select(link);
    Family::moveTo(bob, {340, 521});
    link.layoutSublayers();
    EXPECT_EQ(link.endPoint(), (CanvasPoint{340, 521}));
    EXPECT_EQ(link.strokeColor(), colours::selectedStroke());
    view.deselectSelected();
    EXPECT_EQ(link.strokeColor(), colours::partnerStroke());
}

TEST_F(BranchLayerViewTest, TopmostOfTwoShapesIsHit)
{
    ann.addChild(cleo);
    family.pool.process();
    BranchLayerView view(family.pool);
    LinkLayer& above = view.addLink({ann.recordId(), cleo.recordId()}, u"offspring"_qs);
    view.layers().front()->layoutSublayers();
    EXPECT_TRUE(view.layers().front()->contains({150, 190}));
    EXPECT_EQ(view.hit({150, 190}), &above);
    EXPECT_EQ(view.hit({150 - 6, 190}), nullptr);
    EXPECT_EQ(view.hit({900, 900}), nullptr);
}

class LinkPicking : public BranchLayerViewTest
{
protected:
    LinkPicking()
    {
        ann.addChild(cleo);
        family.pool.process();
        view = std::make_unique<BranchLayerView>(family.pool);
        view->layers().front()->layoutSublayers();
    }

    void press(CanvasPoint point)
    {
        host.log.clear();
        view->mouseDown(point, host);
    }

    std::unique_ptr<BranchLayerView> view;
    tests::RecordingHost host{family.pool};
    const CanvasPoint onLink{150, 190};
};

TEST_F(LinkPicking, SelectsBetweenTheEdgesOfARibbonAndNotBesideIt)
{
    press(onLink);
    EXPECT_EQ(view->selectedLink(), view->layers().front().get());
    EXPECT_THAT(host.log, ElementsAre("layer is first responder"));
    QCoreApplication::processEvents();
    EXPECT_THAT(host.log, ElementsAre("layer is first responder", "LinkSelection offspring"));
    EXPECT_EQ(host.family, &family.pool);

    press({onLink.x - 6, onLink.y});
    QCoreApplication::processEvents();
    EXPECT_EQ(view->selectedLink(), nullptr);
    EXPECT_THAT(host.log, ElementsAre("LinkSelection none"));
    EXPECT_EQ(host.family, &family.pool);
}

TEST_F(LinkPicking, OnlyTheLaterAddedOfTwoOverlappingShapesTurnsBlue)
{
    LinkLayer& above = view->addLink({ann.recordId(), cleo.recordId()}, u"offspring"_qs);
    press(onLink);
    EXPECT_EQ(view->selectedLink(), &above);
    EXPECT_FALSE(view->layers().front()->isSelected());
}

TEST_F(LinkPicking, EmptySpaceRestoresTheColour)
{
    press(onLink);
    LinkLayer& link = *view->selectedLink();
    press({900, 900});
    EXPECT_EQ(link.strokeColor(), colours::offspringStroke());
}

TEST_F(LinkPicking, ResigningDeselectsInSilence)
{
    press(onLink);
    QCoreApplication::processEvents();
    host.log.clear();
    view->resignFirstResponder();
    QCoreApplication::processEvents();
    EXPECT_EQ(view->selectedLink(), nullptr);
    EXPECT_THAT(host.log, IsEmpty());
}

} // namespace
} // namespace lineara

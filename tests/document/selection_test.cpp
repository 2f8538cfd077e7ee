#include "document/application_delegate.h"
#include "edited_document.h"

#include <gmock/gmock.h>

using namespace lineara;

namespace {

bool hasSelectedLook(const Person& person)
{
    return person.leafView()->infoView().isFocused();
}

} // namespace

TEST(SelectionOfADocument, BeginsWithNothing)
{
    EditedDocument edited(*threeGenerations());
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
    EXPECT_FALSE(edited.document->isRemovable());
    EXPECT_EQ(edited.document->selectionPerson(), nullptr);
}

TEST(SelectionOfADocument, FollowsClicksOnNodes)
{
    EditedDocument edited(*threeGenerations());
    edited.click(*edited.person(104));
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("person"));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(104));
    EXPECT_TRUE(edited.document->isRemovable());
    EXPECT_TRUE(hasSelectedLook(*edited.person(104)));
    EXPECT_EQ(edited.list->selected, RecordId{104});
    edited.click(*edited.person(105));
    EXPECT_FALSE(hasSelectedLook(*edited.person(104)));
    EXPECT_TRUE(hasSelectedLook(*edited.person(105)));
}

TEST(SelectionOfADocument, ALinkTakesThePlaceOfAPersonWithoutTheListHearingOfIt)
{
    EditedDocument edited(*threeGenerations());
    edited.click(*edited.person(104));
    edited.list->log.clear();
    edited.clickLink(*edited.person(102), *edited.person(103), partnerLink);
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("partner"));
    EXPECT_EQ(edited.document->selectionPerson(), nullptr);
    EXPECT_FALSE(hasSelectedLook(*edited.person(104)));
    EXPECT_TRUE(edited.document->isRemovable());
    EXPECT_THAT(edited.list->log, testing::IsEmpty());
}

TEST(SelectionOfADocument, TheEndsOfALinkAreRememberedWhenAPersonIsSelected)
{
    EditedDocument edited(*threeGenerations());
    edited.clickLink(*edited.person(102), *edited.person(104), offspringLink);
    edited.click(*edited.person(105));
    EXPECT_EQ(edited.document->selection().from, RecordId{102});
    EXPECT_EQ(edited.document->selection().to, RecordId{104});
    edited.remove();
    EXPECT_EQ(edited.person(105), nullptr);
    EXPECT_THAT(edited.person(102)->children(), testing::SizeIs(1));
}

TEST(SelectionOfADocument, AnyNullPayloadDeselects)
{
    EditedDocument edited(*threeGenerations());
    edited.click(*edited.person(104));
    edited.clickNothing();
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
    EXPECT_FALSE(hasSelectedLook(*edited.person(104)));
    EXPECT_EQ(edited.list->selected, std::nullopt);
    edited.click(*edited.person(104));
    NotificationCenter::defaultCenter().post(selectionChangeNotification{&edited.pool(), std::nullopt});
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
}

TEST(SelectionOfADocument, APersonTakesTheSelectedLookFromALink)
{
    EditedDocument edited(*threeGenerations());
    LinkLayer& shape = *edited.canvas().branchLayer().layers().front();
    edited.canvas().branchLayer().select(shape);
    edited.clickLink(*shape.source(), *shape.target(), shape.linkType());
    NotificationCenter::defaultCenter().post(selectionChangeNotification{&edited.pool(), RecordId{104}});
    EXPECT_EQ(edited.canvas().branchLayer().selectedLink(), nullptr);
}

TEST(SelectionOfADocument, OtherFamiliesAndPersonsThatAreGoneAreNoConcern)
{
    EditedDocument edited(*threeGenerations());
    EditedDocument other(*threeGenerations());
    edited.click(*edited.person(104));
    other.click(*other.person(106));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(104));
    other.clickNothing();
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(104));
    NotificationCenter::defaultCenter().post(PersonClickedNotification{&edited.pool(), RecordId{999}});
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(104));
}

TEST(SelectionOfADocument, ALinkThatGoesBeforeItsPressIsDeliveredIsNotSelected)
{
    EditedDocument edited(*threeGenerations());
    edited.clickLink(*edited.person(102), *edited.person(104), offspringLink);
    edited.hold();
    edited.clickLinkUndelivered(*edited.person(102), *edited.person(104), offspringLink);
    edited.document->remove();
    EditedDocument::deliver();
    EXPECT_EQ(edited.document->selectionType(), Selection::none());
    EXPECT_FALSE(edited.document->isRemovable());
    edited.release();
}

TEST(SelectionOfADocument, APartnershipIsSelectedFromEitherEndOfItsShape)
{
    EditedDocument edited;
    Person& first = edited.add();
    Person& second = edited.add();
    edited.link(second, first, partnerLink);
    edited.clickLink(first, second, partnerLink);
    EXPECT_EQ(edited.document->selectionType(), partnerLink);
}

TEST(SelectionOfADocument, FollowsAPartnershipThatWasMadeAnewFromTheOtherEnd)
{
    EditedDocument edited;
    Person& first = edited.add();
    Person& second = edited.add();
    edited.link(first, second, partnerLink);
    edited.clickLink(first, second, partnerLink);
    edited.clickLinkUndelivered(first, second, partnerLink);
    edited.document->remove();
    edited.canvas().connect(second, first, partnerLink.toString());
    EditedDocument::deliver();
    edited.settle();
    EXPECT_EQ(edited.document->selectionType(), partnerLink);
    EXPECT_EQ(edited.document->selection().from, second.recordId());
    EXPECT_EQ(edited.document->selection().to, first.recordId());
    edited.remove();
    EXPECT_TRUE(first.partners().empty());
}

TEST(SelectionOfADocument, IsNothingToRemoveOnceItsWindowIsClosed)
{
    ApplicationDelegate delegate;
    EditedDocument edited(*threeGenerations());
    edited.click(*edited.person(104));
    ASSERT_TRUE(delegate.canRemove());
    edited.document->window().close();
    EXPECT_FALSE(delegate.canRemove());
}

TEST(SelectionOfADocument, TheApplicationKnowsWhetherThereIsSomethingToRemove)
{
    ApplicationDelegate delegate;
    EditedDocument first(*threeGenerations());
    first.click(*first.person(104));
    EXPECT_TRUE(delegate.canRemove());
    EditedDocument second(*threeGenerations());
    EXPECT_FALSE(delegate.canRemove());
    first.document->window().activateWindow();
    QApplication::processEvents();
    EXPECT_TRUE(delegate.canRemove());
    second.document->window().activateWindow();
    QApplication::processEvents();
    EXPECT_FALSE(delegate.canRemove());
}

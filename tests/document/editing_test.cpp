#include "canvas/placement.h"
#include "canvas/view_driver.h"
#include "edited_document.h"

#include <QTest>

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::string numbered(const char* what, const Person& person)
{
    return std::string(what).append(1, ' ').append(std::to_string(person.recordId().number));
}

std::optional<int> none()
{
    return std::nullopt;
}

} // namespace

TEST(Editing, APersonIsShownAtOnceAndJoinsTheFamilyOnTheQueue)
{
    EditedDocument edited;
    ASSERT_TRUE(edited.document->window().isOnboardingVisible());
    edited.hold();
    const RecordId id = edited.addUnsettled();
    Person& person = *edited.context().person(id);
    EXPECT_FALSE(edited.document->window().isOnboardingVisible());
    EXPECT_TRUE(edited.canvas().scene().shows(person));
    EXPECT_EQ(person.pool(), nullptr);
    EXPECT_THAT(edited.list->log, ElementsAre(numbered("add", person)));
    edited.release();
    EXPECT_EQ(person.pool(), &edited.pool());
    EXPECT_THAT(edited.list->log, ElementsAre(numbered("add", person), "rearrange", numbered("select", person),
                                              numbered("edit", person)));
    EXPECT_EQ(edited.document->selectionPerson(), &person);
    EXPECT_EQ(person.generation(), none());
}

TEST(Editing, ANewPersonsNameIsNotEditedWhileTheUserTypesElsewhere)
{
    EditedDocument edited;
    edited.hold();
    edited.addUnsettled();
    edited.list->editing = true;
    edited.release();
    EXPECT_THAT(edited.list->log, testing::Not(testing::Contains(testing::StartsWith("edit"))));
}

TEST(Editing, TwoNewPersonsThatAreLinkedNeedNoFullRun)
{
    EditedDocument edited;
    Person& parent = edited.add();
    Person& child = edited.add();
    edited.link(parent, child, offspringLink);
    EXPECT_EQ(parent.generation(), 2);
    EXPECT_EQ(child.generation(), 1);
    EXPECT_THAT(edited.pool().offspring(), IsEmpty());
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(1));
}

TEST(Editing, TwoNewPartnersShareTheFirstRow)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    EXPECT_EQ(one.generation(), 1);
    EXPECT_EQ(other.generation(), 1);
    EXPECT_THAT(edited.pool().partners(), IsEmpty());
}

TEST(Editing, AChildBelowTheFirstRowIsForAFullRun)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    Person& child = edited.add();
    edited.link(one, other, partnerLink);
    edited.link(one, child, offspringLink);
    EXPECT_EQ(one.generation(), 2);
    EXPECT_EQ(other.generation(), 2);
    EXPECT_EQ(child.generation(), 1);
    EXPECT_THAT(edited.pool().offspring(), SizeIs(1));
}

struct LinkCase
{
    std::optional<int> from;
    std::optional<int> to;
    QString type;
    std::optional<int> fromAfter;
    std::optional<int> toAfter;
};

class LinkTable : public testing::TestWithParam<LinkCase>
{};

TEST_P(LinkTable, GivesGenerationsByWhatIsThereWhenItsTurnComes)
{
    EditedDocument edited;
    Person& from = edited.add();
    Person& to = edited.add();
    from.setGeneration(GetParam().from);
    to.setGeneration(GetParam().to);
    edited.document->link(from, to, GetParam().type);
    edited.settle();
    EXPECT_EQ(from.generation(), GetParam().fromAfter);
    EXPECT_EQ(to.generation(), GetParam().toAfter);
}

INSTANTIATE_TEST_SUITE_P(Editing, LinkTable,
                         testing::Values(LinkCase{5, 7, u"partner"_qs, 1, 1}, LinkCase{5, 7, u"offspring"_qs, 2, 1},
                                         LinkCase{1, {}, u"offspring"_qs, 2, 1}, LinkCase{0, {}, u"offspring"_qs, 2, 1},
                                         LinkCase{-3, {}, u"offspring"_qs, 2, 1},
                                         LinkCase{2, {}, u"offspring"_qs, 2, 1}, LinkCase{9, {}, u"offspring"_qs, 9, 8},
                                         LinkCase{1, {}, u"partner"_qs, 1, 1}, LinkCase{0, {}, u"partner"_qs, 0, 0},
                                         LinkCase{4, {}, u"friend"_qs, 4, 4}, LinkCase{{}, 0, u"offspring"_qs, 1, 0},
                                         LinkCase{{}, 6, u"offspring"_qs, 7, 6}, LinkCase{{}, 6, u"partner"_qs, 6, 6},
                                         LinkCase{{}, 6, u"friend"_qs, 6, 6}, LinkCase{{}, {}, u"offspring"_qs, 2, 1},
                                         LinkCase{{}, {}, u"partner"_qs, 1, 1}, LinkCase{{}, {}, u"friend"_qs, 1, 1},
                                         LinkCase{3, 4, u"friend"_qs, {}, {}}));

TEST(Editing, ALinkOfAnUnknownTypeIsNotRecorded)
{
    EditedDocument edited;
    Person& from = edited.add();
    Person& to = edited.add();
    edited.document->link(from, to, QStringLiteral("friend"));
    edited.settle();
    EXPECT_THAT(from.partners(), IsEmpty());
    EXPECT_THAT(from.children(), IsEmpty());
}

TEST(Editing, APersonsNodeAndRowGoAtOnceAndItsRecordLater)
{
    EditedDocument edited(*threeGenerations());
    Person& child = *edited.person(104);
    edited.click(child);
    edited.list->log.clear();
    edited.hold();
    edited.document->remove();
    EXPECT_FALSE(edited.canvas().scene().shows(child));
    EXPECT_THAT(edited.list->log, ElementsAre(numbered("remove", child)));
    EXPECT_EQ(child.pool(), &edited.pool());
    EXPECT_THAT(child.parents(), SizeIs(2));
    edited.release();
    EXPECT_EQ(edited.person(104), nullptr);
    EXPECT_THAT(edited.person(102)->children(), IsEmpty());
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
}

TEST(Editing, MembershipLinksAndRecordOfARemovedPersonGoInThisOrder)
{
    EditedDocument edited(*threeGenerations());
    std::vector<std::string> events;
    const auto watch = edited.context().observe([&](const Change& change) {
        if (const auto* const link = std::get_if<LinkChanged>(&change))
            events.push_back(link->relationship == Relationship::PoolMembers ? "member" : "link");
        else if (std::holds_alternative<RecordRemoved>(change))
            events.push_back("record");
    });
    edited.click(*edited.person(106));
    edited.remove();
    EXPECT_THAT(events, ElementsAre("member", "link", "link", "record"));
}

TEST(Editing, RemovingTheLastPersonShowsTheHintAgain)
{
    EditedDocument edited;
    Person& person = edited.add();
    EXPECT_FALSE(edited.document->window().isOnboardingVisible());
    edited.click(person);
    edited.remove();
    EXPECT_TRUE(edited.document->window().isOnboardingVisible());
    EXPECT_THAT(edited.pool().persons(), IsEmpty());
}

TEST(Editing, ALinkIsRemovedWithItsShape)
{
    EditedDocument edited(*threeGenerations());
    edited.clickLink(*edited.person(102), *edited.person(104), offspringLink);
    EXPECT_TRUE(edited.document->isRemovable());
    edited.hold();
    edited.document->remove();
    EXPECT_THAT(edited.person(102)->children(), IsEmpty());
    EXPECT_THAT(edited.person(104)->parents(), SizeIs(1));
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(5));
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("none"));
    edited.release();
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(5));
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Remove Link"));
}

TEST(Editing, AShapeThatWasMadeTheOtherWayRoundStaysUntilTheRefresh)
{
    EditedDocument edited(*threeGenerations());
    edited.clickLink(*edited.person(103), *edited.person(102), partnerLink);
    edited.hold();
    edited.document->remove();
    EXPECT_THAT(edited.person(102)->partners(), IsEmpty());
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(6));
    edited.release();
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(5));
}

TEST(Editing, RemovingNothingWorksTheRowsOutAgain)
{
    EditedDocument edited;
    Person& one = edited.add();
    Person& other = edited.add();
    edited.link(one, other, partnerLink);
    edited.add();
    edited.clickNothing();
    edited.remove();
    EXPECT_EQ(one.generation(), 2);
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Update Rows"));
    edited.undo();
    EXPECT_EQ(one.generation(), 1);
    edited.redo();
    EXPECT_EQ(one.generation(), 2);
}

TEST(Editing, RemovingNothingIsNoStepIfNothingChanges)
{
    EditedDocument edited(*threeGenerations());
    edited.clickNothing();
    edited.remove();
    EXPECT_FALSE(edited.journal().canUndo());
}

TEST(Editing, WhoWasLinkedToSomebodyFarAwayIsInView)
{
    auto family = threeGenerations();
    for (const std::uint64_t number : {102u, 103u, 104u, 105u})
        family->person({number})->setX(static_cast<std::int32_t>(number - 102) * 200);
    family->person({106})->setX(20'000);
    EditedDocument edited(*family);
    Person& newcomer = edited.add();
    edited.click(newcomer);
    edited.canvas().reveal(newcomer);
    edited.link(*edited.person(106), newcomer, partnerLink);
    EXPECT_GT(*newcomer.x(), 19'000);
    EXPECT_TRUE(isInView(edited.canvas(), newcomer));
}

TEST(Editing, PersonsAreWhereTheyBelongAtOnceIfMotionIsNotWanted)
{
    EditedDocument edited(*threeGenerations());
    edited.document->setReducedMotion(true);
    Person& parent = edited.add();
    edited.linkUnsettled(parent, *edited.person(102), offspringLink);
    const auto isPlaced = [&] { return parent.generation().has_value(); };
    ASSERT_TRUE(QTest::qWaitFor(isPlaced));
    EXPECT_EQ(parent.leafView()->yConstraint()->constant, rowConstant(parent.generation()));
}

TEST(Editing, ALinkIsAskedForByNotificationOfTheOwnFamilyOnly)
{
    EditedDocument edited(*threeGenerations());
    EditedDocument other(*threeGenerations());
    NotificationCenter::defaultCenter().post(
        createLinkNotification{&other.pool(), RecordId{102}, RecordId{105}, partnerLink.toString()});
    EXPECT_THAT(edited.person(102)->partners(), SizeIs(1));
    EXPECT_THAT(other.person(102)->partners(), SizeIs(2));
}

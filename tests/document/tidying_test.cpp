// Tidying a family up from its document.

#include "canvas/tidying.h"
#include "document/document_window.h"
#include "edited_document.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

/// Left edges in the order of the pool.
std::vector<std::int32_t> placesOf(const Pool& pool)
{
    std::vector<std::int32_t> places;
    for (const Person* const person : pool.persons())
        places.push_back(person->x().value_or(0));
    return places;
}

/// Three generations, with everybody far from where they would be tidy.
struct Untidy
{
    Untidy()
    {
        std::int32_t x = 5'000;
        edited.journal().begin(QStringLiteral("Move Person"));
        for (Person* const person : edited.pool().persons())
            person->setX(x += 1'000);
        edited.settle();
    }

    EditedDocument edited{*threeGenerations()};
};

TEST(TidyingUp, IsOneStepThatUndoTakesBackExactly)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    const QByteArray before = edited.text();
    const std::size_t depth = edited.journal().depth();
    edited.document->tidyUp();
    edited.settle();
    const QByteArray after = edited.text();
    EXPECT_NE(after, before);
    EXPECT_EQ(edited.journal().depth(), depth + 1);
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Tidy Up"));
    edited.undo();
    EXPECT_EQ(edited.text(), before);
    edited.redo();
    EXPECT_EQ(edited.text(), after);
}

TEST(TidyingUp, LeavesATidyFamilyAndItsHistoryAlone)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    edited.document->tidyUp();
    edited.settle();
    const auto places = placesOf(edited.pool());
    const std::size_t depth = edited.journal().depth();
    edited.document->tidyUp();
    edited.settle();
    EXPECT_EQ(placesOf(edited.pool()), places);
    EXPECT_EQ(edited.journal().depth(), depth);
}

TEST(TidyingUp, PutsTheLeftmostAtTheMargin)
{
    Untidy family;
    family.edited.document->tidyUp();
    family.edited.settle();
    const auto places = placesOf(family.edited.pool());
    EXPECT_EQ(*std::ranges::min_element(places), 253);
}

TEST(TidyingUp, TakesInWhatWaitsBeforeIt)
{
    EditedDocument edited(*threeGenerations());
    edited.hold();
    const RecordId newcomer = edited.addUnsettled();
    edited.document->tidyUp();
    edited.release();
    ASSERT_NE(edited.person(newcomer.number), nullptr);
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Tidy Up"));
    edited.undo();
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Add Person"));
}

TEST(TidyingUp, LeavesAnEmptyFamilyAlone)
{
    EditedDocument edited;
    edited.document->tidyUp();
    edited.settle();
    EXPECT_FALSE(edited.journal().canUndo());
}

TEST(TidyingUp, OfDescendantsLeavesAllOthersWhereTheyAre)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    const auto before = placesOf(edited.pool());
    edited.click(*edited.person(102));
    edited.document->tidyDescendants();
    edited.settle();
    const auto after = placesOf(edited.pool());
    // Both grandparents stay; their child, its partner and the grandchild come to stand below them.
    EXPECT_EQ(after[0], before[0]);
    EXPECT_EQ(after[1], before[1]);
    EXPECT_NE(after[4], before[4]);
    edited.undo();
    EXPECT_EQ(placesOf(edited.pool()), before);
}

TEST(TidyingUp, OfAncestorsLeavesAllOthersWhereTheyAre)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    const auto before = placesOf(edited.pool());
    edited.click(*edited.person(106));
    edited.document->tidyAncestors();
    edited.settle();
    const auto after = placesOf(edited.pool());
    EXPECT_EQ(after[4], before[4]);
    EXPECT_NE(after[0], before[0]);
}

TEST(TidyingUp, OfRelativesDoesNothingWithoutASelectedPerson)
{
    Untidy family;
    const auto before = placesOf(family.edited.pool());
    family.edited.document->tidyAncestors();
    family.edited.document->tidyDescendants();
    family.edited.settle();
    EXPECT_EQ(placesOf(family.edited.pool()), before);
}

TEST(TidyingUp, EndsWithADocumentThatIsClosedMeanwhile)
{
    Untidy family;
    family.edited.hold();
    family.edited.document->tidyUp();
    family.edited.document.reset();
    QApplication::processEvents();
}

TEST(TidyingUp, IsTakenBackByAnUndoThatWasWishedForMeanwhile)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    const QByteArray before = edited.text();
    edited.hold();
    edited.document->tidyUp();
    edited.document->undo();
    edited.release();
    EXPECT_EQ(edited.text(), before);
    EXPECT_EQ(edited.journal().redoName(), QStringLiteral("Tidy Up"));
}

TEST(TidyingUp, IsGivenUpWhereNobodyWaitsForItAnyMore)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    const QByteArray before = edited.text();
    const std::size_t depth = edited.journal().depth();
    edited.hold();
    edited.document->tidyUp();
    edited.document->hurry();
    edited.release();
    EXPECT_EQ(edited.text(), before);
    EXPECT_EQ(edited.journal().depth(), depth);
    edited.document->tidyUp();
    edited.settle();
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Tidy Up"));
}

TEST(TidyingUp, TakesAnUndoAlongThatWasMeantForItWhereItIsGivenUp)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    const QByteArray before = edited.text();
    edited.hold();
    edited.document->tidyUp();
    edited.document->undo();
    edited.document->hurry();
    edited.release();
    EXPECT_EQ(edited.text(), before);
    edited.hold();
    edited.document->tidyUp();
    edited.document->undo();
    edited.document->undo();
    edited.document->hurry();
    edited.release();
    EXPECT_EQ(edited.journal().redoName(), QStringLiteral("Move Person"));
    EXPECT_NE(edited.text(), before);
}

TEST(TidyingUp, OfSomeLeavesAllOthersWhereTheirUserPutsThemMeanwhile)
{
    const Untidy family;
    const std::vector<RecordId> some{{104}, {105}, {106}};
    Tidying tidying = Tidying::ofSome(family.edited.pool(), some);
    tidying.compute();
    EXPECT_THAT(tidying.places(), Not(IsEmpty()));
    for (const Tidying::Place& place : tidying.places())
        EXPECT_THAT(some, Contains(place.person));
}

TEST(TidyingUp, OfSomeLeavesThemWhereTheirNodesStandShoulderToShoulder)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    std::int32_t left = 253;
    std::vector<RecordId> strangers;
    for (int stranger = 0; stranger < 3; ++stranger) {
        Person& person = edited.add();
        ASSERT_LT(person.leafView()->width(), 142);
        strangers.push_back(person.recordId());
        person.setX(left);
        left += person.leafView()->width() + 10;
    }
    edited.settle();
    Tidying tidying = Tidying::ofSome(edited.pool(), {strangers[1]});
    tidying.compute();
    EXPECT_THAT(tidying.places(), IsEmpty());
}

TEST(TidyingUp, OfSomeTellsNothingWhereSomebodyHasNoPlace)
{
    const Untidy family;
    family.edited.person(102)->setX(std::nullopt);
    Tidying tidying = Tidying::ofSome(family.edited.pool(), {RecordId{106}});
    tidying.compute();
    EXPECT_THAT(tidying.places(), IsEmpty());
}

TEST(TidyingUp, ComesAfterWhatItsUserDidMeanwhile)
{
    Untidy family;
    EditedDocument& edited = family.edited;
    edited.hold();
    edited.document->tidyUp();
    edited.journal().begin(QStringLiteral("Edit Name"));
    edited.person(102)->setName(QStringLiteral("Adelheid"));
    edited.release();
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Tidy Up"));
    edited.undo();
    EXPECT_EQ(edited.person(102)->name(), QStringLiteral("Adelheid"));
}

} // namespace
} // namespace lineara

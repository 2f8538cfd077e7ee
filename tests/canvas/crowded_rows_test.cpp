// What crowds a row, and what does not: persons who come, go and change, undo and redo.

#include "rows_at_rest.h"
#include "spaced_family.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QTemporaryDir>

namespace lineara {
namespace {

using testing::ElementsAre;

TEST_F(Spaced, TheRelativeWhoComesGivesWayToTheOneWhoStood)
{
    for (const auto& [from, to] : {std::pair{150, 248}, std::pair{400, 552}, std::pair{700, 552}}) {
        ShownFamily linked;
        const QString name = QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen");
        Person& anchor = linked.add(400, 1, name);
        Person& child = linked.add(0, 2, name);
        Person& newcomer = linked.add(from, std::nullopt, name);
        TreeView& view = linked.show();
        ASSERT_TRUE(view.connect(anchor, newcomer, partnerLink.toString()));
        anchor.addPartner(newcomer);
        newcomer.setGeneration(1);
        linked.pool.arrangeGenerations();
        view.refreshHierarchy();
        view.settle();
        EXPECT_EQ(anchor.x(), 400);
        EXPECT_EQ(newcomer.x(), to);
        EXPECT_EQ(child.x(), 0);
    }
}

TEST_F(Spaced, ARowWithTheSamePersonsStaysAsItIsWhereverItMoves)
{
    Person& first = addWide(0, 1);
    Person& second = addWide(200, 1);
    Person& third = addWide(0, 2);
    family.show();
    second.setX(50);
    for (Person* const person : {&first, &second})
        person->setGeneration(2);
    third.setGeneration(3);
    refresh();
    EXPECT_THAT(places(), ElementsAre(0, 50, 0));
}

TEST_F(Spaced, ARowThatSomebodyJoinsIsSpaced)
{
    addWide(0, 1);
    Person& unlinked = addWide(20);
    Person& other = addWide(30);
    family.show();
    unlinked.setGeneration(1);
    refresh();
    EXPECT_THAT(places(), ElementsAre(0, 152, 30));
    other.setX(160);
    refresh();
    EXPECT_THAT(places(), ElementsAre(0, 152, 160));
}

TEST_F(Spaced, RowZeroIsNotSpaced)
{
    addWide(0, 1);
    addWide(10);
    Person& leaves = addWide(300, 1);
    family.show();
    leaves.setGeneration(std::nullopt);
    leaves.setX(15);
    refresh();
    EXPECT_THAT(places(), ElementsAre(0, 10, 15));
    drop(leaves);
    family.view->settle();
    EXPECT_THAT(places(), ElementsAre(0, 10, 15));
}

TEST_F(Spaced, TheFirstRowsOfAFamilyAreSpaced)
{
    Person& first = addWide(100);
    Person& second = addWide(110);
    family.show();
    EXPECT_THAT(places(), ElementsAre(100, 110));
    first.setGeneration(1);
    second.setGeneration(1);
    refresh();
    EXPECT_THAT(places(), ElementsAre(100, 252));
}

TEST_F(Spaced, AnEmptyFamilyIsNoMatter)
{
    TreeView& view = family.show();
    view.setNeedsUpdateConstraints();
    view.settle();
    view.adjustBy(10);
    Person& only = addWide(40, 1);
    view.addViewForPerson(only);
    refresh();
    family.context.remove(only);
    refresh();
    EXPECT_TRUE(view.personLayer().nodes().empty());
}

TEST_F(Spaced, ALongerNameOrLifeSpanMakesRoomInItsRow)
{
    Person& person = family.add(0, 1, QStringLiteral("Al"));
    const int width = person.leafView()->width();
    Person& neighbour = addWide(width + 10, 1);
    family.show();
    person.setName(QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen"));
    EXPECT_EQ(neighbour.x(), width + 10);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isAtRest(family.pool));
    const auto before = places();
    person.setName(QStringLiteral("Al"));
    family.view->settle();
    EXPECT_EQ(places(), before);
    neighbour.setX(*person.x() + width + 10);
    person.setBirthYear(-123456789);
    family.view->settle();
    EXPECT_GT(person.leafView()->width(), width);
    EXPECT_TRUE(isAtRest(family.pool));
}

TEST_F(Spaced, AWidePictureMakesRoomInItsRow)
{
    Person& person = family.add(0, 1, QStringLiteral("Al"));
    const int width = person.leafView()->width();
    family.add(width + 10, 1);
    family.show();
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("wide.png"));
    ASSERT_TRUE(QImage(200, 100, QImage::Format_RGB32).save(file));
    person.changePic(file);
    family.view->settle();
    EXPECT_GT(person.leafView()->width(), width);
    EXPECT_TRUE(isAtRest(family.pool));
}

TEST_F(Spaced, AWidePictureBesideTwoNeighboursIsUndoneToTheSamePlaces)
{
    Person& person = family.add(0, 1, QStringLiteral("Al"));
    const int pitch = person.leafView()->width() + 10;
    family.add(pitch, 1, QStringLiteral("Al"));
    family.add(2 * pitch, 1, QStringLiteral("Al"));
    TreeView& view = family.show();
    ASSERT_TRUE(isAtRest(family.pool));
    const auto before = places();
    ASSERT_THAT(before, ElementsAre(0, pitch, 2 * pitch));
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("wide.png"));
    ASSERT_TRUE(QImage(400, 100, QImage::Format_RGB32).save(file));
    family.context.journal().begin(QStringLiteral("Change Picture"));
    person.changePic(file);
    view.settle();
    EXPECT_EQ(person.leafView()->width(), node_layout::greatestNodeWidth);
    EXPECT_TRUE(isAtRest(family.pool));
    EXPECT_NE(places(), before);
    family.context.journal().undo();
    view.settle();
    EXPECT_EQ(places(), before);
    EXPECT_TRUE(isAtRest(family.pool));
    EXPECT_FALSE(family.context.journal().canUndo());
}

TEST_F(Spaced, AThousandRenamesInARowAreOneChangeOfPlaces)
{
    for (int person = 0; person < 1000; ++person)
        family.add(person * 110, 1, QStringLiteral("Al"));
    TreeView& view = family.show();
    std::vector<std::size_t> changes;
    const Subscription watch = family.context.observe([&](const Change& change) {
        const auto* const many = std::get_if<ManyChanged>(&change);
        if (many && (many->attributes & PersonAttribute::X) && many->shift == 0)
            changes.push_back(many->persons.size());
    });
    for (Person* const person : family.pool.persons())
        person->setName(QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen"));
    view.settle();
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_TRUE(isAtRest(family.pool));
}

TEST_F(Spaced, RenamedPersonsMayBeGoneByThen)
{
    Person& person = addWide(0, 1);
    Person& neighbour = family.add(200, 1, QStringLiteral("Al"));
    TreeView& view = family.show();
    neighbour.setX(100);
    person.setName(QStringLiteral("Al"));
    family.context.remove(person);
    family.context.journal().clear();
    family.nursery.forgetRemoved();
    view.settle();
    EXPECT_THAT(places(), ElementsAre(100));
}

TEST_F(Spaced, APersonAboutToLeaveTakesNoRoom)
{
    Person& leaves = addWide(0, 1);
    Person& moved = addWide(200, 1);
    addWide(400, 1);
    TreeView& view = family.show();
    view.removeViewForPerson(leaves);
    moveTo(moved, 20);
    EXPECT_EQ(view.collisionAvoidanceConstraints(), 1u);
    view.settle();
    EXPECT_THAT(places(), ElementsAre(0, 20, 400));
}

TEST_F(Spaced, APersonWhoHasNotJoinedYetIsShiftedAlong)
{
    Person& first = addWide(0, 1);
    TreeView& view = family.show();
    Person& waiting = family.context.insertPerson({.x = 400});
    view.addViewForPerson(waiting);
    view.adjustBy(-30);
    EXPECT_EQ(first.x(), 30);
    EXPECT_EQ(waiting.x(), 430);
    first.setX(-20);
    view.settle();
    EXPECT_EQ(waiting.x(), 450);
}

TEST_F(Spaced, UndoSpacesNothingByItself)
{
    Person& first = addWide(0, 1);
    Person& second = addWide(200, 1);
    Person& newcomer = addWide(500);
    TreeView& view = family.show();
    second.setX(50);
    family.context.journal().begin(QStringLiteral("Link Partner"));
    newcomer.setGeneration(1);
    refresh();
    EXPECT_TRUE(isAtRest(family.pool));
    family.context.journal().undo();
    family.pool.rebuildLists();
    view.takeRows();
    refresh();
    EXPECT_THAT(places(), ElementsAre(0, 50, 500));
    EXPECT_TRUE(family.context.journal().canRedo());
    EXPECT_EQ(first.x(), 0);
}

TEST_F(Spaced, UndoOfANameMovesNobodyAndLeavesRedo)
{
    Person& person = family.add(0, 1, QStringLiteral("Al"));
    addWide(person.leafView()->width() + 10, 1);
    TreeView& view = family.show();
    const auto before = places();
    family.context.journal().begin(QStringLiteral("Edit Name"));
    person.setName(QStringLiteral("Wilhelmina Charlotte Amalia of Saxe-Meiningen"));
    view.settle();
    const auto after = places();
    EXPECT_NE(after, before);
    family.context.journal().undo();
    view.settle();
    EXPECT_EQ(places(), before);
    family.context.journal().redo();
    view.settle();
    EXPECT_EQ(places(), after);
}

TEST_F(Spaced, PlacesAtTheEndsOfTheNumberRangeDoNotAskForEver)
{
    addWide(std::numeric_limits<std::int32_t>::max(), 1);
    Person& second = addWide(0, 1);
    TreeView& view = family.show();
    second.setX(std::numeric_limits<std::int32_t>::min());
    drop(second);
    view.settle();
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    const auto places = this->places();
    QCoreApplication::processEvents();
    EXPECT_EQ(this->places(), places);
}

} // namespace
} // namespace lineara

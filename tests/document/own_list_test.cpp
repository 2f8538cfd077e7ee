// The document and its list: one selection, and nothing typed that is lost.

#include "canvas/hand.h"
#include "listed_document.h"

#include <gmock/gmock.h>

using namespace lineara;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

/// Counts what is painted anywhere in the program.
class PaintCounter : public QObject
{
public:
    PaintCounter() { QApplication::instance()->installEventFilter(this); }

    int painted = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Others get events from other threads, which are handed over in a way of their own.
        painted += watched->isWidgetType() && event->type() == QEvent::Paint;
        return false;
    }
};

class OwnList : public testing::Test
{
protected:
    ListedDocument edited{*threeGenerations()};

    Person& person(std::uint64_t number) { return *edited.person(number); }
    /// Counts what the list announces from now on.
    void watchAnnouncements()
    {
        watch_ = NotificationCenter::defaultCenter().observe<selectionChangeNotification>(
            [this](const auto&) { ++announced; });
    }
    void enqueueClick(std::uint64_t number)
    {
        NotificationCenter::defaultCenter().enqueue(PersonClickedNotification{&edited.pool(), RecordId{number}});
    }
    int announced = 0;

private:
    Subscription watch_;
};

} // namespace

TEST_F(OwnList, ShowsTheFamilyTheOldestGenerationFirst)
{
    EXPECT_EQ(edited.names().mid(0, 2), QStringList({QStringLiteral("Grandma"), QStringLiteral("Grandpa")}));
    EXPECT_EQ(edited.names().back(), QStringLiteral("Kid"));
}

TEST_F(OwnList, ARowSelectsItsPersonEverywhere)
{
    edited.pressRow(QStringLiteral("Partner"));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(105));
    EXPECT_TRUE(person(105).leafView()->infoView().isFocused());
    EXPECT_NE(edited.nameField(), nullptr);
    edited.click(person(106));
    EXPECT_EQ(edited.selectedName(), QStringLiteral("Kid"));
    EXPECT_EQ(edited.nameField()->text(), QStringLiteral("Kid"));
}

TEST_F(OwnList, TheNeighbourOfARemovedRowIsNotSelected)
{
    edited.click(person(103));
    edited.hold();
    watchAnnouncements();
    edited.document->remove();
    EditedDocument::deliver();
    EXPECT_EQ(announced, 0);
    EXPECT_EQ(edited.selectedName(), QString());
    edited.pressRow(QStringLiteral("Grandma"));
    edited.release();
    EXPECT_EQ(edited.person(103), nullptr);
    ASSERT_NE(edited.person(102), nullptr);
    EXPECT_THAT(person(102).children(), SizeIs(1));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(102));
    EXPECT_EQ(edited.selectedName(), QStringLiteral("Grandma"));
    EXPECT_EQ(edited.journal().depth(), 1u);
}

TEST_F(OwnList, ANewPersonIsNamedAtOnce)
{
    watchAnnouncements();
    edited.addUnsettled();
    edited.settle();
    edited.type(QStringLiteral("Ann"));
    edited.settle();
    EXPECT_EQ(announced, 1);
    EXPECT_EQ(QApplication::focusWidget(), edited.nameField());
    EXPECT_EQ(edited.nameField()->text(), QStringLiteral("Ann"));
    edited.press(Qt::Key_Return);
    EXPECT_EQ(person(107).name(), QStringLiteral("Ann"));
}

TEST_F(OwnList, WhatIsTypedBeforeTheNewNameOpensIsItsBeginning)
{
    edited.canvas().setFocus();
    edited.hold();
    edited.addUnsettled();
    edited.type(QStringLiteral("Ana"));
    edited.press(Qt::Key_Backspace);
    edited.release();
    edited.type(QStringLiteral("n"));
    EXPECT_EQ(edited.nameField()->text(), QStringLiteral("Ann"));
    edited.press(Qt::Key_Return);
    EXPECT_EQ(person(107).name(), QStringLiteral("Ann"));
}

TEST_F(OwnList, WhatIsTypedForEachOfSeveralNewPersonsIsTheirName)
{
    edited.canvas().setFocus();
    edited.hold();
    edited.addUnsettled();
    edited.type(QStringLiteral("Ann"));
    edited.addUnsettled();
    edited.type(QStringLiteral("Bea"));
    edited.press(Qt::Key_Return);
    edited.release();
    EXPECT_EQ(person(107).name(), QStringLiteral("Ann"));
    EXPECT_EQ(person(108).name(), QStringLiteral("Bea"));
}

TEST_F(OwnList, WhatIsTypedRightAfterAnotherNameIsTheNewOne)
{
    edited.pressRow(QStringLiteral("Partner"));
    edited.editName();
    edited.type(QStringLiteral("s"));
    edited.hold();
    edited.addUnsettled();
    edited.type(QStringLiteral("A"));
    EditedDocument::deliver();
    edited.type(QStringLiteral("nn"));
    edited.release();
    edited.document->commit();
    EXPECT_EQ(person(105).name(), QStringLiteral("Partners"));
    EXPECT_EQ(person(107).name(), QStringLiteral("Ann"));
}

TEST_F(OwnList, WhatIsTypedForANewPersonWhoseNameDoesNotOpenIsItsNameAllTheSame)
{
    edited.pressRow(QStringLiteral("Partner"));
    edited.canvas().setFocus();
    edited.hold();
    edited.addUnsettled();
    edited.type(QStringLiteral("Anm"));
    edited.press(Qt::Key_Backspace);
    edited.type(QStringLiteral("n"));
    edited.notes()->setFocus();
    edited.type(QStringLiteral("Plays the flute."));
    edited.release();
    edited.document->commit();
    EXPECT_EQ(person(107).name(), QStringLiteral("Ann"));
}

TEST_F(OwnList, EscapeTakesBackWhatIsTypedBeforeTheNewNameOpens)
{
    edited.canvas().setFocus();
    edited.hold();
    edited.addUnsettled();
    edited.type(QStringLiteral("Ann"));
    edited.press(Qt::Key_Escape);
    edited.release();
    edited.type(QStringLiteral("Bea"));
    EXPECT_EQ(edited.nameField()->text(), QStringLiteral("Bea"));
}

TEST_F(OwnList, AnUndoneAdditionLetsTheKeyboardGo)
{
    edited.canvas().setFocus();
    edited.hold();
    edited.addUnsettled();
    edited.type(QStringLiteral("Ann"));
    edited.document->undo();
    edited.release();
    edited.press(Qt::Key_F, Qt::ControlModifier);
    edited.type(QStringLiteral("a"));
    EXPECT_EQ(edited.search().text(), QStringLiteral("a"));
}

TEST_F(OwnList, AClickOnNothingBeforeANewPersonComesToRest)
{
    edited.hold();
    edited.addUnsettled();
    NotificationCenter::defaultCenter().enqueue(LinkSelectionNotification{&edited.pool(), std::nullopt});
    watchAnnouncements();
    edited.release();
    EditedDocument::deliver();
    EXPECT_LE(announced, 10);
    const int before = announced;
    for (int round = 0; round < 20; ++round)
        EditedDocument::deliver();
    EXPECT_EQ(announced, before);
    const bool isSelected = edited.document->selectionPerson() != nullptr;
    EXPECT_EQ(edited.table().selectionModel()->hasSelection(), isSelected);
}

TEST_F(OwnList, TwoClicksAtOnceEndWithTheSecond)
{
    watchAnnouncements();
    enqueueClick(102);
    enqueueClick(106);
    edited.settle();
    EditedDocument::deliver();
    EXPECT_LE(announced, 2);
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(106));
    EXPECT_EQ(edited.selectedName(), QStringLiteral("Kid"));
}

TEST_F(OwnList, TwoClicksAtOnceComeToRest)
{
    constexpr int milliseconds = 300;
    constexpr int longest = 20'000;
    const int flashTime = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    watchAnnouncements();
    enqueueClick(102);
    enqueueClick(106);
    EditedDocument::deliver();
    edited.editName();
    edited.nameField()->setCursorPosition(1);
    const auto isAtRest = [this] {
        const PaintCounter counter;
        const int before = announced;
        QTest::qWait(milliseconds);
        return announced == before && counter.painted == 0;
    };
    EXPECT_TRUE(QTest::qWaitFor(isAtRest, longest));
    EXPECT_LE(announced, 2);
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(106));
    EXPECT_EQ(edited.nameField()->text(), QStringLiteral("Kid"));
    EXPECT_EQ(edited.nameField()->cursorPosition(), 1);
    EXPECT_EQ(QApplication::focusWidget(), edited.nameField());
    QApplication::setCursorFlashTime(flashTime);
}

TEST_F(OwnList, ANodeThatIsPressedLeavesWhatIsTypedToWhomItWasTypedFor)
{
    edited.pressRow(QStringLiteral("Partner"));
    edited.editName();
    edited.type(QStringLiteral("s"));
    Announcements heard(edited.pool());
    const auto selections = NotificationCenter::defaultCenter().observe<selectionChangeNotification>(
        [&](const auto& change) { heard.log.push_back(change.person == RecordId{102} ? "selection" : "another"); });
    edited.canvas().reveal(person(102));
    Hand hand(edited.canvas());
    hand.click(hand.panel(person(102)));
    EditedDocument::deliver();
    EXPECT_THAT(heard.log, ElementsAre("PersonDragEnded", "PersonClicked", "selection"));
    EXPECT_EQ(person(105).name(), QStringLiteral("Partners"));
    EXPECT_EQ(person(102).name(), QStringLiteral("Grandma"));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(102));
    EXPECT_EQ(edited.selectedName(), QStringLiteral("Grandma"));
}

TEST_F(OwnList, NotesTypedWhileAPersonIsAddedStayWithWhomTheyAreTypedFor)
{
    edited.pressRow(QStringLiteral("Partner"));
    edited.hold();
    const RecordId newcomer = edited.addUnsettled();
    edited.notes()->setFocus();
    edited.type(QStringLiteral("Plays the flute."));
    edited.release();
    edited.document->commit();
    EXPECT_EQ(person(105).additional(), QStringLiteral("Plays the flute."));
    ASSERT_NE(edited.context().person(newcomer), nullptr);
    EXPECT_EQ(edited.context().person(newcomer)->additional(), std::nullopt);
}

TEST_F(OwnList, TheRowOfAPersonIsChosenAgainAfterALink)
{
    edited.click(person(104));
    edited.clickLink(person(102), person(103), partnerLink);
    EXPECT_EQ(edited.selectedName(), QStringLiteral("Child"));
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("partner"));
    edited.pressRow(QStringLiteral("Child"));
    EXPECT_EQ(edited.document->selectionType(), QStringLiteral("person"));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(104));
}

TEST_F(OwnList, ASearchKeepsTheSelectionAndTheKeyboard)
{
    edited.click(person(104));
    edited.press(Qt::Key_F, Qt::ControlModifier);
    edited.type(QStringLiteral("zzz"));
    EditedDocument::deliver();
    EXPECT_THAT(edited.names(), SizeIs(0));
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(104));
    EXPECT_EQ(QApplication::focusWidget(), &edited.search());
}

TEST_F(OwnList, AClickOnSomebodyWhoIsNotFoundEndsTheSearch)
{
    edited.search().setText(QStringLiteral("grand"));
    edited.click(person(106));
    EXPECT_EQ(edited.search().text(), QString());
    EXPECT_EQ(edited.selectedName(), QStringLiteral("Kid"));
    EXPECT_TRUE(person(106).leafView()->infoView().isFocused());
}

TEST_F(OwnList, ANewPersonEndsTheSearch)
{
    edited.search().setText(QStringLiteral("zzz"));
    edited.canvas().setFocus();
    edited.add();
    EXPECT_EQ(edited.search().text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), edited.nameField());
}

TEST_F(OwnList, ReturnInASearchLeadsToThePerson)
{
    edited.canvas().zoomTo(4, {0, 0});
    edited.canvas().reveal(person(102));
    edited.clickLink(person(102), person(103), partnerLink);
    edited.press(Qt::Key_F, Qt::ControlModifier);
    edited.type(QStringLiteral("kid"));
    edited.press(Qt::Key_Return);
    EXPECT_EQ(edited.document->selectionPerson(), edited.person(106));
    EXPECT_EQ(edited.canvas().branchLayer().selectedLink(), nullptr);
    const Frame view = edited.canvas().documentVisibleRect();
    const Frame node = person(106).leafView()->frame();
    EXPECT_GE(node.x, view.x);
    EXPECT_GE(node.y, view.y);
    EXPECT_LE(node.x + node.width, view.x + view.width);
    EXPECT_LE(node.y + node.height, view.y + view.height);
}

TEST_F(OwnList, ASearchBegunMeanwhileKeepsTheKeyboardFromANewPerson)
{
    edited.hold();
    edited.addUnsettled();
    edited.press(Qt::Key_F, Qt::ControlModifier);
    edited.type(QStringLiteral("ab"));
    edited.release();
    EXPECT_EQ(QApplication::focusWidget(), &edited.search());
}

TEST_F(OwnList, ARemovalThatComesLateDoesNotInterruptTyping)
{
    edited.click(person(105));
    edited.hold();
    edited.document->remove();
    edited.press(Qt::Key_F, Qt::ControlModifier);
    edited.type(QStringLiteral("ab"));
    edited.release();
    edited.type(QStringLiteral("c"));
    EXPECT_EQ(edited.search().text(), QStringLiteral("abc"));
}

TEST_F(OwnList, WhatIsTypedIntoARemovedPersonComesBackWithIt)
{
    edited.pressRow(QStringLiteral("Partner"));
    edited.nameField()->setFocus();
    edited.nameField()->selectAll();
    edited.type(QStringLiteral("Paula"));
    edited.remove();
    ASSERT_EQ(edited.person(105), nullptr);
    edited.undo();
    EXPECT_EQ(person(105).name(), QStringLiteral("Paula"));
}

TEST_F(OwnList, WhatIsTypedIsSaved)
{
    const TestFiles files;
    const QString path = files.path(QStringLiteral("saved.lineara"));
    edited.pressRow(QStringLiteral("Kid"));
    edited.notes()->setFocus();
    edited.type(QStringLiteral("Plays the flute."));
    edited.document->save(path, [](const Outcome<SaveEnd>&) {});
    edited.settle();
    auto read = readFamilyFile(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().context->person({106})->additional(), QStringLiteral("Plays the flute."));
}

TEST_F(OwnList, WhatIsTypedIsThereWhenTheWindowCloses)
{
    edited.pressRow(QStringLiteral("Kid"));
    edited.editName();
    edited.type(QStringLiteral("dy"));
    edited.window().close();
    EXPECT_EQ(person(106).name(), QStringLiteral("Kiddy"));
}

TEST_F(OwnList, UndoTakesBackWhatWasTyped)
{
    edited.pressRow(QStringLiteral("Kid"));
    edited.editName();
    edited.type(QStringLiteral("dy"));
    edited.undo();
    EXPECT_EQ(person(106).name(), QStringLiteral("Kid"));
    EXPECT_EQ(edited.nameField()->text(), QStringLiteral("Kid"));
    edited.redo();
    EXPECT_EQ(person(106).name(), QStringLiteral("Kiddy"));
}

TEST_F(OwnList, DeleteInAFieldChangesTheTextOnly)
{
    edited.pressRow(QStringLiteral("Child"));
    edited.clickLink(person(102), person(103), partnerLink);
    edited.notes()->setFocus();
    edited.type(QStringLiteral("abc"));
    edited.press(Qt::Key_Home);
    edited.press(Qt::Key_Delete);
    edited.settle();
    EXPECT_EQ(edited.notes()->toPlainText(), QStringLiteral("bc"));
    EXPECT_THAT(person(102).partners(), SizeIs(1));
}

TEST_F(OwnList, RowsFollowUndoAndRedo)
{
    edited.click(person(103));
    edited.remove();
    EXPECT_THAT(edited.names(), SizeIs(4));
    edited.undo();
    EXPECT_THAT(edited.names(), SizeIs(5));
    EXPECT_TRUE(edited.names().contains(QStringLiteral("Grandpa")));
    edited.redo();
    EXPECT_THAT(edited.names(), SizeIs(4));
}

TEST_F(OwnList, AnEditThatFollowsALinkIsAStepOfItsOwn)
{
    const QByteArray before = edited.text();
    edited.link(person(106), person(103), partnerLink);
    const QByteArray linked = edited.text();
    edited.pressRow(QStringLiteral("Kid"));
    edited.editName();
    edited.type(QStringLiteral("dy"));
    edited.press(Qt::Key_Return);
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Edit Name"));
    edited.undo();
    EXPECT_EQ(edited.text(), linked);
    edited.undo();
    EXPECT_EQ(edited.text(), before);
}

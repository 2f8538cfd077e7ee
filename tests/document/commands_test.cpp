// The commands of a document's window, given as its user gives them.

#include "canvas/hand.h"
#include "edited_document.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gmock/gmock.h>

using namespace lineara;
using testing::SizeIs;

namespace {

class Commands : public testing::Test
{
protected:
    EditedDocument edited{*threeGenerations()};

    Commands()
    {
        edited.document->window().activateWindow();
        edited.document->window().setFocus();
        QApplication::processEvents();
    }

    /// The command that now has this text, whatever letter is underlined; nullptr if there is none.
    QAction* command(const QString& text) const
    {
        const DocumentWindow& window = edited.document->window();
        for (QAction* const action : window.editMenu()->actions() + window.personMenu()->actions()) {
            if (QString(action->text()).remove(QLatin1Char('&')) == text)
                return action;
        }
        return nullptr;
    }
    bool isOffered(const QString& text) const
    {
        const QAction* const action = command(text);
        return action && action->isEnabled();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&edited.document->window(), key, modifiers);
        edited.settle();
    }
    QDialog& chooser() const
    {
        auto* const found = edited.document->window().findChild<QDialog*>(QStringLiteral("personChooser"));
        EXPECT_NE(found, nullptr);
        return *found;
    }
    bool mayBeChosen() const
    {
        return chooser().findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled();
    }
};

} // namespace

TEST_F(Commands, NameTheStepThatTheyTakeBack)
{
    EXPECT_FALSE(isOffered(QStringLiteral("Undo")));
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(isOffered(QStringLiteral("Undo Add Person")));
    EXPECT_FALSE(isOffered(QStringLiteral("Redo")));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(edited.pool().persons(), SizeIs(5));
    EXPECT_FALSE(isOffered(QStringLiteral("Undo")));
    EXPECT_TRUE(isOffered(QStringLiteral("Redo Add Person")));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(edited.pool().persons(), SizeIs(6));
}

TEST_F(Commands, NameWhatTheyRemove)
{
    EXPECT_FALSE(isOffered(QStringLiteral("Remove")));
    edited.click(*edited.person(104));
    EXPECT_TRUE(isOffered(QStringLiteral("Remove Person")));
    edited.clickLink(*edited.person(102), *edited.person(104), offspringLink);
    EXPECT_TRUE(isOffered(QStringLiteral("Remove Child Link")));
    edited.clickLink(*edited.person(102), *edited.person(103), partnerLink);
    EXPECT_TRUE(isOffered(QStringLiteral("Remove Partner Link")));
    press(Qt::Key_Delete);
    EXPECT_THAT(edited.person(102)->partners(), SizeIs(0));
    EXPECT_FALSE(isOffered(QStringLiteral("Remove")));
}

TEST_F(Commands, OfferThePictureOfWhoIsSelected)
{
    EXPECT_FALSE(isOffered(QStringLiteral("Set Picture\u2026")));
    edited.click(*edited.person(104));
    EXPECT_TRUE(isOffered(QStringLiteral("Set Picture\u2026")));
    EXPECT_FALSE(isOffered(QStringLiteral("Remove Picture")));
    press(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(edited.list->log, testing::Contains("choose picture"));
    const TestFiles files;
    edited.journal().begin(QStringLiteral("Set Picture"));
    edited.person(104)->changePic(files.picture(QStringLiteral("a.png"), {20, 20}));
    edited.settle();
    EXPECT_TRUE(isOffered(QStringLiteral("Remove Picture")));
    press(Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_THAT(edited.list->log, testing::Contains("remove picture"));
    EXPECT_FALSE(isOffered(QStringLiteral("Remove Picture")));
}

TEST_F(Commands, StandAsButtonsAboveTheFamily)
{
    auto* const buttons = edited.document->window().findChild<QToolBar*>(QStringLiteral("editButtons"));
    ASSERT_NE(buttons, nullptr);
    const auto press = [&](const QString& text) {
        for (auto* const button : buttons->findChildren<QToolButton*>()) {
            if (button->isVisible() && button->text() == text)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        edited.settle();
        QApplication::processEvents();
    };
    press(QStringLiteral("Add Person"));
    EXPECT_THAT(edited.pool().persons(), SizeIs(6));
    press(QStringLiteral("Remove"));
    EXPECT_THAT(edited.pool().persons(), SizeIs(5));
    press(QStringLiteral("Undo"));
    press(QStringLiteral("Undo"));
    EXPECT_FALSE(edited.journal().canUndo());
    press(QStringLiteral("Redo"));
    EXPECT_THAT(edited.pool().persons(), SizeIs(6));
}

TEST_F(Commands, LinkTheSelectedPersonToOneThatIsTyped)
{
    edited.click(*edited.person(106));
    ASSERT_TRUE(isOffered(QStringLiteral("Link as Partner of\u2026")));
    press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const search = chooser().findChild<QLineEdit*>();
    QTest::keyClicks(search, QStringLiteral("grandPA"));
    EXPECT_TRUE(mayBeChosen());
    QTest::keyClick(search, Qt::Key_Return);
    edited.settle();
    EXPECT_THAT(edited.person(106)->partners(), testing::ElementsAre(edited.person(103)));
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Link Partner"));
    EXPECT_THAT(edited.canvas().branchLayer().layers(), SizeIs(7));
}

TEST_F(Commands, LinkTheSelectedPersonAsAChild)
{
    Person& orphan = edited.add();
    edited.click(orphan);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const search = chooser().findChild<QLineEdit*>();
    QTest::keyClicks(search, QStringLiteral("k"));
    QTest::keyClick(search, Qt::Key_Return);
    edited.settle();
    EXPECT_THAT(edited.person(106)->children(), testing::ElementsAre(&orphan));
}

TEST_F(Commands, OfferNobodyWhoCanNotBeLinked)
{
    edited.click(*edited.person(104));
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const search = chooser().findChild<QLineEdit*>();
    // Two parents are all that anybody has, and nobody is a child of an own child.
    EXPECT_FALSE(mayBeChosen());
    QTest::keyClicks(search, QStringLiteral("Kid"));
    EXPECT_FALSE(mayBeChosen());
    QTest::keyClick(search, Qt::Key_Return);
    edited.settle();
    EXPECT_FALSE(edited.journal().canUndo());
    QTest::keyClick(search, Qt::Key_Escape);
}

TEST_F(Commands, AreWalkedToWithTheArrowKeys)
{
    edited.click(*edited.person(106));
    press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    auto* const search = chooser().findChild<QLineEdit*>();
    auto* const list = chooser().findChild<QListView*>();
    EXPECT_EQ(list->currentIndex().row(), 0);
    QTest::keyClick(search, Qt::Key_Down);
    EXPECT_EQ(list->currentIndex().row(), 1);
    QTest::keyClick(search, Qt::Key_Return);
    edited.settle();
    EXPECT_THAT(edited.person(106)->partners(), testing::ElementsAre(edited.person(103)));
}

TEST_F(Commands, ChooseNobodyForAPersonWhoLeft)
{
    edited.click(*edited.person(106));
    press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    edited.remove();
    QTest::keyClick(chooser().findChild<QLineEdit*>(), Qt::Key_Return);
    edited.settle();
    EXPECT_EQ(edited.journal().undoName(), QStringLiteral("Remove Person"));
}

TEST_F(Commands, MarkTheWindowOfAFamilyThatIsNotSaved)
{
    const TestFiles files;
    const QString path = files.path(QStringLiteral("saved.lineara"));
    EXPECT_FALSE(edited.document->window().isWindowModified());
    edited.add();
    QApplication::processEvents();
    EXPECT_TRUE(edited.document->window().isWindowModified());
    bool saved = false;
    edited.document->save(path, [&](const Outcome<SaveEnd>& outcome) { saved = !outcome.failed(); });
    edited.settle();
    QApplication::processEvents();
    EXPECT_TRUE(saved);
    EXPECT_FALSE(edited.document->window().isWindowModified());
    EXPECT_EQ(edited.document->path(), path);
    edited.undo();
    QApplication::processEvents();
    EXPECT_TRUE(edited.document->window().isWindowModified());
    edited.redo();
    QApplication::processEvents();
    EXPECT_FALSE(edited.document->window().isWindowModified());
}

TEST(Saving, WaitsForWhatWasQueuedBefore)
{
    const TestFiles files;
    const QString path = files.path(QStringLiteral("saved.lineara"));
    EditedDocument edited(*threeGenerations());
    edited.hold();
    edited.linkUnsettled(*edited.person(106), *edited.person(103), partnerLink);
    edited.document->save(path, [](const Outcome<SaveEnd>&) {});
    edited.release();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), edited.text());
    EXPECT_TRUE(edited.journal().canUndo());
}

TEST(Saving, DuringAGlideWritesWhatComesToRest)
{
    const TestFiles files;
    const QString path = files.path(QStringLiteral("saved.lineara"));
    EditedDocument edited(*threeGenerations());
    Person& newcomer = edited.add();
    edited.linkUnsettled(*edited.person(106), newcomer, partnerLink);
    edited.document->save(path, [](const Outcome<SaveEnd>&) {});
    edited.settle();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), edited.text());
    EXPECT_GE(std::abs(*newcomer.x() - *edited.person(106)->x()), 100);
}

TEST(Saving, InTheMiddleOfADragLeavesTheRestOfItUnsaved)
{
    const TestFiles files;
    EditedDocument edited(*threeGenerations());
    Hand hand(edited.canvas());
    hand.press(hand.panel(*edited.person(106)));
    hand.dragBy({5, 0});
    edited.document->save(files.path(QStringLiteral("saved.lineara")), [](const Outcome<SaveEnd>&) {});
    edited.settle();
    EXPECT_FALSE(edited.document->isModified());
    hand.dragBy({20, 0});
    hand.release();
    EXPECT_TRUE(edited.document->isModified());
    edited.undo();
    EXPECT_TRUE(edited.document->isModified());
}

TEST(Saving, OfWhatIsUndoneAndRedoneLaterCountsAsSaved)
{
    const TestFiles files;
    EditedDocument edited(*threeGenerations());
    edited.add();
    EXPECT_TRUE(edited.document->isModified());
    edited.document->save(files.path(QStringLiteral("saved.lineara")), [](const Outcome<SaveEnd>&) {});
    EXPECT_TRUE(edited.document->isSaving());
    edited.settle();
    EXPECT_FALSE(edited.document->isSaving());
    edited.undo();
    EXPECT_TRUE(edited.document->isModified());
    edited.redo();
    EXPECT_FALSE(edited.document->isModified());
}

TEST(Saving, AFileThatCanNotBeWrittenIsNamed)
{
    EditedDocument edited(*threeGenerations());
    const QString before = edited.document->path();
    QString message;
    edited.document->save(QStringLiteral("/no such folder/family.lineara"), [&](const Outcome<SaveEnd>& outcome) {
        message = outcome.failed() ? outcome.failure().message : QString();
    });
    edited.settle();
    EXPECT_TRUE(message.contains(QStringLiteral("family.lineara")));
    EXPECT_EQ(edited.document->path(), before);
}

TEST(NewFamily, IsBuiltFromNothingAndSaved)
{
    const TestFiles files;
    const QString path = files.path(QStringLiteral("new.lineara"));
    EditedDocument edited;
    EXPECT_FALSE(edited.document->hasOwnFile());
    EXPECT_EQ(edited.document->window().windowTitle(), QStringLiteral("Lineara[*]"));
    // Grandparents, their child, the child's partner, and the couple's child.
    Person& grandma = edited.add();
    Person& grandpa = edited.add();
    Person& child = edited.add();
    Person& partner = edited.add();
    Person& kid = edited.add();
    edited.link(grandma, grandpa, partnerLink);
    edited.link(grandma, child, offspringLink);
    edited.link(grandpa, child, offspringLink);
    edited.link(child, partner, partnerLink);
    edited.link(child, kid, offspringLink);
    edited.link(partner, kid, offspringLink);
    EXPECT_EQ(grandma.generation(), 3);
    EXPECT_EQ(partner.generation(), 2);
    EXPECT_EQ(kid.generation(), 1);
    edited.document->save(path, [](const Outcome<SaveEnd>&) {});
    edited.settle();
    EXPECT_TRUE(edited.document->hasOwnFile());
    auto read = readFamilyFile(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(textOf(*read.value().context), edited.text());
}

TEST(NewFamily, TheFirstPersonIsPlacedInTheView)
{
    EditedDocument edited;
    const RecordId id = edited.addUnsettled();
    const Frame view = edited.canvas().documentVisibleRect();
    const Frame node = edited.context().person(id)->leafView()->frame();
    EXPECT_GT(view.width, 600);
    EXPECT_GE(node.x, view.x);
    EXPECT_LE(node.x, view.x + view.width / 2);
    EXPECT_GE(node.y, view.y);
    EXPECT_LE(node.y + node.height, view.y + view.height);
}

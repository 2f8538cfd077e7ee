// What is edited in a row of the list is one step, and undo gives the family back to the last byte.

#include "listed_document.h"

#include <QFileDialog>
#include <QMessageBox>

#include <gmock/gmock.h>

#include <functional>

using namespace lineara;

namespace {

class FieldHistory : public testing::Test
{
protected:
    const TestFiles files;
    const QString picture = files.picture(QStringLiteral("wide.png"), {90, 45});
    ListedDocument edited{*threeGenerations()};

    FieldHistory() { edited.pressRow(QStringLiteral("Child")); }

    Person& child() const { return *edited.person(104); }
    void goTo(QLineEdit& field) const
    {
        field.setFocus();
        field.selectAll();
    }
    /// The gesture is a step of this name, and both texts come back, again and again.
    void expectExactStep(const QString& name, const std::function<void()>& gesture)
    {
        edited.settle();
        const QByteArray before = edited.text();
        const std::size_t depth = edited.journal().depth();
        gesture();
        ListedDocument::deliver();
        edited.settle();
        const QByteArray after = edited.text();
        ASSERT_NE(after, before);
        ASSERT_EQ(edited.journal().depth(), depth + 1);
        EXPECT_EQ(edited.journal().undoName(), name);
        for (int round = 0; round < 2; ++round) {
            edited.undo();
            EXPECT_EQ(edited.text(), before);
            edited.redo();
            EXPECT_EQ(edited.text(), after);
        }
    }
    void choosePicture(const QString& file)
    {
        edited.document->list().choosePicture(child());
        auto* const dialog = edited.window().findChild<QFileDialog*>();
        ASSERT_NE(dialog, nullptr);
        Q_EMIT dialog->fileSelected(file);
        dialog->close();
    }
};

} // namespace

TEST_F(FieldHistory, ANameIsOneExactStep)
{
    expectExactStep(QStringLiteral("Edit Name"), [&] {
        goTo(*edited.nameField());
        edited.type(QStringLiteral("A much longer name, so that the row is spaced anew"));
        edited.press(Qt::Key_Return);
    });
}

TEST_F(FieldHistory, AnEmptiedNameIsOneExactStep)
{
    expectExactStep(QStringLiteral("Edit Name"), [&] {
        goTo(*edited.nameField());
        edited.press(Qt::Key_Delete);
        edited.press(Qt::Key_Return);
    });
    EXPECT_EQ(child().name(), std::nullopt);
}

TEST_F(FieldHistory, ADateIsOneExactStepWhateverOfItIsTyped)
{
    expectExactStep(QStringLiteral("Edit Birth"), [&] {
        goTo(*edited.dateField(QStringLiteral("birth"), 0));
        edited.type(QStringLiteral("3"));
        goTo(*edited.dateField(QStringLiteral("birth"), 1));
        edited.type(QStringLiteral("4"));
        goTo(*edited.dateField(QStringLiteral("birth"), 2));
        edited.type(QStringLiteral("1850"));
        edited.press(Qt::Key_Return);
    });
    expectExactStep(QStringLiteral("Edit Death"), [&] {
        goTo(*edited.dateField(QStringLiteral("death"), 2));
        edited.type(QStringLiteral("1911"));
        edited.press(Qt::Key_Return);
    });
}

TEST_F(FieldHistory, NotesAreOneExactStepWithTheirLines)
{
    expectExactStep(QStringLiteral("Edit Notes"), [&] {
        edited.notes()->setFocus();
        edited.type(QStringLiteral("one"));
        edited.press(Qt::Key_Return);
        edited.type(QStringLiteral("two"));
        edited.press(Qt::Key_Return, Qt::ControlModifier);
    });
    EXPECT_EQ(child().additional(), QStringLiteral("one\ntwo"));
}

TEST_F(FieldHistory, WhatIsUndoneLastIsRedoneFirstWhereverTheKeyboardIs)
{
    const auto name = [this] { return static_cast<QWidget*>(edited.nameField()); };
    const auto year = [this] { return static_cast<QWidget*>(edited.dateField(QStringLiteral("birth"), 2)); };
    const auto notes = [this] { return static_cast<QWidget*>(edited.notes()); };
    for (const std::function<QWidget*()>& field : {std::function(name), std::function(year), std::function(notes)}) {
        const QByteArray before = edited.text();
        goTo(*edited.nameField());
        edited.type(QStringLiteral("Renamed"));
        edited.press(Qt::Key_Return);
        edited.settle();
        const QByteArray renamed = edited.text();
        ASSERT_NE(renamed, before);
        field()->setFocus();
        edited.type(QStringLiteral("7"));
        edited.press(Qt::Key_Z, Qt::ControlModifier);
        edited.press(Qt::Key_Z, Qt::ControlModifier);
        edited.settle();
        EXPECT_EQ(edited.text(), before);
        ASSERT_TRUE(field()->hasFocus());
        edited.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        edited.settle();
        EXPECT_EQ(edited.text(), renamed);
        edited.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        edited.document->commit();
        edited.settle();
        EXPECT_EQ(edited.text(), renamed);
        edited.undo();
        ASSERT_EQ(edited.text(), before);
    }
}

TEST_F(FieldHistory, APictureIsOneExactStepAndSoIsItsRemoval)
{
    expectExactStep(QStringLiteral("Set Picture"), [&] { choosePicture(picture); });
    expectExactStep(QStringLiteral("Remove Picture"), [&] { edited.document->list().removePicture(child()); });
}

TEST_F(FieldHistory, AFileThatIsNoPictureIsRefusedInWords)
{
    choosePicture(picture);
    edited.settle();
    const QByteArray before = edited.text();
    const QString other = files.write(QStringLiteral("letter.txt"), "Dear Anna");
    choosePicture(other);
    edited.settle();
    const auto* const message = edited.window().findChild<QMessageBox*>();
    ASSERT_NE(message, nullptr);
    EXPECT_TRUE(message->text().contains(other));
    EXPECT_EQ(edited.text(), before);
}

TEST_F(FieldHistory, WorkingTheRowsOutIsOneExactStep)
{
    edited.document->addPerson();
    edited.settle();
    // Somebody without links lifts everybody else by a row, once all rows are worked out again.
    edited.document->deselectAll();
    edited.settle();
    expectExactStep(QStringLiteral("Update Rows"), [&] { edited.remove(); });
}

TEST_F(FieldHistory, ARenameOfSomebodyWhoWasAloneAndCameBackIsExact)
{
    ListedDocument alone;
    alone.add().setName(QStringLiteral("Anna"));
    alone.settle();
    alone.document->remove();
    alone.settle();
    EXPECT_TRUE(alone.window().isOnboardingVisible());
    alone.undo();
    ASSERT_EQ(alone.names(), QStringList(QStringLiteral("Anna")));
    alone.pressRow(QStringLiteral("Anna"));
    const QByteArray before = alone.text();
    goTo(*alone.nameField());
    alone.type(QStringLiteral("Berta with a name that is wider than before"));
    alone.press(Qt::Key_Return);
    alone.settle();
    EXPECT_EQ(alone.names(), QStringList(QStringLiteral("Berta with a name that is wider than before")));
    alone.undo();
    EXPECT_EQ(alone.text(), before);
}

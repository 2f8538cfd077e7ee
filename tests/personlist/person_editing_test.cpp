// What is typed into the open row, and when it reaches the record.

#include "shown_list.h"

#include "multi_line_text_delegate.h"
#include "notes_field.h"
#include "person_edit.h"

#include <QInputMethodEvent>
#include <QMenu>

#include <gmock/gmock.h>

using namespace lineara;

namespace {

class PersonEditing : public testing::Test
{
protected:
    ShownList shown;
    Person& a = shown.add(QStringLiteral("a"), 2);
    Person& b = shown.add(QStringLiteral("b"), 1);

    PersonEditing()
    {
        shown.context.journal().clear();
        shown.select(a);
    }

    Journal& journal() { return shown.context.journal(); }
    QLineEdit& name() const { return shown.line("name"); }
    QPlainTextEdit& notes() const { return shown.notes(); }

    /// Replaces what is in a field, key by key.
    static void type(QWidget& field, const char* text)
    {
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, QString::fromLatin1(text));
    }
    void expectStep(const char* stepName, std::size_t steps = 1)
    {
        EXPECT_EQ(journal().depth(), steps);
        EXPECT_EQ(journal().undoName(), QString::fromLatin1(stepName));
    }
    static bool isLeftToWindow(QWidget& field, const QKeySequence& shortcut)
    {
        const QKeyCombination keys = shortcut[0];
        QKeyEvent asked(QEvent::ShortcutOverride, keys.key(), keys.keyboardModifiers());
        asked.ignore();
        QApplication::sendEvent(&field, &asked);
        return !asked.isAccepted();
    }
};

} // namespace

TEST_F(PersonEditing, LineBreaksPastedIntoANameBecomeSpaces)
{
    name().setFocus();
    name().selectAll();
    name().insert(QStringLiteral("Anna\r\nMaria\nof\u2029York"));
    QTest::keyClick(&name(), Qt::Key_Return);
    EXPECT_EQ(a.name(), QStringLiteral("Anna Maria of York"));
    EXPECT_EQ(name().text(), QStringLiteral("Anna Maria of York"));
}

TEST_F(PersonEditing, ANameThatIsTooLongForTheFieldIsNotCutByEditing)
{
    const QString full(40'000, u'n');
    a.setName(full);
    ShownList::deliver();
    name().setFocus();
    QTest::keyClick(&name(), Qt::Key_End);
    QTest::keyClick(&name(), Qt::Key_Backspace);
    QTest::keyClick(&name(), Qt::Key_Return);
    EXPECT_EQ(a.name()->left(39'000), full.left(39'000));
}

TEST_F(PersonEditing, ReturnKeepsTheNameAndGivesTheKeyboardBackToTheList)
{
    type(name(), "Anna");
    EXPECT_EQ(a.name(), QStringLiteral("a"));
    QTest::keyClick(&name(), Qt::Key_Return);
    EXPECT_EQ(a.name(), QStringLiteral("Anna"));
    EXPECT_TRUE(shown.table().hasFocus());
    expectStep("Edit Name");
    journal().undo();
    EXPECT_EQ(a.name(), QStringLiteral("a"));
    ShownList::deliver();
    EXPECT_EQ(name().text(), QStringLiteral("a"));
}

TEST_F(PersonEditing, TabKeepsTheNameAndGoesOn)
{
    type(name(), "Anna");
    QTest::keyClick(&name(), Qt::Key_Tab);
    EXPECT_EQ(a.name(), QStringLiteral("Anna"));
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("Birth day"));
}

TEST_F(PersonEditing, LeavingForAnotherPartOfTheWindowKeepsTheName)
{
    type(name(), "Anna");
    shown.goBeside();
    EXPECT_EQ(a.name(), QStringLiteral("Anna"));
    expectStep("Edit Name");
}

TEST_F(PersonEditing, SelectingSomebodyElseKeepsWhatWasTypedForWhomItWasTyped)
{
    type(notes(), "about a");
    shown.list->select(b);
    EXPECT_EQ(a.additional(), QStringLiteral("about a"));
    EXPECT_EQ(b.additional(), std::nullopt);
    EXPECT_EQ(shown.notes().toPlainText(), QString());
    expectStep("Edit Notes");
}

TEST_F(PersonEditing, CommittingKeepsTheNameAndTheCursor)
{
    type(name(), "Anna");
    QTest::keyClick(&name(), Qt::Key_Left);
    shown.list->commitEditing();
    EXPECT_EQ(a.name(), QStringLiteral("Anna"));
    EXPECT_EQ(name().cursorPosition(), 3);
    EXPECT_TRUE(name().hasFocus());
}

TEST_F(PersonEditing, WhatIsTypedAfterACommitIsAStepOfItsOwn)
{
    type(name(), "Anna");
    shown.list->commitEditing();
    QTest::keyClicks(&name(), QStringLiteral("bel"));
    shown.list->commitEditing();
    expectStep("Edit Name", 2);
    journal().undo();
    EXPECT_EQ(a.name(), QStringLiteral("Anna"));
}

TEST_F(PersonEditing, RemovalHidingAndTheEndOfTheListKeepWhatWasTyped)
{
    type(name(), "removed");
    shown.list->removeObject(a);
    EXPECT_EQ(a.name(), QStringLiteral("removed"));
    shown.select(b);
    type(name(), "hidden");
    shown.window.hide();
    EXPECT_EQ(b.name(), QStringLiteral("hidden"));
    shown.window.show();
    type(name(), "gone");
    shown.list.reset();
    EXPECT_EQ(b.name(), QStringLiteral("gone"));
}

TEST_F(PersonEditing, FilteringTheRowAwayKeepsWhatWasTyped)
{
    type(name(), "Anna");
    shown.search().setText(QStringLiteral("zzz"));
    EXPECT_EQ(a.name(), QStringLiteral("Anna"));
}

TEST_F(PersonEditing, AMenuOverAFieldIsStillTheSameVisit)
{
    type(name(), "Anna");
    QMenu menu;
    menu.addAction(QStringLiteral("anything"));
    menu.popup(QPoint(0, 0));
    ShownList::deliver();
    EXPECT_EQ(a.name(), QStringLiteral("a"));
    menu.close();
    ShownList::deliver();
    EXPECT_EQ(name().text(), QStringLiteral("Anna"));
}

TEST_F(PersonEditing, EscapeGivesUpTheEditOfThatField)
{
    type(name(), "Anna");
    QTest::keyClick(&name(), Qt::Key_Escape);
    EXPECT_EQ(name().text(), QStringLiteral("a"));
    EXPECT_TRUE(name().hasFocus());
    type(notes(), "notes");
    QTest::keyClick(&notes(), Qt::Key_Escape);
    EXPECT_EQ(notes().toPlainText(), QString());
    QTest::keyClick(&notes(), Qt::Key_Escape);
    EXPECT_TRUE(shown.table().hasFocus());
    EXPECT_EQ(journal().depth(), 0u);
}

TEST_F(PersonEditing, AVisitWithoutAChangeIsNoStep)
{
    for (QWidget* const field : shown.cell()->fields())
        field->setFocus();
    shown.goBeside();
    type(name(), "a");
    shown.goBeside();
    EXPECT_EQ(journal().depth(), 0u);
    EXPECT_FALSE(journal().canUndo());
}

TEST_F(PersonEditing, AnEmptiedNameIsAbsent)
{
    name().setFocus();
    name().selectAll();
    QTest::keyClick(&name(), Qt::Key_Delete);
    QTest::keyClick(&name(), Qt::Key_Return);
    EXPECT_EQ(a.name(), std::nullopt);
}

TEST_F(PersonEditing, AFieldRefreshesUnlessSomethingIsTypedIntoIt)
{
    type(name(), "typed");
    a.setName(QStringLiteral("from elsewhere"));
    a.setAdditional(QStringLiteral("notes from elsewhere"));
    a.setBirthYear(1850);
    EXPECT_EQ(name().text(), QStringLiteral("typed"));
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("notes from elsewhere"));
    EXPECT_EQ(shown.cell()->findChild<QWidget*>(QStringLiteral("birth"))->findChildren<QLineEdit*>()[2]->text(),
              QStringLiteral("1850"));
}

TEST_F(PersonEditing, UndoInAChangedFieldIsTheFieldsOwnAndTheWindowsOtherwise)
{
    for (QWidget* const field : {static_cast<QWidget*>(&name()), static_cast<QWidget*>(&notes())}) {
        EXPECT_TRUE(isLeftToWindow(*field, QKeySequence::Undo));
        EXPECT_TRUE(isLeftToWindow(*field, QKeySequence::Redo));
        type(*field, "typed");
        EXPECT_FALSE(isLeftToWindow(*field, QKeySequence::Undo));
        shown.list->commitEditing();
        EXPECT_TRUE(isLeftToWindow(*field, QKeySequence::Undo));
    }
    type(name(), "x");
    QTest::keyClick(&name(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(name().text(), QStringLiteral("x"));
    EXPECT_FALSE(isLeftToWindow(name(), QKeySequence::Redo));
}

TEST_F(PersonEditing, TextOfAnInputMethodIsTakenAlong)
{
    type(notes(), "x");
    QInputMethodEvent composed(QString(), {});
    composed.setCommitString(QString::fromUtf8("日本"));
    QApplication::sendEvent(&notes(), &composed);
    shown.list->commitEditing();
    EXPECT_EQ(a.additional(), QString::fromUtf8("x日本"));
}

TEST_F(PersonEditing, ReturnBreaksTheLineInNotesAndControlReturnKeepsThem)
{
    type(notes(), "a");
    QTest::keyClick(&notes(), Qt::Key_Return);
    QTest::keyClicks(&notes(), QStringLiteral("b"));
    QTest::keyClick(&notes(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&notes(), QStringLiteral("c"));
    EXPECT_TRUE(notes().hasFocus());
    EXPECT_EQ(a.additional(), std::nullopt);
    QTest::keyClick(&notes(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.additional(), QStringLiteral("a\nb\nc"));
    EXPECT_TRUE(shown.table().hasFocus());
    expectStep("Edit Notes");
}

TEST_F(PersonEditing, NotesTakeTheirLineBreaksFromTheOneDelegateThatEveryNewListRenews)
{
    const auto delegate = [this] { return static_cast<NotesField&>(notes()).delegate(); };
    const MultiLineTextDelegate* const before = delegate();
    EXPECT_EQ(before, MultiLineTextDelegate::shared().get());
    const PersonTableViewController another(*shown.pool);
    EXPECT_NE(MultiLineTextDelegate::shared().get(), before);
    type(notes(), "1");
    QTest::keyClick(&notes(), Qt::Key_Enter);
    QTest::keyClicks(&notes(), QStringLiteral("2"));
    EXPECT_EQ(notes().toPlainText(), QStringLiteral("1\n2"));
    shown.select(b);
    EXPECT_EQ(delegate(), MultiLineTextDelegate::shared().get());
}

TEST(NotesField, WithoutADelegateReturnEndsTheEditing)
{
    std::vector<FieldEnd> ends;
    NotesField field([&](FieldEnd end) { ends.push_back(end); });
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_THAT(ends, testing::ElementsAre(FieldEnd::Return));
    EXPECT_EQ(field.toPlainText(), QString());
}

TEST(MultiLineTextDelegate, TakesReturnAndNothingElse)
{
    QPlainTextEdit field(QStringLiteral("ab"));
    field.moveCursor(QTextCursor::End);
    field.moveCursor(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    const auto delegate = MultiLineTextDelegate::shared();
    const auto takes = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        return delegate->takeKey(field, QKeyEvent(QEvent::KeyPress, key, modifiers));
    };
    EXPECT_FALSE(takes(Qt::Key_Escape));
    EXPECT_FALSE(takes(Qt::Key_Tab));
    EXPECT_FALSE(takes(Qt::Key_A));
    EXPECT_FALSE(takes(Qt::Key_Return, Qt::ControlModifier));
    EXPECT_EQ(field.toPlainText(), QStringLiteral("ab"));
    EXPECT_TRUE(takes(Qt::Key_Return));
    EXPECT_EQ(field.toPlainText(), QStringLiteral("a\n"));
    EXPECT_EQ(field.textCursor().position(), 2);
}

TEST_F(PersonEditing, NotesThatAreOnlyVisitedStayAsTheyAre)
{
    const QString odd = QString::fromUtf8("a\u00a0b\r\nc\u2028d\u2029e\rf");
    a.setAdditional(odd);
    journal().clear();
    notes().setFocus();
    QTest::keyClick(&notes(), Qt::Key_Tab);
    EXPECT_EQ(a.additional(), odd);
    EXPECT_EQ(journal().depth(), 0u);
}

TEST_F(PersonEditing, TypingIntoNotesLeavesTheRestOfThemAsItIs)
{
    a.setAdditional(QString::fromUtf8("a\u00a0b\r\nc\u2028d"));
    notes().setFocus();
    notes().moveCursor(QTextCursor::End);
    QTest::keyClicks(&notes(), QStringLiteral("!"));
    shown.goBeside();
    EXPECT_EQ(a.additional(), QString::fromUtf8("a\u00a0b\r\nc\u2028d!"));
}

TEST(NotesField, AnEditReplacesNothingButWhatWasEdited)
{
    const QString text = QStringLiteral("one\r\ntwo\r\nthree");
    EXPECT_EQ(withEdit(text, QStringLiteral("one\ntwo\nthree")), text);
    EXPECT_EQ(withEdit(text, QStringLiteral("one\n2\nthree")), QStringLiteral("one\r\n2\r\nthree"));
    EXPECT_EQ(withEdit(text, QStringLiteral("onetwo\nthree")), QStringLiteral("onetwo\r\nthree"));
    EXPECT_EQ(withEdit(text, QString()), QString());
    EXPECT_EQ(withEdit(QString(), QStringLiteral("a\nb")), QStringLiteral("a\nb"));
    EXPECT_EQ(withEdit(QStringLiteral("aa"), QStringLiteral("aaa")), QStringLiteral("aaa"));
}

TEST_F(PersonEditing, TabWalksThroughTheFieldsInOrder)
{
    shown.table().setFocus();
    for (QWidget* const field : shown.cell()->fields()) {
        if (!field->isEnabled())
            continue;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), field);
    }
}

TEST_F(PersonEditing, KeepsOutOfAnEarlierStepThatIsOpenedAgainMeanwhile)
{
    journal().begin(QStringLiteral("Edit Name"));
    b.setName(QStringLiteral("Bert"));
    PersonEdit edit(shown.context, a.recordId());
    for (const char* const typed : {"x", "a"})
        edit.change(QStringLiteral("Edit Name"), [&](Person& edited) { edited.setName(QString::fromLatin1(typed)); });
    journal().amend();
    edit.change(QStringLiteral("Edit Name"), [](Person& edited) { edited.setName(QStringLiteral("Ann")); });
    journal().undo();
    EXPECT_EQ(a.name(), QStringLiteral("a"));
    EXPECT_EQ(b.name(), QStringLiteral("Bert"));
}

// Notes without spaces, as programs leave them who keep pictures or whole files there.

#include "personlist/long_words.h"

#include "notes_field.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <gtest/gtest.h>

#include <ctime>
#include <functional>

namespace lineara {
namespace {

constexpr int fewLetters = 25'000;
constexpr int manyLetters = 8 * fewLetters;

// Eight times the letters take eight times as long, and would take 64 times as long if each line looked at all of them.
constexpr double mostTimes = 16;
constexpr double unmeasurable = 0.05;

QString longWord(int letters)
{
    return QString(letters, u'x');
}

/// How long a field takes to show what `change` makes of it.
double secondsOf(QPlainTextEdit& field, const std::function<void(QPlainTextEdit&)>& change)
{
    const std::clock_t before = std::clock();
    change(field);
    QApplication::processEvents();
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
}

class LongWords : public testing::Test
{
protected:
    struct Shown : QPlainTextEdit
    {
        Shown()
        {
            breakLongWords(*this);
            resize(300, 200);
            showText(*this, QStringLiteral("a few words"));
            show();
            QApplication::processEvents();
        }
    };

    /// Both in fields of their own, which `prepare` fills with the help of a number of letters.
    static void expectLinearTime(
        const std::function<void(QPlainTextEdit&, int)>& change,
        const std::function<void(QPlainTextEdit&, int)>& prepare = [](auto&, int) {})
    {
        const auto secondsFor = [&](int letters) {
            Shown field;
            prepare(field, letters);
            QApplication::processEvents();
            return secondsOf(field, [&](QPlainTextEdit& changed) { change(changed, letters); });
        };
        const double few = secondsFor(fewLetters);
        EXPECT_LT(secondsFor(manyLetters), mostTimes * few + unmeasurable);
    }

    static void expectBetweenWords(const QPlainTextEdit& field)
    {
        EXPECT_EQ(field.wordWrapMode(), QPlainTextEdit().wordWrapMode());
    }
};

void fillWithLongWord(QPlainTextEdit& field, int letters)
{
    showText(field, longWord(letters));
}

void pasteLongWord(QPlainTextEdit& field, int letters)
{
    field.insertPlainText(longWord(letters));
}

TEST_F(LongWords, AreShownInLinearTime)
{
    expectLinearTime(fillWithLongWord);
}

TEST_F(LongWords, ArePastedInLinearTime)
{
    expectLinearTime(pasteLongWord);
}

TEST_F(LongWords, AreTypedAtInLinearTime)
{
    expectLinearTime([](QPlainTextEdit& field, int) { field.insertPlainText(QStringLiteral("y")); }, fillWithLongWord);
}

TEST_F(LongWords, AreTakenBackAndGivenBackInLinearTime)
{
    const auto undoAndRedo = [](QPlainTextEdit& field, int) {
        field.undo();
        expectBetweenWords(field);
        field.redo();
    };
    expectLinearTime(undoAndRedo, pasteLongWord);
}

TEST_F(LongWords, AreJoinedOfShorterOnesInLinearTime)
{
    const auto join = [](QPlainTextEdit& field, int) { field.textCursor().deletePreviousChar(); };
    expectLinearTime(join, [](QPlainTextEdit& field, int letters) {
        field.insertPlainText(longWord(letters / 2) + u'\n' + longWord(letters / 2));
        field.setTextCursor(QTextCursor(field.document()->lastBlock()));
    });
}

// In between there is no text for a moment, which must not be taken for one of short words.
TEST_F(LongWords, ReplaceOneAnotherInLinearTime)
{
    const auto showAnother = [](QPlainTextEdit& field, int letters) { showText(field, longWord(letters) + u'y'); };
    expectLinearTime(showAnother, fillWithLongWord);
    expectLinearTime(
        [](QPlainTextEdit& field, int letters) {
            field.selectAll();
            pasteLongWord(field, letters + 1);
        },
        fillWithLongWord);
}

TEST_F(LongWords, AreBrokenAnywhereAsLongAsThereAreAny)
{
    Shown field;
    showText(field, QStringLiteral("first\n") + longWord(1'000) + QStringLiteral("\nlast"));
    EXPECT_EQ(field.wordWrapMode(), QTextOption::WrapAnywhere);
    field.moveCursor(QTextCursor::End);
    field.insertPlainText(QStringLiteral(" words"));
    EXPECT_EQ(field.wordWrapMode(), QTextOption::WrapAnywhere);
    QTextCursor cursor(field.document());
    cursor.setPosition(500);
    cursor.insertText(QStringLiteral(" "));
    expectBetweenWords(field);
    cursor.deletePreviousChar();
    EXPECT_EQ(field.wordWrapMode(), QTextOption::WrapAnywhere);
    field.clear();
    field.insertPlainText(QStringLiteral("word"));
    expectBetweenWords(field);
}

TEST_F(LongWords, AreThoseInWhichNoLineCanBeBroken)
{
    Shown field;
    showText(field, QString(5'000, QChar(u'\u4e2d'))); // may be broken between any two
    expectBetweenWords(field);
    showText(field, QStringLiteral("word ").repeated(5'000));
    expectBetweenWords(field);
    showText(field, longWord(999));
    expectBetweenWords(field);
    showText(field, QString(5'000, QChar::Nbsp));
    EXPECT_EQ(field.wordWrapMode(), QTextOption::WrapAnywhere);
}

TEST_F(LongWords, FitIntoTheNotes)
{
    const auto secondsFor = [](int letters) {
        NotesField notes([](FieldEnd) {});
        notes.resize(300, 200);
        notes.showNotes(QStringLiteral("a few words"));
        notes.show();
        QApplication::processEvents();
        return secondsOf(notes, [&](QPlainTextEdit& field) {
            notes.showNotes(longWord(letters));
            field.insertPlainText(longWord(letters));
            notes.giveUp();
        });
    };
    const double few = secondsFor(fewLetters);
    EXPECT_LT(secondsFor(manyLetters), mostTimes * few + unmeasurable);
}

} // namespace
} // namespace lineara

#include "elements/shortened_text.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace lineara {
namespace {

TEST(ShortenedText, IsCutAtEachKindOfLineBreak)
{
    for (const QString& lineBreak :
         {QStringLiteral("\n"), QStringLiteral("\r\n"), QStringLiteral("\r"), QStringLiteral("\v"),
          QStringLiteral("\f"), QStringLiteral("\u0085"), QStringLiteral("\u2028"), QStringLiteral("\u2029")}) {
        const QString lines = QStringLiteral("one") + lineBreak + QStringLiteral("two") + lineBreak;
        EXPECT_EQ(shortened(lines + QStringLiteral("three"), {100, 2}).toStdString(),
                  (lines.first(3 + lineBreak.size() + 3) + u'…').toStdString());
        EXPECT_EQ(shortened(lines + QStringLiteral("three"), {100, 3}), lines + QStringLiteral("three"));
        EXPECT_EQ(shortened(lines, {100, 1}), QStringLiteral("one…"));
    }
}

TEST(ShortenedText, IsTheTextItselfWhereThereIsRoomForIt)
{
    EXPECT_EQ(shortened({}, {3}), QString());
    EXPECT_EQ(shortened(QStringLiteral("one"), {3}), QStringLiteral("one"));
    EXPECT_EQ(shortened(QStringLiteral("ones"), {3}), QStringLiteral("one…"));
}

TEST(ShortenedText, IsNotCutWithinALetter)
{
    const QString accented = QStringLiteral("e\u0301");
    EXPECT_EQ(shortened(accented.repeated(3), {3}), QString(accented + u'…'));
    const QString family = QStringLiteral("\U0001F469\u200D\U0001F467"); // woman and girl, as one sign
    for (qsizetype room = 1; room < family.size(); ++room)
        EXPECT_EQ(shortened(u'a' + family, {1 + room}), QStringLiteral("a…"));
    EXPECT_LE(shortened(QString(500, u'\u0301'), {100}).size(), 101);
}

TEST(ShortenedText, LeavesUsualNamesAsTheyAre)
{
    const QString name = QStringLiteral("Anna Maria von und zu Schneckenhausen-Hinterwaldburg");
    EXPECT_EQ(toldName(name), name);
}

TEST(ShortenedText, LetsLongWordsOfNamesBeBroken)
{
    const QString letter = QStringLiteral("e\u0301");
    const QString told = toldName(letter.repeated(1'000));
    EXPECT_EQ(QString(told).remove(QChar(u'\u200b')), QString(letter.repeated(40) + u'…'));
    for (const QString& word : told.split(QChar(u'\u200b'))) {
        EXPECT_LE(word.size(), 41);
        EXPECT_TRUE(word.startsWith(u'e') || word == QStringLiteral("…"));
    }
}

TEST(ShortenedText, LetsNamesBeBrokenWhereTheirBlanksDoNot)
{
    const QString told = toldName(QStringLiteral("Anna\u00a0").repeated(15));
    EXPECT_EQ(told.count(QChar(u'\u200b')), 1);
    EXPECT_EQ(told.indexOf(QChar(u'\u200b')), 40);
}

TEST(ShortenedText, TooltipsShowMarksAsTheyAre)
{
    EXPECT_EQ(plainToolTip(QStringLiteral("<b>Anna</b> & Bert\nCarl\r\nDora")),
              QStringLiteral("<p>&lt;b&gt;Anna&lt;/b&gt; &amp; Bert<br>Carl<br>Dora</p>"));
}

TEST(ShortenedText, NothingHasNoTooltip)
{
    EXPECT_TRUE(plainToolTip({}).isEmpty());
}

TEST(ShortenedText, TooltipsFitOnAScreen)
{
    EXPECT_LT(plainToolTip(QStringLiteral("Anna ").repeated(100'000)).size(), 2'100);
    EXPECT_EQ(plainToolTip(QStringLiteral("Anna\n").repeated(100)).count(QStringLiteral("<br>")), 29);
}

} // namespace
} // namespace lineara

#include "elements/leaf_info_view.h"

#include "elements/colours.h"
#include "elements/family.h"
#include "elements/node_layout.h"
#include "node_text.h"

#include <gmock/gmock.h>

#include <ctime>

namespace lineara {
namespace {

using tests::Family;

class LeafInfoViewTest : public testing::Test
{
protected:
    LeafInfoView& infoOf(const QString& name) { return family.add(name).leafView()->infoView(); }

    Family family;
};

TEST_F(LeafInfoViewTest, LooksAsGiven)
{
    LeafInfoView& info = infoOf(u"Ann"_qs);
    EXPECT_EQ(info.backgroundColor(), QColor::fromRgbF(0.82f, 0.82f, 0.82f, 1.0f));
    EXPECT_EQ(LeafInfoView::borderWidth, 1.0);
    EXPECT_EQ(LeafInfoView::cornerRadius, 6.0);
}

TEST_F(LeafInfoViewTest, ShortNameStandsInOneLine)
{
    const LeafInfoView& info = infoOf(u"Ann Lee"_qs);
    EXPECT_EQ(info.nameLines(), QStringList{u"Ann Lee"_qs});
    EXPECT_FALSE(info.toolTip());
}

TEST_F(LeafInfoViewTest, LongNameIsBrokenWhereItsHalvesAreMostAlike)
{
    const LeafInfoView& info = infoOf(u"John Fitzgerald Kennedy"_qs);
    EXPECT_EQ(info.nameLines(), (QStringList{u"John Fitzgerald"_qs, u"Kennedy"_qs}));
    EXPECT_FALSE(info.toolTip());
}

TEST_F(LeafInfoViewTest, EndlessNameIsElidedWithTheWholeAsToolTip)
{
    const QString name = QString(u"Maximiliana"_qs).repeated(20);
    const LeafInfoView& info = infoOf(name);
    ASSERT_EQ(info.nameLines().size(), 1);
    EXPECT_TRUE(info.nameLines().front().endsWith(u'…'));
    EXPECT_EQ(info.toolTip(), name);
    EXPECT_LE(nodeFonts().name.metrics().horizontalAdvance(info.nameLines().front()), node_layout::greatestTextWidth);
}

TEST_F(LeafInfoViewTest, NoNameMakesANodeWiderThanTheGreatestWidth)
{
    for (const QString& name :
         {QString(u'W').repeated(5000), QString(u"Wilhelmina "_qs).repeated(400), QString(u'漢').repeated(300),
          QString(u'ش').repeated(300), QString(u' ').repeated(300)}) {
        const int width = family.add(name).leafView()->width();
        EXPECT_LE(width, node_layout::greatestNodeWidth);
        EXPECT_GE(width, node_layout::leastNodeSize);
    }
}

TEST_F(LeafInfoViewTest, EndlessNamesTakeNoLongerThanLongOnes)
{
    const auto secondsFor = [this](int words) {
        const LeafInfoView& info = infoOf(QString(u"Wilhelmina "_qs).repeated(words));
        const std::clock_t before = std::clock();
        for (int time = 0; time < 20; ++time)
            EXPECT_EQ(info.nameLines().size(), 2);
        return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    };
    secondsFor(1'000);
    const double thousand = secondsFor(1'000);
    EXPECT_LT(secondsFor(8'000), 24 * thousand);
}

TEST_F(LeafInfoViewTest, NamelessPersonShowsAHint)
{
    for (const std::optional<QString>& name :
         {std::optional<QString>(), std::optional<QString>(u""_qs), std::optional<QString>(u" \n "_qs)}) {
        const Person& person = family.context.insertPerson(tests::named(name));
        const LeafInfoView& info = person.leafView()->infoView();
        EXPECT_TRUE(info.isNameless());
        EXPECT_EQ(info.nameLines(), QStringList{u"Unnamed"_qs});
        EXPECT_FALSE(info.toolTip());
    }
    EXPECT_FALSE(infoOf(u"Ann"_qs).isNameless());
}

TEST_F(LeafInfoViewTest, LineEndsInNamesAreShownAsBlanks)
{
    EXPECT_EQ(infoOf(u" Ann\r\n\tLee "_qs).nameLines(), QStringList{u"Ann Lee"_qs});
}

TEST_F(LeafInfoViewTest, EveryLifeSpanFitsThePanel)
{
    Person& person = family.add(u"A"_qs);
    const LeafInfoView& info = person.leafView()->infoView();
    const int usual = info.width();
    person.setBirthYear(1901);
    person.setDeathYear(1968);
    EXPECT_EQ(info.width(), usual);
    EXPECT_EQ(info.eraLine(), u"1901 - 1968"_qs);
    for (const int year : {-999, 9999, 0}) {
        person.setBirthYear(year);
        person.setDeathYear(year);
        EXPECT_EQ(info.width(), usual);
        EXPECT_LE(nodeFonts().era.advance(info.eraLine()) + 2 * node_layout::textMargin, info.width());
    }
    person.setDeathYear(1234567);
    EXPECT_GE(info.width(), nodeFonts().era.advance(info.eraLine()) + 2 * node_layout::textMargin);
    person.setBirthYear(std::numeric_limits<std::int32_t>::min());
    person.setDeathYear(std::numeric_limits<std::int32_t>::min());
    EXPECT_LE(person.leafView()->width(), node_layout::greatestNodeWidth);
}

TEST_F(LeafInfoViewTest, WidthFollowsTheName)
{
    Person& person = family.add(u"A"_qs);
    const int before = person.leafView()->width();
    person.setName(u"Bartholomew Lee"_qs);
    EXPECT_GT(person.leafView()->width(), before);
    person.setName(u"A"_qs);
    EXPECT_EQ(person.leafView()->width(), before);
}

TEST_F(LeafInfoViewTest, TableOfWidthsAgreesWithTheShapedText)
{
    const AdvanceTable& font = nodeFonts().name;
    for (const QString& text : {u"Ann Lee"_qs, u"Zoë Müller-Łukasz"_qs, u"Иван Грозный"_qs, u"漢字"_qs, u"علي"_qs}) {
        const double shaped = font.metrics().horizontalAdvance(text);
        EXPECT_NEAR(font.advance(text), shaped, 2.0) << qPrintable(text);
    }
    EXPECT_EQ(font.advance(u""), 0);
}

} // namespace
} // namespace lineara

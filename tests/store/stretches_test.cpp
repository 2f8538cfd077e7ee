#include "family_texts.h"

namespace lineara::test {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// Persons z102 and up, the members of each made by `membersOf`, in a file many stretches long.
template<class MembersOf>
QByteArray longFile(int persons, MembersOf membersOf)
{
    QByteArray ids;
    QByteArray objects;
    for (int i = 0; i < persons; ++i) {
        const auto id = "z" + QByteArray::number(102 + i);
        ids += (i == 0 ? "" : " ") + id;
        objects += person(id, membersOf(i) + inPool());
    }
    return fileWith(pool(ids) + objects, QByteArray::number(102 + persons));
}

QByteArray noteOf(int size)
{
    return attribute("additional", "string", QByteArray(size, 'n'));
}

} // namespace

TEST(Stretches, LongFileComesBackByteForByte)
{
    const auto text = longFile(20'000, [](int i) { return noteOf(i % 300 + 1); });
    EXPECT_THAT(loaded(text).repairs, IsEmpty());
    EXPECT_TRUE(rewritten(text) == text);
}

TEST(Stretches, EndsOfObjectsWithinOthersAreNoEnds)
{
    // Wherever a stretch is tried to end, it may be within one of these.
    const QByteArray strangers[] = {
        "        <!-- </object> <object> -->\n",
        "        <note><![CDATA[</object>]]></note>\n",
        "        <group><object type=\"PERSON\" id=\"z1\"><x/></object><object/></group>\n",
        "        <?hint </object> ?>\n",
        "        <note text='</object>'/>\n",
    };
    for (int round = 0; round < 20; ++round) {
        const auto text =
            longFile(1'500, [&](int i) { return noteOf(40 + round) + strangers[(i + round) % 5].repeated(20); });
        EXPECT_THAT(loaded(text).repairs, IsEmpty());
        ASSERT_TRUE(rewritten(text) == text);
    }
}

TEST(Stretches, OneObjectMayBeLongerThanManyStretches)
{
    const auto text = longFile(5, [](int) { return noteOf(3'000'000); });
    EXPECT_TRUE(rewritten(text) == text);
}

TEST(Stretches, DefectFarIntoTheFileIsFoundAtItsLine)
{
    const auto text =
        longFile(10'000, [](int i) { return noteOf(60) + attribute("x", "int32", i == 9'000 ? "far" : "1"); });
    const auto line = "line " + std::to_string(text.first(text.indexOf(">far<")).count('\n') + 1);
    EXPECT_THAT(refusal(text), AllOf(HasSubstr(line), HasSubstr("“z9102”"), HasSubstr("“far”")));
}

TEST(Stretches, TornMarkupFarIntoTheFileIsFoundAtItsLine)
{
    auto text = longFile(10'000, [](int) { return noteOf(60); });
    const auto place = text.indexOf("</object>", text.size() * 3 / 4);
    text.replace(place, 9, "</subject>");
    const auto line = "line " + std::to_string(text.first(place).count('\n') + 1);
    EXPECT_THAT(refusal(text), AllOf(HasSubstr(line), HasSubstr("not well-formed")));
}

TEST(Stretches, BadBytesFarIntoTheFileAreFoundAtTheirLine)
{
    for (const char bad : {'\0', '\xE4'}) {
        auto text = longFile(10'000, [](int) { return noteOf(60); });
        const auto place = text.indexOf("nnn", text.size() * 3 / 4);
        text[place] = bad;
        const auto line = "line " + std::to_string(text.first(place).count('\n') + 1);
        EXPECT_THAT(refusal(text), HasSubstr(line));
    }
}

} // namespace lineara::test

#include "family_texts.h"

#include <random>

namespace lineara::test {

using testing::IsEmpty;

namespace {

const std::vector<QByteArray>& strangers()
{
    static const std::vector<QByteArray> all = {
        "<attribute name=\"nickname\" type=\"string\">Bee &amp; <![CDATA[<x>]]> </attribute>",
        "<attribute name='weight' type='double'   >1.5</attribute >",
        "<relationship name=\"godparents\" type=\"0/0\" destination=\"PERSON\" idrefs=\"z7 z8\"/>",
        "<!-- a comment > with < signs -->",
        "<?hint keep=\"this\" ?>",
        "<note a='>' b=\"/>\"><note>\n  nested\n</note><note/><!-- </note> --></note>",
    };
    return all;
}

/// The text with each line of the given indentation followed or led by strange elements, somewhere.
QByteArray sprinkled(const QByteArray& text, const QByteArray& indent, const QByteArray& open, const QByteArray& close,
                     std::mt19937& random)
{
    QByteArray result;
    bool inside = false;
    int number = 7000;
    for (const auto& line : text.split('\n')) {
        const auto content = line.trimmed();
        const bool atSlot = inside && line.startsWith(indent + "<") && !line.startsWith(indent + "</");
        const bool ends = content.startsWith(close);
        if (atSlot || ends) {
            for (auto count = random() % 3; inside && count > 0; --count) {
                auto stranger = strangers()[random() % strangers().size()];
                if (indent.size() == 4 && random() % 2 == 0)
                    stranger = "<object type=\"PLACE\" id=\"z" + QByteArray::number(++number) + "\"><a/></object>";
                result += indent + stranger + '\n';
            }
        }
        if (content.startsWith(open))
            inside = true;
        if (ends)
            inside = false;
        result += line + '\n';
    }
    result.chop(1);
    return result;
}

} // namespace

TEST(UnknownContent, SurvivesAtItsPlaceInEveryObject)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        const auto text = sprinkled(smallFamily(), "        ", "<object", "</object", random);
        EXPECT_THAT(loaded(text).repairs, IsEmpty());
        ASSERT_EQ(rewritten(text), text);
    }
}

TEST(UnknownContent, SurvivesBetweenTheObjects)
{
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        auto text = sprinkled(smallFamily(), "    ", "</databaseInfo", "</database>", random);
        text.replace("<nextObject>106<", "<nextObject>9000<");
        EXPECT_THAT(loaded(text).repairs, IsEmpty());
        ASSERT_EQ(rewritten(text), text);
    }
}

TEST(UnknownContent, SurvivesInTheInfo)
{
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        const auto text = sprinkled(smallFamily(), "        ", "<databaseInfo", "</databaseInfo", random);
        EXPECT_THAT(loaded(text).repairs, IsEmpty());
        ASSERT_EQ(rewritten(text), text);
    }
}

TEST(UnknownContent, SurvivesInPoolsPicturesAndImportedRecords)
{
    const auto stranger = QByteArray("        <attribute name=\"place\" type=\"string\">attic</attribute>\n");
    const auto text =
        fileWith(object("POOL", "z101", stranger + links("persons", "z102") + stranger) +
                 person("z102", inPool() + links("pic", "z103", "PIC", "0/1")) +
                 object("PIC", "z103",
                        attribute("data", "binary", "QUJD") + stranger + links("person", "z102", "PERSON", "0/1")) +
                 source("z104", "0 HEAD\n", stranger));
    EXPECT_EQ(rewritten(text), text);
}

TEST(UnknownContent, OfOtherMetadataSurvives)
{
    const auto text = smallFamily().replace("    </databaseInfo>",
                                            "        <metadata key=\"window\">1 2</metadata>\n    </databaseInfo>");
    EXPECT_EQ(rewritten(text), text);
}

TEST(UnknownContent, StaysWithItsPersonWhenOthersChange)
{
    const auto stranger = QByteArray("        <attribute name=\"nickname\" type=\"string\">Bee</attribute>\n");
    const auto text = fileWith(pool("z102 z103") + person("z102", attribute("name", "string", "Ada") + inPool()) +
                               person("z103", attribute("name", "string", "Ben") + stranger + inPool()));
    const auto family = loaded(text);
    family.context->remove(personOf(family, 102));
    personOf(family, 103).setName(std::nullopt);
    EXPECT_TRUE(textOf(*family.context).contains("id=\"z103\">\n" + inPool() + stranger + "    </object>"));
}

} // namespace lineara::test

#include "version_samples.h"

#include <algorithm>

namespace lineara::test {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Reading, EveryAttributeArrivesWithItsValue)
{
    const auto family = loaded(
        fileWith(pool("z102") +
                 person("z102", attribute("name", "string", "Ada") + attribute("additional", "string", "notes") +
                                    attribute("birthDay", "int32", "10") + attribute("birthMonth", "int32", "12") +
                                    attribute("birthYear", "int32", "1815") + attribute("deathDay", "int32", "27") +
                                    attribute("deathMonth", "int32", "11") + attribute("deathYear", "int32", "1852") +
                                    attribute("generation", "int32", "3") + attribute("x", "int32", "-1000000000"))));
    EXPECT_THAT(family.repairs, IsEmpty());
    const PersonValues expected{u"Ada"_qs, u"notes"_qs, 10, 12, 1815, 27, 11, 1852, 3, -1'000'000'000};
    EXPECT_EQ(personOf(family, 102).values(), expected);
}

TEST(Reading, AbsentAttributesStayAbsent)
{
    const auto family = loaded(fileWith(pool("z102") + person("z102")));
    EXPECT_EQ(personOf(family, 102).values(), PersonValues{});
}

TEST(Reading, SetsKeepTheOrderOfTheFile)
{
    const auto family = loaded(smallFamily());
    EXPECT_THAT(family.repairs, IsEmpty());
    EXPECT_THAT(numbers(personOf(family, 102).children()), ElementsAre(104, 105));
    EXPECT_THAT(numbers(personOf(family, 104).parents()), ElementsAre(102, 103));
    EXPECT_THAT(numbers(personOf(family, 105).parents()), ElementsAre(103, 102));
    EXPECT_THAT(numbers(personOf(family, 103).partners()), ElementsAre(102));
    EXPECT_THAT(numbers(family.context->allPools().front()->persons()), ElementsAre(102, 103, 104, 105));
}

TEST(Reading, IdentityOfTheStoreIsKept)
{
    const auto family = loaded(smallFamily());
    EXPECT_EQ(family.context->storeUuid(), QUuid(u"0f9619ff-8b86-4011-b42d-00c04fc964ff"_qs));
    EXPECT_EQ(family.context->nextNumber(), 106U);
    EXPECT_EQ(family.context->insertPerson().recordId().number, 106U);
}

TEST(Reading, ObjectsMayComeInAnyOrder)
{
    const auto family = loaded(fileWith(person("z104", links("parents", "z102")) +
                                        person("z102", links("children", "z104")) + pool("z102 z104")));
    EXPECT_THAT(family.repairs, IsEmpty());
    EXPECT_THAT(numbers(personOf(family, 104).parents()), ElementsAre(102));
}

TEST(Reading, NumbersFarApartAreFound)
{
    const auto family =
        loaded(fileWith(pool("z102 z999999999999999998") + person("z102", links("children", "z999999999999999998")) +
                            person("z999999999999999998", links("parents", "z102")),
                        "999999999999999999"));
    EXPECT_THAT(family.repairs, IsEmpty());
    EXPECT_THAT(numbers(personOf(family, 102).children()), ElementsAre(999999999999999998U));
}

TEST(Reading, LastNumbersAreReadBackAfterTheyWereWritten)
{
    const auto first = loaded(fileWith(person("z102"), "999999999999999999"));
    EXPECT_EQ(first.context->allPools().front()->recordId().number, 999999999999999999U);
    const auto second = loaded(textOf(*first.context));
    EXPECT_THAT(second.repairs, IsEmpty());
    EXPECT_EQ(second.context->nextNumber(), 1000000000000000000U);
}

TEST(Reading, AFileWithoutAnythingIsAnEmptyFamily)
{
    const auto family = loaded(fileWith("", "101"));
    EXPECT_THAT(family.repairs, IsEmpty());
    EXPECT_THAT(family.context->allPersons(), IsEmpty());
    EXPECT_THAT(family.context->allPools(), IsEmpty());
}

TEST(Reading, PersonsOfASecondPoolAndPersonsWithoutOneAreThere)
{
    const auto family =
        loaded(fileWith(pool("z102") + pool("z104", "z103") + person("z102", links("partners", "z104")) +
                        person("z104", links("partners", "z102")) + person("z105")));
    EXPECT_THAT(family.repairs, IsEmpty());
    const auto pools = family.context->allPools();
    ASSERT_EQ(pools.size(), 2U);
    EXPECT_EQ(personOf(family, 102).pool(), pools[0]);
    EXPECT_EQ(personOf(family, 104).pool(), pools[1]);
    EXPECT_EQ(personOf(family, 105).pool(), nullptr);
}

TEST(Reading, PicturesArriveByteForByte)
{
    QByteArray bytes;
    for (int i = 0; i < 300'001; ++i)
        bytes += static_cast<char>(i * 7);
    const auto family = loaded(
        fileWith(pool("z102") + person("z102", links("pic", "z103", "PIC", "0/1")) +
                 object("PIC", "z103", attribute("data", "binary", bytes.toBase64()) + links("person", "z102"))));
    EXPECT_THAT(family.repairs, IsEmpty());
    ASSERT_NE(personOf(family, 102).pic(), nullptr);
    EXPECT_TRUE(personOf(family, 102).pic()->data() == bytes);
    EXPECT_EQ(personOf(family, 102).pic()->person(), &personOf(family, 102));
}

TEST(Reading, APictureWithoutBytesDiffersFromAnEmptyOne)
{
    const auto family =
        loaded(fileWith(object("PIC", "z102", "") + object("PIC", "z103", attribute("data", "binary", ""))));
    EXPECT_FALSE(family.context->pic(RecordId{102})->hasData());
    EXPECT_TRUE(family.context->pic(RecordId{103})->hasData());
    EXPECT_TRUE(family.context->pic(RecordId{103})->data().isEmpty());
}

TEST(Reading, BlanksWithinBase64AreNoData)
{
    const auto family = loaded(fileWith(object("PIC", "z103", attribute("data", "binary", "\n  QUJD\n  REVG\n"))));
    EXPECT_EQ(family.context->pic(RecordId{103})->data(), QByteArray("ABCDEF"));
}

TEST(Reading, ImportedRecordsArriveByteForByte)
{
    const QByteArray told = "0 @I1@ INDI\n1 NAME Zoë /O'Oak/\n1 NOTE a &lt; b &amp; c &gt; d\n2 CONT \tx  \n";
    const auto text =
        fileWith(pool("z102") + person("z102", inPool() + madeOf("z105")) + source("z103", "0 HEAD\n1 CHAR UTF-8\n") +
                 source("z104", "0 TRLR\n") + source("z105", told, ofPerson("z102")));
    const auto family = loaded(text);
    EXPECT_THAT(family.repairs, IsEmpty());
    const auto& context = *family.context;
    EXPECT_EQ(context.source(RecordId{103})->text(), "0 HEAD\n1 CHAR UTF-8\n");
    EXPECT_EQ(context.source(RecordId{103})->origin(), (SourceOrigin{u"a.ged"_qs, 12}));
    EXPECT_EQ(context.source(RecordId{103})->person(), nullptr);
    ASSERT_NE(personOf(family, 102).source(), nullptr);
    EXPECT_EQ(personOf(family, 102).source()->text(),
              "0 @I1@ INDI\n1 NAME Zoë /O'Oak/\n1 NOTE a < b & c > d\n2 CONT \tx  \n");
    EXPECT_EQ(personOf(family, 102).source()->person(), &personOf(family, 102));
    EXPECT_EQ(rewritten(text), text);
}

TEST(Reading, ImportedRecordsOfOneFileShareItsName)
{
    const auto family = loaded(fileWith(source("z102", "0 HEAD\n") + source("z103", "0 TRLR\n")));
    EXPECT_EQ(family.context->source(RecordId{102})->origin().file.constData(),
              family.context->source(RecordId{103})->origin().file.constData());
}

TEST(Reading, ImportedRecordsMayLackEverything)
{
    const auto family = loaded(fileWith(source("z102", "0 HEAD\n") + object("SOURCERECORD", "z103", "") +
                                        object("SOURCERECORD", "z104", attribute("text", "string", ""))));
    EXPECT_THAT(family.repairs, IsEmpty());
    for (const std::uint64_t number : {103u, 104u}) {
        EXPECT_EQ(family.context->source(RecordId{number})->text(), "");
        EXPECT_EQ(family.context->source(RecordId{number})->origin(), SourceOrigin{});
    }
}

TEST(Reading, ImportedRecordsTellWhatTheyPointedAtInVain)
{
    const auto text = fileWith(source("z102", "0 HEAD\n", "        <attribute name=\"dangling\" type=\"string\"/>\n") +
                               source("z103", "0 @N1@ NOTE\n") +
                               source("z104", "1 SOUR @S9@\n", attribute("dangling", "string", "@S9@a &amp; b@")));
    const auto family = loaded(text);
    const auto danglingOf = [&](std::uint64_t number) {
        return family.context->source(RecordId{number})->origin().dangling;
    };
    EXPECT_FALSE(danglingOf(102).isNull());
    EXPECT_EQ(danglingOf(102), "");
    EXPECT_TRUE(danglingOf(103).isNull());
    EXPECT_EQ(danglingOf(104), "@S9@a & b@");
    EXPECT_EQ(rewritten(text), text);
}

TEST(Reading, ImportedRecordsInAnyLayoutAreUnderstood)
{
    auto text = fileWith(pool("z102") + person("z102", inPool() + madeOf("z103")) +
                         source("z103", "0 @I1@ INDI&#13;&#10;1 NAME <![CDATA[<Ada> & co]]>&#10;", ofPerson("z102")));
    const auto plain = rewritten(text);
    EXPECT_TRUE(plain.contains("0 @I1@ INDI&#13;\n1 NAME &lt;Ada&gt; &amp; co\n</attribute>"));
    EXPECT_EQ(rewritten(plain), plain);
    text.replace("\n", "\r\n").replace("    <", "<").replace("\"", "'");
    EXPECT_EQ(rewritten(text), plain);
}

TEST(Reading, FrozenFilesGiveBackTheirImportedRecords)
{
    const auto frozen = sample(u"imported_14"_qs);
    const auto family = loaded(frozen);
    EXPECT_THAT(family.repairs, IsEmpty());
    const SourceRecord& record = *personOf(family, 102).source();
    EXPECT_EQ(record.origin(), (SourceOrigin{u"small.ged"_qs, 6}));
    EXPECT_EQ(record.text(), "0 @I1@ INDI\n1 NAME Ada /Miller/\n1 SEX F\n"
                             "1 OCCU Teacher of <letters> & \"numbers\"\n");
    EXPECT_EQ(family.context->source(RecordId{107})->text(), "0 @F1@ FAM\n1 WIFE @I1@\n1 CHIL @I2@\n");
    EXPECT_EQ(textOf(*family.context), frozen);
}

TEST(Reading, AnyLayoutOfTheXmlIsUnderstood)
{
    auto text = smallFamily();
    text.replace("\n", "\r\n").replace("    <", "<").replace("\"", "'").replace("'/>", "'  ></relationship >");
    text.prepend("\xEF\xBB\xBF");
    EXPECT_THAT(loaded(text).repairs, IsEmpty());
    EXPECT_EQ(rewritten(text), smallFamily());
}

TEST(Reading, TheCallersBytesStayAsTheyWere)
{
    const auto text = smallFamily();
    const QByteArray copy(text.constData(), text.size());
    loaded(text);
    EXPECT_EQ(text, copy);
}

TEST(Reading, NothingIsJournalled)
{
    const auto family = loaded(smallFamily());
    EXPECT_FALSE(family.context->journal().canUndo());
}

} // namespace lineara::test

#include "family_texts.h"
#include "hang_guard.h"

namespace lineara::test {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// Reads the text; whatever was mended, the result must be sound.
LoadedFamily mendedFamily(const QByteArray& text)
{
    auto family = loaded(text);
    const auto again = loaded(textOf(*family.context));
    EXPECT_THAT(again.repairs, IsEmpty());
    EXPECT_EQ(textOf(*again.context), textOf(*family.context));
    return family;
}

std::vector<std::string> repairsOf(const LoadedFamily& family)
{
    std::vector<std::string> result;
    for (const auto& repair : family.repairs)
        result.push_back(repair.toStdString());
    return result;
}

} // namespace

TEST(Repair, ChildWithoutItsParent)
{
    const auto family = mendedFamily(fileWith(
        pool("z102 z103 z104") + person("z102", attribute("name", "string", "Ada") + links("children", "z104")) +
        person("z103", links("children", "z104")) + person("z104", links("parents", "z103"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(testing::AllOf(HasSubstr("z104"), HasSubstr("“Ada” (z102)"),
                                                              HasSubstr("parents"), HasSubstr("completed"))));
    EXPECT_THAT(numbers(personOf(family, 104).parents()), ElementsAre(103, 102));
}

TEST(Repair, ParentWithoutItsChild)
{
    const auto family =
        mendedFamily(fileWith(pool("z102 z103 z104") + person("z102", links("children", "z103")) +
                              person("z103", links("parents", "z102")) + person("z104", links("parents", "z102"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("children")));
    EXPECT_THAT(numbers(personOf(family, 102).children()), ElementsAre(103, 104));
}

TEST(Repair, PartnerOnOneSideOnly)
{
    const auto family =
        mendedFamily(fileWith(pool("z102 z103") + person("z102", links("partners", "z103")) + person("z103")));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("partners")));
    EXPECT_THAT(numbers(personOf(family, 103).partners()), ElementsAre(102));
}

TEST(Repair, NamedTwice)
{
    const auto family = mendedFamily(fileWith(pool("z102 z103 z102") + person("z102", links("children", "z103 z103")) +
                                              person("z103", links("parents", "z102"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("twice"), HasSubstr("second time")));
    EXPECT_THAT(numbers(personOf(family, 102).children()), ElementsAre(103));
    EXPECT_THAT(numbers(family.context->allPools().front()->persons()), ElementsAre(102, 103));
}

TEST(Repair, NamedTwiceInsteadOfAnother)
{
    const auto family = mendedFamily(fileWith(pool("z102 z103 z104") + person("z102", links("partners", "z103 z103")) +
                                              person("z103", links("partners", "z102 z104")) +
                                              person("z104", links("partners", "z103"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("twice")));
    EXPECT_THAT(numbers(personOf(family, 103).partners()), ElementsAre(102, 104));
}

TEST(Repair, LinkedToItself)
{
    const auto family =
        mendedFamily(fileWith(pool("z102") + person("z102", links("children", "z102") + links("parents", "z102") +
                                                                links("partners", "z102"))));
    EXPECT_THAT(repairsOf(family), SizeIs(3));
    EXPECT_THAT(personOf(family, 102).children(), IsEmpty());
    EXPECT_THAT(personOf(family, 102).parents(), IsEmpty());
    EXPECT_THAT(personOf(family, 102).partners(), IsEmpty());
}

TEST(Repair, ImportedRecordWhosePersonWasRemovedWithoutIt)
{
    const auto family = mendedFamily(fileWith(
        pool("z103") + person("z103", inPool() + madeOf("z105")) + source("z104", "0 @I1@ INDI\n", ofPerson("z102")) +
        source("z105", "0 @I2@ INDI\n", ofPerson("z103")) + source("z106", "0 TRLR\n")));
    EXPECT_THAT(repairsOf(family),
                ElementsAre(testing::AllOf(HasSubstr("z104"), HasSubstr("z102"), HasSubstr("left out"))));
    EXPECT_EQ(family.context->source(RecordId{104}), nullptr);
    EXPECT_EQ(family.context->source(RecordId{106})->text(), "0 TRLR\n");
    ASSERT_NE(personOf(family, 103).source(), nullptr);
    EXPECT_EQ(personOf(family, 103).source()->text(), "0 @I2@ INDI\n");
}

TEST(Repair, ImportedRecordThatOnlyItsPersonStillNames)
{
    const auto family =
        mendedFamily(fileWith(pool("z103") + person("z103", inPool() + madeOf("z104")) +
                              source("z104", "0 @I1@ INDI\n", "        <strange/>\n" + ofPerson("z102"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(testing::AllOf(HasSubstr("z104"), HasSubstr("completed"))));
    ASSERT_NE(personOf(family, 103).source(), nullptr);
    EXPECT_EQ(personOf(family, 103).source()->text(), "0 @I1@ INDI\n");
}

TEST(Repair, ThirdParent)
{
    const auto family =
        mendedFamily(fileWith(pool("z102 z103 z104 z105") + person("z102", links("children", "z105")) +
                              person("z103", links("children", "z105")) + person("z104", links("children", "z105")) +
                              person("z105", attribute("name", "string", "Dan") + links("parents", "z104 z102 z103"))));
    EXPECT_THAT(repairsOf(family),
                ElementsAre(testing::AllOf(HasSubstr("“Dan” (z105)"), HasSubstr("two parents"), HasSubstr("z103"))));
    EXPECT_THAT(numbers(personOf(family, 105).parents()), ElementsAre(104, 102));
    EXPECT_THAT(personOf(family, 103).children(), IsEmpty());
}

TEST(Repair, CycleOfParents)
{
    const auto family = mendedFamily(fileWith(
        pool("z102 z103 z104") + person("z102", links("parents", "z104") + links("children", "z103")) +
        person("z103", links("parents", "z102") + links("children", "z104")) +
        person("z104", attribute("name", "string", "Eve") + links("parents", "z103") + links("children", "z102"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(testing::AllOf(HasSubstr("z102 is an ancestor of"),
                                                              HasSubstr("“Eve” (z104)"), HasSubstr("left out"))));
    EXPECT_THAT(personOf(family, 104).children(), IsEmpty());
    EXPECT_THAT(personOf(family, 102).parents(), IsEmpty());
    EXPECT_THAT(numbers(personOf(family, 103).children()), ElementsAre(104));
}

TEST(Repair, ManyCyclesTakeNoLongerThanTheyAreMany)
{
    // Everybody is the parent and the child of both neighbours.
    constexpr int count = 30'000;
    QByteArray everybody;
    QByteArray persons;
    for (int i = 0; i < count; ++i) {
        const auto id = [](int n) { return "z" + QByteArray::number(102 + (n + count) % count); };
        const auto neighbours = id(i - 1) + ' ' + id(i + 1);
        everybody += id(i) + ' ';
        persons += person(id(i), links("parents", neighbours) + links("children", neighbours));
    }
    const auto family = loaded(fileWith(pool(everybody) + persons, "99999"));
    EXPECT_THAT(family.repairs, SizeIs(count));
}

TEST(Repair, PlacesBeyondAllMeasure)
{
    const auto family = mendedFamily(
        fileWith(pool("z102 z103 z104") +
                 person("z102", attribute("name", "string", "Ada") + attribute("x", "int32", "2147483647") + inPool()) +
                 person("z103", attribute("x", "int32", "-1000000001") + inPool()) +
                 person("z104", attribute("generation", "int32", "1000000") + attribute("x", "int32", "1000000000") +
                                    inPool())));
    EXPECT_THAT(repairsOf(family), ElementsAre(testing::AllOf(HasSubstr("“x” of 2 persons"), HasSubstr("“Ada” (z102)"),
                                                              HasSubstr("2147483647"))));
    EXPECT_EQ(personOf(family, 102).x(), std::nullopt);
    EXPECT_EQ(personOf(family, 103).x(), std::nullopt);
    EXPECT_EQ(personOf(family, 104).x(), 1'000'000'000);
    EXPECT_EQ(personOf(family, 104).generation(), 1'000'000);
}

TEST(Repair, GenerationsBeyondAllMeasure)
{
    for (const char* generation : {"2147483647", "-2147483648", "1000001"}) {
        const auto family = mendedFamily(
            fileWith(pool("z102") + person("z102", attribute("generation", "int32", generation) + inPool())));
        EXPECT_THAT(repairsOf(family), ElementsAre(testing::AllOf(HasSubstr("“generation”"), HasSubstr(generation))));
        const HangGuard guard;
        family.context->allPools().front()->rebuildLists();
        EXPECT_LE(family.context->allPools().front()->generations().size(), 1U);
    }
}

TEST(Repair, SentencesAreBoundedInLengthAndNumber)
{
    // A name of a million characters that every sentence quotes would make terabytes of them.
    const auto family = loaded(
        fileWith(pool("z102") + person("z102", attribute("name", "string", QByteArray(1'000'000, 'A')) + inPool() +
                                                   links("partners", QByteArray("z102 ").repeated(200'000)))));
    EXPECT_THAT(family.repairs, SizeIs(100'001));
    EXPECT_LT(family.repairs.front().size(), 200);
    EXPECT_THAT(family.repairs.back().toStdString(), HasSubstr("the list ends here"));
    EXPECT_EQ(personOf(family, 102).name()->size(), 1'000'000);
}

TEST(Repair, NextObjectNumberInUse)
{
    const auto family = mendedFamily(fileWith(pool("z150") + person("z150"), "150"));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("151")));
    EXPECT_EQ(family.context->nextNumber(), 151U);
}

TEST(Repair, NextObjectNumberOfUnknownObjectsCounts)
{
    EXPECT_EQ(mendedFamily(fileWith(object("PLACE", "z300", ""), "150")).context->nextNumber(), 301U);
}

TEST(Repair, NextObjectNumberMissing)
{
    for (const char* number : {"", "many", "-1", "0", "99999999999999999999"}) {
        const auto family = mendedFamily(fileWith(pool("z150") + person("z150"), number));
        EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("next object number"))) << number;
        EXPECT_EQ(family.context->nextNumber(), 151U);
    }
}

TEST(Repair, PersonsWithoutAnyPoolMakeOneInFileOrder)
{
    const auto family = mendedFamily(fileWith(person("z104") + person("z102") + person("z103")));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("without a pool")));
    ASSERT_THAT(family.context->allPools(), SizeIs(1));
    EXPECT_THAT(numbers(family.context->allPools().front()->persons()), ElementsAre(104, 102, 103));
    EXPECT_EQ(family.context->allPools().front()->recordId().number, 200U);
}

TEST(Repair, PoolThatDoesNotListItsPerson)
{
    const auto family = mendedFamily(fileWith(pool("z103") + person("z102", inPool()) + person("z103", inPool())));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("not listed by its pool")));
    EXPECT_THAT(numbers(family.context->allPools().front()->persons()), ElementsAre(103, 102));
}

TEST(Repair, PersonOfTwoPoolsStaysWithTheOneItNames)
{
    const auto family = mendedFamily(fileWith(pool("z103") + pool("z103", "z102") + person("z103", inPool("z102"))));
    EXPECT_THAT(repairsOf(family), SizeIs(1));
    EXPECT_EQ(personOf(family, 103).pool()->recordId().number, 102U);
}

TEST(Repair, PictureKnownToOneSideOnly)
{
    const auto bytes = attribute("data", "binary", "QUJD");
    for (const auto& text :
         {fileWith(pool("z102") + person("z102", links("pic", "z103", "PIC", "0/1")) + object("PIC", "z103", bytes)),
          fileWith(pool("z102") + person("z102") +
                   object("PIC", "z103", bytes + links("person", "z102", "PERSON", "0/1")))}) {
        const auto family = mendedFamily(text);
        EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("picture z103")));
        ASSERT_NE(personOf(family, 102).pic(), nullptr);
        EXPECT_EQ(personOf(family, 102).pic()->data(), QByteArray("ABC"));
    }
}

TEST(Repair, ImportedRecordKnownToOneSideOnly)
{
    for (const auto& text :
         {fileWith(pool("z102") + person("z102", madeOf("z103")) + source("z103", "0 @I1@ INDI\n")),
          fileWith(pool("z102") + person("z102") + source("z103", "0 @I1@ INDI\n", ofPerson("z102")))}) {
        const auto family = mendedFamily(text);
        EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("imported record z103")));
        ASSERT_NE(personOf(family, 102).source(), nullptr);
        EXPECT_EQ(personOf(family, 102).source()->text(), "0 @I1@ INDI\n");
    }
}

TEST(Repair, CharactersThatNoFileCanHold)
{
    const auto family = mendedFamily(fileWith(pool("z102") + person("z102", attribute("name", "string",
                                                                                      "A\x01"
                                                                                      "d\x1F"
                                                                                      "a &#8; \xEF\xBF\xBE"))));
    EXPECT_THAT(repairsOf(family), ElementsAre(testing::AllOf(HasSubstr("“z102”"), HasSubstr("“name”"))));
    EXPECT_EQ(personOf(family, 102).name(), u"A\uFFFDd\uFFFDa \uFFFD \uFFFD"_qs);
}

TEST(Repair, XmlAttributesThatCanNotBeKeptAreTold)
{
    const auto family = mendedFamily(
        fileWith(pool("z102") +
                 person("z102", attribute("name", "string\" lang=\"en", "Ada")).replace("id=", "colour='red' id=")));
    EXPECT_THAT(repairsOf(family), ElementsAre(HasSubstr("“colour”"), HasSubstr("“lang” of “name”")));
    EXPECT_EQ(personOf(family, 102).name(), u"Ada"_qs);
}

TEST(Repair, CommentsOutsideTheRootAreTold)
{
    EXPECT_THAT(repairsOf(mendedFamily("<!-- mine -->" + fileWith("").mid(39))), ElementsAre(HasSubstr("Comments")));
}

} // namespace lineara::test

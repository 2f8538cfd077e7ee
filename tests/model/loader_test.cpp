#include "model/context_loader.h"

#include "model/dump.h"

#include <gmock/gmock.h>

namespace lineara {

namespace {

using testing::ElementsAre;

} // namespace

TEST(Loader, FillsAContextWithoutEventsOrJournal)
{
    const QUuid uuid = QUuid::createUuid();
    ContextLoader loader(uuid, 300, 5);
    Pool& pool = loader.addPool({101});
    Person& b = loader.addPerson({250}, {.name = u"B"_qs});
    Person& a = loader.addPerson({110}, {.name = u"A"_qs, .generation = 2, .x = 40});
    Person& c = loader.addPerson({7}, {});
    Pic& pic = loader.addPic({111}, "bytes");
    SourceRecord& source = loader.addSource({112}, {u"a.ged"_qs, 12}, "0 @I1@ INDI\n");
    loader.setMembers(pool, {&b, &a, &c});
    loader.setChildren(a, {&b, &c});
    loader.setParents(b, {&a});
    loader.setParents(c, {&a});
    loader.setPartners(b, {&c});
    loader.setPartners(c, {&b});
    loader.setPic(a, pic);
    loader.setSource(a, source);
    loader.setUnknown(a, {{.position = 1, .xml = "<x/>"}});
    loader.setUnknown(pool, {{.position = 2, .xml = "<y/>"}});
    loader.setUnknown(pic, {{.position = 3, .xml = "<z/>"}});
    loader.setUnknown(source, {{.position = 1, .xml = "<s/>"}});
    loader.setUnknownObjects({{.position = 4, .xml = "<o/>"}});
    loader.setUnknownInfo({{.position = 5, .xml = "<i/>"}});
    const std::unique_ptr<ObjectContext> context = loader.finish();

    EXPECT_EQ(context->storeUuid(), uuid);
    EXPECT_EQ(context->nextNumber(), 300u);
    EXPECT_EQ(test::inconsistencies(*context), "");
    EXPECT_THAT(context->allPersons(), ElementsAre(&c, &a, &b));
    EXPECT_THAT(context->pool({101})->persons(), ElementsAre(&b, &a, &c));
    EXPECT_THAT(a.children(), ElementsAre(&b, &c));
    EXPECT_EQ(a.pic()->data(), "bytes");
    EXPECT_EQ(a.source(), &source);
    EXPECT_EQ(source.person(), &a);
    EXPECT_EQ(source.text(), "0 @I1@ INDI\n");
    EXPECT_EQ(source.origin(), (SourceOrigin{u"a.ged"_qs, 12}));
    EXPECT_THAT(context->allSources(), ElementsAre(&source));
    EXPECT_EQ(source.unknown().front().xml, "<s/>");
    EXPECT_EQ(a.unknown().front().xml, "<x/>");
    EXPECT_EQ(pool.unknown().front().xml, "<y/>");
    EXPECT_EQ(pic.unknown().front().xml, "<z/>");
    EXPECT_EQ(context->unknownObjects().front().xml, "<o/>");
    EXPECT_EQ(context->unknownInfo().front().xml, "<i/>");
    EXPECT_FALSE(context->journal().canUndo());
    EXPECT_EQ(context->insertPerson().recordId(), RecordId{300});
}

TEST(Loader, LetsItsPersonsComeToLifeInNumberOrder)
{
    ContextLoader loader(QUuid::createUuid(), 200, 3);
    Person& b = loader.addPerson({103}, {});
    Person& a = loader.addPerson({102}, {});
    const auto context = loader.finish();
    std::vector<Person*> awake;
    context->setAwakening([&](Person& person) { awake.push_back(&person); });
    EXPECT_THAT(awake, ElementsAre(&a, &b));
}

TEST(Loader, FindsRecordsHoweverTheirNumbersLie)
{
    ContextLoader loader(QUuid::createUuid(), ~std::uint64_t{0}, 0);
    std::vector<std::uint64_t> numbers;
    for (std::uint64_t number = 1; number < (std::uint64_t{1} << 62); number = number * 3 + 1) {
        numbers.push_back(number);
        loader.addPerson({number}, {});
    }
    const auto context = loader.finish();
    for (std::size_t step = 1; step < 4; ++step) {
        for (std::size_t at = 0; at < numbers.size(); at += step) {
            ASSERT_NE(context->person({numbers[at]}), nullptr);
            EXPECT_EQ(context->person({numbers[at]})->recordId().number, numbers[at]);
            EXPECT_EQ(context->person({numbers[at] + 1}), nullptr);
        }
    }
}

TEST(Loader, MakesTextWritable)
{
    ContextLoader loader(QUuid::createUuid(), 200, 1);
    const QString dirty(QChar(0x01));
    Person& person = loader.addPerson({102}, {.name = dirty, .additional = dirty});
    const SourceRecord& source = loader.addSource({103}, {dirty, 1}, "a\x01");
    const auto context = loader.finish();
    EXPECT_EQ(source.text(), "a\xEF\xBF\xBD");
    EXPECT_EQ(source.origin().file, QString(QChar::ReplacementCharacter));
    EXPECT_EQ(person.name(), QString(QChar::ReplacementCharacter));
    EXPECT_EQ(person.additional(), QString(QChar::ReplacementCharacter));
}

} // namespace lineara

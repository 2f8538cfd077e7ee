#include "model/dump.h"

#include <gmock/gmock.h>

namespace lineara {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ImportedFamily
{
    ObjectContext context;
    Person& person = context.insertPerson({.name = u"Ada"_qs});
    SourceRecord& header = context.insertSource({u"a.ged"_qs, 1}, "0 HEAD\n");
    SourceRecord& record = context.insertSource({u"a.ged"_qs, 2}, "0 @I1@ INDI\n1 NAME Ada\n");

    ImportedFamily() { person.setSource(record); }
};

} // namespace

TEST(SourceOfAPerson, IsKeptFromBothSides)
{
    ImportedFamily family;
    EXPECT_EQ(family.person.source(), &family.record);
    EXPECT_EQ(family.record.person(), &family.person);
    EXPECT_EQ(family.header.person(), nullptr);
    EXPECT_EQ(family.record.text(), "0 @I1@ INDI\n1 NAME Ada\n");
    EXPECT_EQ(family.record.origin(), (SourceOrigin{u"a.ged"_qs, 2}));
    EXPECT_THAT(family.context.allSources(), ElementsAre(&family.header, &family.record));
    EXPECT_EQ(family.context.source(family.record.recordId()), &family.record);
    EXPECT_EQ(family.context.source(family.person.recordId()), nullptr);
    EXPECT_EQ(family.context.pic(family.record.recordId()), nullptr);
    EXPECT_TRUE(family.record.id().endsWith(u"/Source/p103"));
}

TEST(SourceOfAPerson, GoesWithThePersonAndComesBackWithIt)
{
    ImportedFamily family;
    const std::string before = test::dump(family.context);
    family.context.journal().begin(u"Remove Person"_qs);
    family.context.remove(family.person);
    EXPECT_THAT(family.context.allSources(), ElementsAre(&family.header));
    const std::string after = test::dump(family.context);
    family.context.journal().undo();
    EXPECT_EQ(test::dump(family.context), before);
    family.context.journal().redo();
    EXPECT_EQ(test::dump(family.context), after);
}

TEST(SourceOfAPerson, IsOfOnePersonOnly)
{
    ImportedFamily family;
    Person& other = family.context.insertPerson();
    const std::string before = test::dump(family.context);
    family.context.journal().begin(u"Other"_qs);
    other.setSource(family.record);
    EXPECT_EQ(family.person.source(), nullptr);
    other.setSource(family.header);
    EXPECT_EQ(family.record.person(), nullptr);
    EXPECT_EQ(test::inconsistencies(family.context), "");
    family.context.journal().undo();
    EXPECT_EQ(test::dump(family.context), before);
}

TEST(SourceOfAPerson, CanBeRemovedAlone)
{
    ImportedFamily family;
    const std::string before = test::dump(family.context);
    family.context.journal().begin(u"Forget"_qs);
    family.context.remove(family.record);
    EXPECT_EQ(family.person.source(), nullptr);
    family.context.journal().undo();
    EXPECT_EQ(test::dump(family.context), before);
}

TEST(SourceOfAPerson, IsTakenBackWithTheImportThatMadeIt)
{
    ObjectContext context;
    const std::string before = test::dump(context);
    context.journal().begin(u"Import"_qs);
    Person& person = context.insertPerson();
    person.setSource(context.insertSource({u"a.ged"_qs, 2}, "0 @I1@ INDI\n"));
    const std::string after = test::dump(context);
    context.journal().undo();
    EXPECT_EQ(test::dump(context), before);
    EXPECT_THAT(context.allSources(), IsEmpty());
    context.journal().redo();
    EXPECT_EQ(test::dump(context), after);
}

TEST(SourceOfAPerson, IsReportedAsALinkAndChangesNoImage)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    SourceRecord& record = context.insertSource({}, "0 @I1@ INDI\n");
    std::vector<std::pair<Record*, Record*>> links;
    int others = 0;
    const Subscription subscription = context.observe([&](const Change& change) {
        const auto* const link = std::get_if<LinkChanged>(&change);
        others += link ? 0 : 1;
        if (link && link->relationship == Relationship::PersonSource && link->added)
            links.emplace_back(&link->owner, &link->member);
    });
    person.setSource(record);
    person.setSource(record);
    EXPECT_THAT(links, ElementsAre(std::pair<Record*, Record*>(&person, &record)));
    EXPECT_EQ(others, 0);
}

TEST(SourceRecordText, IsMadeWritable)
{
    ObjectContext context;
    const SourceRecord& record = context.insertSource({u"a\u0001.ged"_qs, 1}, "0 HEAD\x01\xFF\n");
    EXPECT_EQ(record.text(), "0 HEAD\xEF\xBF\xBD\xEF\xBF\xBD\n");
    EXPECT_EQ(record.origin().file, u"a\uFFFD.ged"_qs);
}

} // namespace lineara

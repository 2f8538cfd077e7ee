#include "document/family_opening.h"
#include "test_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

using namespace lineara;

namespace {

constexpr auto smallGedcom = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n1 CHAR UTF-8\n"
                             "0 @I1@ INDI\n1 NAME Ann /Lee/\n0 @I2@ INDI\n1 NAME Bo /Lee/\n"
                             "0 @F1@ FAM\n1 HUSB @I2@\n1 WIFE @I1@\n0 TRLR\n";

// Every gap between neighbours of a row, for rows of two and more.
std::vector<int> gapsWithinRows(const Pool& pool)
{
    std::map<int, std::vector<int>> rows;
    for (const Person* person : pool.persons())
        rows[person->generation().value_or(0)].push_back(person->x().value());
    std::vector<int> gaps;
    for (auto& [generation, places] : rows) {
        std::sort(places.begin(), places.end());
        for (std::size_t at = 1; at < places.size(); ++at)
            gaps.push_back(places[at] - places[at - 1]);
    }
    return gaps;
}

} // namespace

TEST(FamilyOpening, TellsGedcomByItsContentWhateverItsName)
{
    const TestFiles files;
    auto opened = openFamily(files.write(QStringLiteral("family.txt"), smallGedcom));
    ASSERT_TRUE(opened);
    EXPECT_TRUE(opened.value().importReport.has_value());
    EXPECT_EQ(opened.value().pool->persons().size(), 2u);
}

TEST(FamilyOpening, TellsAFamilyFileByItsContent)
{
    const TestFiles files;
    auto opened = openFamily(files.save(QStringLiteral("family"), *threeGenerations()));
    ASSERT_TRUE(opened);
    EXPECT_FALSE(opened.value().importReport.has_value());
    EXPECT_EQ(opened.value().pool->persons().size(), 5u);
    EXPECT_TRUE(opened.value().repairs.isEmpty());
}

TEST(FamilyOpening, AFamilyFileStaysOneWhateverItsNotesQuote)
{
    const TestFiles files;
    ObjectContext family;
    Pool& pool = family.insertPool();
    pool.addPerson(
        family.insertPerson({.name = QStringLiteral("Ada"),
                             .additional = QStringLiteral("Found in an old file:\n0 @I7@ INDI\n1 NAME Ann")}));
    pool.addPerson(family.insertPerson({.name = QStringLiteral("Ben")}));
    const QByteArray text = textOf(family);
    const QByteArray bare = text.mid(text.indexOf("<database>"));
    for (const QByteArray& written : {text, "\xEF\xBB\xBF" + text, bare, "\n  " + bare}) {
        for (const char* name : {"own.lineara", "own.txt", "own.ged"}) {
            auto opened = openFamily(files.write(QString::fromLatin1(name), written));
            ASSERT_TRUE(opened) << name << ": " << opened.failure().message.toStdString();
            EXPECT_FALSE(opened.value().importReport.has_value()) << name;
            EXPECT_EQ(opened.value().pool->persons().size(), 2U) << name;
        }
    }
}

TEST(FamilyOpening, AWebPageThatIsNamedLikeAGenealogyIsRefusedAsThat)
{
    const TestFiles files;
    for (const char* page : {"<!DOCTYPE html>\n<html></html>", "<HTML><pre>\n0 HEAD\n</pre></HTML>"}) {
        const auto opened = openFamily(files.write(QStringLiteral("page.ged"), page));
        ASSERT_TRUE(opened.failed());
        EXPECT_TRUE(opened.failure().message.contains(QStringLiteral("it is a web page, not a GEDCOM file.")));
    }
}

TEST(FamilyOpening, AMissingFileIsNamedInTheReason)
{
    const TestFiles files;
    const auto opened = openFamily(files.path(QStringLiteral("gone.lineara")));
    ASSERT_TRUE(opened.failed());
    EXPECT_TRUE(opened.failure().message.contains(QStringLiteral("gone.lineara")));
}

TEST(FamilyOpening, AFileWithoutAPoolGetsOne)
{
    const TestFiles files;
    const ObjectContext empty;
    auto opened = openFamily(files.save(QStringLiteral("empty.lineara"), empty));
    ASSERT_TRUE(opened);
    ASSERT_NE(opened.value().pool, nullptr);
    EXPECT_TRUE(opened.value().pool->persons().empty());
}

TEST(FamilyOpening, OfSeveralPoolsTheFirstIsUsedAndAllSurvive)
{
    const TestFiles files;
    auto family = threeGenerations();
    Pool& second = family->insertPool();
    second.addPerson(family->insertPerson());
    auto opened = openFamily(files.save(QStringLiteral("two.lineara"), *family));
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened.value().pool->persons().size(), 5u);
    EXPECT_EQ(opened.value().context->allPools().size(), 2u);
    EXPECT_EQ(textOf(*opened.value().context), textOf(*family));
}

TEST(FamilyOpening, APersonOfASecondPoolThatIsLinkedToTheFirstIsNoMember)
{
    const TestFiles files;
    auto family = threeGenerations();
    Pool& second = family->insertPool();
    Person& stranger = family->insertPerson();
    second.addPerson(stranger);
    family->person(RecordId{106})->addPartner(stranger);
    auto opened = openSettledFamily(files.save(QStringLiteral("two.lineara"), *family));
    ASSERT_TRUE(opened);
    std::size_t inRows = 0;
    for (const auto& row : opened.value().pool->generations())
        inRows += row.size();
    EXPECT_EQ(inRows, 5u);
    EXPECT_EQ(opened.value().context->allPersons().size(), 6u);
}

TEST(FamilyOpening, AnImportedFamilyStandsInRowsWithoutOverlap)
{
    const TestFiles files;
    auto opened = openSettledFamily(files.save(QStringLiteral("plain.lineara"), *threeGenerations()));
    ASSERT_TRUE(opened);
    const Pool& pool = *opened.value().pool;
    EXPECT_EQ(pool.maxGeneration(), 3);
    for (const int gap : gapsWithinRows(pool))
        EXPECT_GE(gap, 152);
}

TEST(FamilyOpening, FirstPlacesAreTheSameEveryTime)
{
    const TestFiles files;
    const QString path = files.save(QStringLiteral("plain.lineara"), *threeGenerations());
    auto once = openSettledFamily(path);
    auto again = openSettledFamily(path);
    ASSERT_TRUE(once && again);
    EXPECT_EQ(textOf(*once.value().context), textOf(*again.value().context));
}

TEST(FamilyOpening, NothingOfItCanBeUndone)
{
    const TestFiles files;
    auto opened = openSettledFamily(files.write(QStringLiteral("small.ged"), smallGedcom));
    ASSERT_TRUE(opened);
    EXPECT_FALSE(opened.value().context->journal().canUndo());
}

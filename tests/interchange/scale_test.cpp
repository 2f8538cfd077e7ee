#include "exported.h"
#include "hang_guard.h"
#include "interchange/further_facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <numeric>
#include <random>
#include <vector>

namespace lineara {
namespace {

#ifdef LINEARA_SANITIZED
constexpr int lineLength = 20'000;
#else
constexpr int lineLength = 200'000;
#endif

enum class Order
{
    OldestFirst,
    YoungestFirst,
    Mixed
};

/// One line of ancestors, person i the child of person i - 1, its families in the given order.
QByteArray lineOfAncestors(int length, Order order)
{
    QByteArray text = "0 HEAD\n1 CHAR UTF-8\n";
    for (int i = 0; i < length; ++i)
        text += "0 @I" + QByteArray::number(i) + "@ INDI\n1 NAME Person " + QByteArray::number(i) + "\n";
    std::vector<int> families(static_cast<std::size_t>(length) - 1);
    std::iota(families.begin(), families.end(), 0);
    if (order == Order::YoungestFirst)
        std::reverse(families.begin(), families.end());
    if (order == Order::Mixed)
        std::shuffle(families.begin(), families.end(), std::mt19937(7));
    for (const int i : families)
        text += "0 @F" + QByteArray::number(i) + "@ FAM\n1 HUSB @I" + QByteArray::number(i) + "@\n1 CHIL @I" +
                QByteArray::number(i + 1) + "@\n";
    return text + "0 TRLR\n";
}

class LongLine : public testing::TestWithParam<Order>
{};

TEST_P(LongLine, IsImportedWhole)
{
    const QByteArray text = lineOfAncestors(lineLength, GetParam());
    const HangGuard guard;
    const auto family = imported(text);
    EXPECT_EQ(family.report.persons, static_cast<std::size_t>(lineLength));
    EXPECT_EQ(family.report.offspringLinks, static_cast<std::size_t>(lineLength) - 1);
    EXPECT_TRUE(family.report.notes.isEmpty());
    const auto& persons = membersOf(family);
    for (std::size_t i = 1; i < persons.size(); ++i) {
        ASSERT_EQ(persons[i]->parents().size(), 1u);
        ASSERT_EQ(persons[i]->parents()[0], persons[i - 1]);
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, LongLine, testing::Values(Order::OldestFirst, Order::YoungestFirst, Order::Mixed));

double secondsOfExporting(const ObjectContext& family, GedcomFormat format = GedcomFormat::Gedcom551)
{
    const std::clock_t before = std::clock();
    exported(family, format);
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
}

// Eight times the text takes eight times as long, and would take 64 times as long if it were gone over again and again.
constexpr double mostTimes = 24;
constexpr double unmeasurable = 0.05;

/// Counts the further facts of everybody in the families that `familyOf` makes of two numbers, as `countOf` does.
template<class FamilyOf, class ExpectedOf, class CountOf>
void expectLinearTimeForFacts(FamilyOf familyOf, ExpectedOf expectedOf, CountOf countOf)
{
    const auto secondsOf = [&](int number) {
        const auto family = familyOf(number);
        const std::clock_t before = std::clock();
        ImportedFacts facts(*family.context);
        std::size_t count = 0;
        for (const Person* person : membersOf(family))
            count += countOf(facts, *person);
        EXPECT_EQ(count, expectedOf(static_cast<std::size_t>(number)));
        return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    };
    const HangGuard guard;
    const double few = secondsOf(lineLength / 40);
    EXPECT_LT(secondsOf(lineLength / 5), mostTimes * few + unmeasurable);
}

template<class FamilyOf, class ExpectedOf>
void expectLinearTimeForFacts(FamilyOf familyOf, ExpectedOf expectedOf)
{
    expectLinearTimeForFacts(familyOf, expectedOf,
                             [](ImportedFacts& facts, const Person& person) { return facts.count(person); });
}

/// The same for lists of them, headings counted as well.
template<class FamilyOf, class ExpectedOf>
void expectLinearTimeForLists(FamilyOf familyOf, ExpectedOf expectedOf)
{
    expectLinearTimeForFacts(familyOf, expectedOf,
                             [](ImportedFacts& facts, const Person& person) { return facts.of(person).size(); });
}

TEST(FurtherFacts, OfEverybodyTakeLinearTime)
{
    expectLinearTimeForFacts([](int persons) { return imported(lineOfAncestors(persons, Order::Mixed)); },
                             [](std::size_t) { return std::size_t{0}; });
}

// As an excerpt has them that was made without its sources.
TEST(FurtherFacts, OfOnePersonWithManyPointersThatLeadNowhereTakeLinearTime)
{
    const auto familyOf = [](int pointers) {
        QByteArray text = "0 HEAD\n0 @I1@ INDI\n";
        for (int pointer = 0; pointer < pointers; ++pointer)
            text += "1 SOUR @S" + QByteArray::number(pointer) + "@\n";
        return imported(text + "0 TRLR\n");
    };
    expectLinearTimeForFacts(familyOf, [](std::size_t pointers) { return pointers; });
}

TEST(FurtherFacts, OfOnePersonWhoPointsManyTimesAtARecordOfManyFilesTakeLinearTime)
{
    const auto familyOf = [](int files) {
        auto family = imported("0 HEAD\n0 @I1@ INDI\n" + QByteArray("1 OBJE @M1@\n").repeated(files) + "0 @M1@ OBJE\n" +
                               QByteArray("1 FILE a.jpg\n").repeated(files) + "1 FILE b.jpg\n0 TRLR\n");
        member(family, 0).source()->setTakenPicture(
            std::make_shared<TakenPicture>(TakenPicture{QStringLiteral("b.jpg"), {}}));
        return family;
    };
    expectLinearTimeForFacts(familyOf, [](std::size_t files) { return files; });
}

TEST(FurtherFacts, OfOnePersonWithManySourcesInOneBigRepositoryTakeLinearTime)
{
    const auto familyOf = [](int sources) {
        QByteArray text = "0 HEAD\n0 @I1@ INDI\n";
        QByteArray records = "0 @R1@ REPO\n" + QByteArray("1 _SHELF 5\n").repeated(sources);
        for (int source = 0; source < sources; ++source) {
            const QByteArray xref = "@S" + QByteArray::number(source) + '@';
            text += "1 SOUR " + xref + '\n';
            records += "0 " + xref + " SOUR\n1 REPO @R1@\n";
        }
        return imported(text + records + "0 TRLR\n");
    };
    expectLinearTimeForLists(familyOf, [](std::size_t sources) { return sources; });
}

TEST(FurtherFacts, OfOnePersonWhoPointsManyTimesAtARecordOfOneLongLineTakeLinearTime)
{
    const auto familyOf = [](int pointers) {
        return imported("0 HEAD\n0 @I1@ INDI\n" + QByteArray("1 SOUR @S1@\n").repeated(pointers) + "0 @S1@ SOUR " +
                        QByteArray("and more, ").repeated(pointers) + "\n0 TRLR\n");
    };
    expectLinearTimeForLists(familyOf, [](std::size_t pointers) { return pointers; });
}

TEST(FurtherFacts, OfAChildWithManyParentsWhoWereRemovedOrNeverKnownTakeLinearTime)
{
    const auto familyOf = [](int parents) {
        QByteArray text = "0 HEAD\n0 @C1@ INDI\n";
        QByteArray lines = "0 @F1@ FAM\n1 CHIL @C1@\n";
        for (int parent = 0; parent < parents; ++parent) {
            const QByteArray number = QByteArray::number(parent);
            text += "0 @I" + number + "@ INDI\n";
            lines += "1 HUSB @I" + number + "@\n";
        }
        for (int parent = 0; parent < parents; ++parent)
            lines += "1 WIFE @X" + QByteArray::number(parent) + "@\n";
        auto family = imported(text + lines + "0 TRLR\n");
        const std::vector<Person*> members(membersOf(family).begin(), membersOf(family).end());
        for (std::size_t person = 1; person < members.size(); ++person)
            family.context->remove(*members[person]);
        return family;
    };
    expectLinearTimeForLists(familyOf, [](std::size_t parents) { return parents + 1; });
}

TEST(LongTexts, AreExportedInLinearTime)
{
    const auto secondsOf = [](qsizetype length) {
        ObjectContext family;
        family.insertPool().addPerson(family.insertPerson({.additional = QString(length, u'@')}));
        return secondsOfExporting(family);
    };
    const double few = secondsOf(lineLength * 5);
    EXPECT_LT(secondsOf(lineLength * 40), mostTimes * few + unmeasurable);
}

TEST(LongTexts, ThatWereChangedAreExportedInLinearTime)
{
    const auto secondsOf = [](qsizetype lines) {
        const auto family =
            imported("0 HEAD\n0 @I1@ INDI\n1 NOTE first\n" + QByteArray("2 CONC and more\n").repeated(lines));
        member(family, 0).setAdditional(QStringLiteral("other"));
        return secondsOfExporting(*family.context);
    };
    const double few = secondsOf(lineLength / 40);
    EXPECT_LT(secondsOf(lineLength / 5), mostTimes * few + unmeasurable);
}

// 7.0 allows none of these letters, so all get the same underscores and a number.
TEST(ForeignNames, OfManyRecordsAreExportedInLinearTime)
{
    const auto secondsOf = [](int records) {
        QString text = QStringLiteral("0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n");
        for (int number = 0; number < records; ++number) {
            QString name = QString::number(100'000 + number);
            for (QChar& digit : name)
                digit = QChar(u'\u0430' + digit.digitValue());
            text += QStringLiteral("0 @%1@ NOTE\n").arg(name);
        }
        return secondsOfExporting(*imported(text.toUtf8()).context, GedcomFormat::Gedcom70);
    };
    const double few = secondsOf(lineLength / 40);
    EXPECT_LT(secondsOf(lineLength / 5), mostTimes * few + unmeasurable);
}

// Somebody's picture is looked for among all that the record names, and what is said of it in all of them goes.
class ManyPictures : public testing::Test
{
protected:
    /// `familyOf` makes a family of a number of files.
    template<class FamilyOf>
    static void expectLinearTime(FamilyOf familyOf)
    {
        const HangGuard guard;
        for (const GedcomFormat format : {GedcomFormat::Gedcom551, GedcomFormat::Gedzip}) {
            const auto secondsOf = [&](int files) {
                const auto family = familyOf(files);
                return secondsOfExporting(*family.context, format);
            };
            const double few = secondsOf(lineLength / 160);
            EXPECT_LT(secondsOf(lineLength / 20), mostTimes * few + unmeasurable);
        }
    }

    static QByteArray fileLines(int level, int files)
    {
        QByteArray lines;
        for (int file = 0; file < files; ++file)
            lines += QByteArray::number(level) + " FILE " + QByteArray::number(file) + ".png\n";
        return lines;
    }

    static void setTaken(const ImportedFamily& family, std::size_t position, int file)
    {
        member(family, position)
            .source()
            ->setTakenPicture(std::make_shared<TakenPicture>(TakenPicture{QStringLiteral("%1.png").arg(file), {}}));
    }
};

TEST_F(ManyPictures, OfOneObjectAreExportedInLinearTimeWhenOneIsRemoved)
{
    expectLinearTime([](int files) {
        auto family = imported("0 HEAD\n0 @I1@ INDI\n1 OBJE\n" + fileLines(2, files) +
                               QByteArray("2 FILE a.png\n").repeated(files) + "0 TRLR\n");
        member(family, 0).source()->setTakenPicture(
            std::make_shared<TakenPicture>(TakenPicture{QStringLiteral("a.png"), {}}));
        return family;
    });
}

TEST_F(ManyPictures, OfAnObjectThatOnePersonPointsAtAgainAndAgainAreExportedInLinearTimeWhenOneIsRemoved)
{
    expectLinearTime([](int files) {
        auto family = imported("0 HEAD\n0 @I1@ INDI\n" + QByteArray("1 OBJE @O1@\n").repeated(files) + "0 @O1@ OBJE\n" +
                               fileLines(1, files) + "0 TRLR\n");
        setTaken(family, 0, files - 1);
        return family;
    });
}

TEST_F(ManyPictures, OfAnObjectThatManyPersonsPointAtAreExportedInLinearTimeWhenAllAreRemovedOrReplaced)
{
    expectLinearTime([](int files) {
        QByteArray text = "0 HEAD\n0 @O1@ OBJE\n" + fileLines(1, files);
        for (int person = 0; person < files; ++person)
            text += "0 @I" + QByteArray::number(person) + "@ INDI\n1 OBJE @O1@\n";
        auto family = imported(text + "0 TRLR\n");
        for (int person = 0; person < files; ++person) {
            setTaken(family, static_cast<std::size_t>(person), person);
            if (person % 2 == 0)
                member(family, static_cast<std::size_t>(person)).changePic("\x89PNG" + QByteArray::number(person));
        }
        return family;
    });
}

TEST(ManyFiles, OfAFormatThatMuchIsSaidOfAreExportedInLinearTime)
{
    const auto secondsOf = [](int lines) {
        const auto family = imported("0 HEAD\n0 @O1@ OBJE\n" + QByteArray("1 FILE a.png\n").repeated(lines) +
                                     "1 FORM png\n" + QByteArray("2 NOTE b\n").repeated(lines) + "0 TRLR\n");
        return secondsOfExporting(*family.context, GedcomFormat::Gedcom70);
    };
    const HangGuard guard;
    const double few = secondsOf(lineLength / 400);
    EXPECT_LT(secondsOf(lineLength / 50), mostTimes * few + unmeasurable);
}

// Copying the notes, or the rest of them, for each of them would take minutes.
TEST(ManyNotes, AreImportedAndExportedWhetherTheFirstOrTheLastIsChanged)
{
    const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n1 CHAR UTF-8\n0 @I1@ INDI\n"
                            "1 NOTE first\n" +
                            ("1 NOTE " + QByteArray(248, 'x') + "\n").repeated(lineLength / 4) +
                            "1 NOTE last\n0 TRLR\n";
    const auto family = imported(text);
    Person& person = member(family, 0);
    const QString notes = *person.additional();
    EXPECT_EQ(notes.count(QStringLiteral("\n\n")), lineLength / 4 + 1);
    person.setAdditional(notes.chopped(4) + QStringLiteral("latest"));
    EXPECT_TRUE(exported(*family.context) == QByteArray(text).replace("1 NOTE last\n", "1 NOTE latest\n"));
    person.setAdditional(QStringLiteral("at ") + notes);
    EXPECT_TRUE(exported(*family.context) == QByteArray(text).replace("1 NOTE first\n", "1 NOTE at first\n"));
}

TEST(ImportedFamilies, LinksAreTheSameAsMadeOneByOne)
{
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        const int persons = 3 + static_cast<int>(random() % 10);
        QByteArray text;
        for (int i = 0; i < persons; ++i)
            text += "0 @I" + QByteArray::number(i) + "@ INDI\n";
        std::vector<std::pair<std::size_t, std::size_t>> wishes;
        for (int i = 0; i < 3 * persons; ++i) {
            const int parent = static_cast<int>(random() % static_cast<unsigned>(persons));
            const int child = static_cast<int>(random() % static_cast<unsigned>(persons));
            const auto wish = std::pair(static_cast<std::size_t>(parent), static_cast<std::size_t>(child));
            if (std::find(wishes.begin(), wishes.end(), wish) == wishes.end())
                wishes.push_back(wish);
            text +=
                "0 FAM\n1 HUSB @I" + QByteArray::number(parent) + "@\n1 CHIL @I" + QByteArray::number(child) + "@\n";
        }

        const auto family = imported(text);
        ObjectContext oneByOne;
        Pool& pool = oneByOne.insertPool();
        std::vector<Person*> twins;
        for (int i = 0; i < persons; ++i) {
            twins.push_back(&oneByOne.insertPerson());
            pool.addPerson(*twins.back());
        }
        std::size_t refused = 0;
        for (const auto& [parent, child] : wishes) {
            if (pool.canLink(offspringLink, *twins[parent], *twins[child]))
                twins[parent]->addChild(*twins[child]);
            else
                ++refused;
        }

        EXPECT_EQ(family.report.refusedLinks, refused);
        for (std::size_t i = 0; i < twins.size(); ++i) {
            std::vector<RecordId> expected;
            std::vector<RecordId> made;
            for (const Person* child : twins[i]->children())
                expected.push_back(child->recordId());
            for (const Person* child : member(family, i).children())
                made.push_back(child->recordId());
            ASSERT_EQ(made, expected);
        }
    }
}

} // namespace
} // namespace lineara

#include "family_counts.h"
#include "imported.h"
#include "platform/log.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace lineara {
namespace {

using testing::HasSubstr;

constexpr const char* elsewhere = "LINEARA_GENEALOGIES";

ImportedFamily fromFile(const std::string& name, const QString& folder = QStringLiteral(LINEARA_TEST_DATA "/gedcom"))
{
    auto family = importGedcomFile(folder + u'/' + QString::fromStdString(name));
    if (family.failed())
        throw std::runtime_error(family.failure().message.toStdString());
    return std::move(family.value());
}

struct KnownFile
{
    const char* name;
    FamilyCounts counts;
    std::size_t refused;
    std::size_t unreadable;
    friend std::ostream& operator<<(std::ostream& out, const KnownFile& file) { return out << file.name; }
};

/// The file's name as far as test names may hold it.
std::string fileName(const testing::TestParamInfo<KnownFile>& file)
{
    std::string name = file.param.name;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}

class KnownFiles : public testing::TestWithParam<KnownFile>
{};

void expectWhole(const ImportedFamily& family, const KnownFile& file)
{
    EXPECT_EQ(count(*family.context), file.counts);
    EXPECT_EQ(family.report.persons, file.counts.persons);
    EXPECT_EQ(family.report.partnerLinks, file.counts.partnerPairs);
    EXPECT_EQ(family.report.offspringLinks, file.counts.parentChildPairs);
    EXPECT_EQ(family.report.refusedLinks, file.refused);
    EXPECT_EQ(family.report.unreadableLines, file.unreadable);
}

TEST_P(KnownFiles, AreImportedWhole)
{
    expectWhole(fromFile(GetParam().name), GetParam());
}

// Persons, named, partner pairs, parent-child pairs, longest line, components, unlinked, birth years, death years.
INSTANTIATE_TEST_SUITE_P(Sound, KnownFiles,
                         testing::Values(KnownFile{"shakespeare.ged", {31, 31, 10, 39, 5, 1, 0, 22, 27}, 0, 0},
                                         KnownFile{"bronte.ged", {14, 14, 4, 18, 3, 1, 0, 12, 12}, 0, 0},
                                         KnownFile{"utf8-cr.ged", {10, 10, 4, 12, 4, 1, 0, 0, 0}, 0, 0},
                                         KnownFile{"royal92.ged", {3010, 3006, 1138, 3724, 80, 5, 3, 1734, 1692}, 0, 0},
                                         // One of 52 pairs would be a third parent.
                                         KnownFile{"relationships-complex.ged", {43, 43, 13, 51, 6, 1, 0, 0, 0}, 1, 0},
                                         // One person is married to himself.
                                         KnownFile{"family-structure-variants.ged", {5, 5, 1, 0, 1, 4, 3, 0, 0}, 1, 0},
                                         // Five of six births and all four deaths are counted in other calendars.
                                         KnownFile{"calendar-dates.ged", {11, 11, 0, 0, 1, 11, 11, 6, 4}, 0, 0},
                                         KnownFile{
                                             "irish-kings-cp1252.ged", {178, 178, 14, 173, 93, 12, 7, 2, 2}, 0, 0}),
                         fileName);

INSTANTIATE_TEST_SUITE_P(
    Malformed, KnownFiles,
    testing::Values(KnownFile{"malformed/blank-lines.ged", {2, 2, 0, 0, 1, 2, 2, 0, 0}, 0, 0},
                    // Three of six pairs would close the circle.
                    KnownFile{"malformed/circular-reference.ged", {3, 3, 3, 3, 3, 1, 0, 0, 0}, 3, 0},
                    KnownFile{"malformed/duplicate-xref.ged", {3, 3, 0, 0, 1, 3, 3, 0, 0}, 0, 0},
                    KnownFile{"malformed/invalid-xref.ged", {1, 1, 0, 0, 1, 1, 1, 0, 0}, 0, 0},
                    KnownFile{"malformed/level-jump-skip.ged", {1, 1, 0, 0, 1, 1, 1, 0, 0}, 0, 0},
                    KnownFile{"malformed/missing-header.ged", {1, 1, 0, 0, 1, 1, 1, 0, 0}, 0, 0},
                    KnownFile{"malformed/unterminated-xref.ged", {0, 0, 0, 0, 0, 0, 0, 0, 0}, 0, 1}),
    fileName);

/// Genealogies that may be read by tests but not be given away with them: they stay in the folder that the environment
/// names. None where it names none.
std::vector<KnownFile> filesElsewhere()
{
    if (qEnvironmentVariableIsEmpty(elsewhere))
        return {};
    return {KnownFile{"kennedy.ged", {208, 208, 71, 254, 9, 9, 8, 153, 75}, 0, 0},
            KnownFile{"pres2020.ged", {2322, 2322, 1053, 2428, 35, 37, 1, 1312, 1260}, 0, 0},
            KnownFile{"queen.ged", {4683, 4671, 1884, 5304, 172, 1, 0, 2440, 2758}, 0, 0},
            KnownFile{"ansel-crlf.ged", {35, 35, 1, 66, 2, 1, 0, 0, 0}, 0, 0},
            KnownFile{"torture-55-ansel-cr.ged", {15, 15, 4, 17, 6, 1, 0, 15, 8}, 0, 0},
            KnownFile{"utf16le-bom-crlf.ged", {3, 3, 1, 2, 2, 1, 0, 3, 1}, 0, 0},
            KnownFile{"utf16le-nobom-lfcr.ged", {35, 35, 1, 66, 2, 1, 0, 0, 0}, 0, 0},
            KnownFile{"gedcom7/escapes.ged", {1, 1, 0, 0, 1, 1, 1, 0, 0}, 0, 0},
            KnownFile{"gedcom7/long-url.ged", {0, 0, 0, 0, 0, 0, 0, 0, 0}, 0, 0},
            KnownFile{"gedcom7/maximal70.gdz", {4, 2, 1, 2, 2, 2, 1, 1, 1}, 0, 0},
            KnownFile{"gedcom7/maximal70.ged", {4, 2, 1, 2, 2, 2, 1, 1, 1}, 0, 0},
            KnownFile{"gedcom7/minimal70.ged", {0, 0, 0, 0, 0, 0, 0, 0, 0}, 0, 0},
            KnownFile{"gedcom7/remarriage1.ged", {3, 3, 2, 0, 1, 1, 0, 0, 1}, 0, 0},
            KnownFile{"gedcom7/remarriage2.ged", {3, 3, 2, 0, 1, 1, 0, 0, 1}, 0, 0},
            KnownFile{"gedcom7/same-sex-marriage.ged", {2, 2, 1, 0, 1, 1, 0, 0, 0}, 0, 0},
            KnownFile{"gedcom7/voidptr.ged", {2, 2, 1, 0, 1, 1, 0, 0, 0}, 0, 0}};
}

class KnownFilesElsewhere : public testing::TestWithParam<KnownFile>
{};

TEST_P(KnownFilesElsewhere, AreImportedWhole)
{
    expectWhole(fromFile(GetParam().name, qEnvironmentVariable(elsewhere)), GetParam());
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(KnownFilesElsewhere);
INSTANTIATE_TEST_SUITE_P(Elsewhere, KnownFilesElsewhere, testing::ValuesIn(filesElsewhere()), fileName);

TEST(ImportedFiles, WilliamShakespeareIsReadRight)
{
    const auto family = fromFile("shakespeare.ged");
    const auto& persons = membersOf(family);
    const auto found = std::find_if(persons.begin(), persons.end(), [](const Person* person) {
        return person->name() == QStringLiteral("William Shakespeare") && person->birthYear() == 1564;
    });
    ASSERT_NE(found, persons.end());
    EXPECT_EQ((*found)->era(), QStringLiteral("1564 - 1616"));
    EXPECT_EQ((*found)->deathDay(), 23);
    EXPECT_EQ((*found)->deathMonth(), 4);
    EXPECT_EQ(names((*found)->partners()), "Anne Hathaway");
    EXPECT_EQ(names((*found)->parents()), "John Shakespeare Mary Arden");
}

TEST(ImportedFiles, NamesKeepTheirAccents)
{
    EXPECT_THAT(names(membersOf(fromFile("bronte.ged"))), HasSubstr("Charlotte Brontë"));
}

TEST(ImportedFiles, OneSidedLinksAreTold)
{
    const auto circle = fromFile("malformed/circular-reference.ged");
    EXPECT_EQ(circle.report.notes.filter(QStringLiteral("does not name")).size(), 1);
    EXPECT_THAT(notesOf(fromFile("malformed/invalid-xref.ged")),
                HasSubstr("line 6: INDI.FAMC \"@F999@\" was not taken"));
}

TEST(ImportedFiles, LineNumbersAreThoseOfTheFile)
{
    EXPECT_THAT(notesOf(fromFile("malformed/unterminated-xref.ged")), HasSubstr("line 4: \"0 @I1 INDI\""));
    EXPECT_THAT(notesOf(fromFile("malformed/level-jump-skip.ged")), HasSubstr("line 8: DATE \"1 JAN 1900\""));
    const auto blank = fromFile("malformed/blank-lines.ged");
    EXPECT_EQ(blank.report.kept.back().path, QStringLiteral("INDI.SEX"));
    EXPECT_EQ(blank.report.kept.back().firstLine, 16u);
}

// A family with many marriages between generations, in which the rules refuse numbers at every run.
TEST(RealFamily, TellsEveryRefusedNumberAtEveryRun)
{
    const auto family = fromFile("royal92.ged");
    for (int run = 0; run < 2; ++run) {
        const LogCapture log;
        EXPECT_TRUE(family.context->allPools().front()->process());
        EXPECT_EQ(std::ranges::count(log.text(), '\n'), 572);
    }
}

} // namespace
} // namespace lineara

#include "imported.h"

#include "import_notes.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

TEST(ImportReport, EveryLineIsTakenOrTold)
{
    const auto family = imported("0 HEAD\n1 SOUR someone\n2 VERS 1\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n"
                                 "1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME A\n1 SEX M\n1 _UID 12\n2 CONC 34\n0 @S1@ SOUR\n"
                                 "1 TITL A book\n0 TRLR\n");
    EXPECT_EQ(notesOf(family), "line 2: HEAD.SOUR \"someone\" was not taken: a family has no place for it\n"
                               "line 3: HEAD.SOUR.VERS \"1\" was not taken: a family has no place for it\n"
                               "line 10: INDI.SEX \"M\" was not taken: a family has no place for it\n"
                               "line 11: INDI._UID \"12\" was not taken: a family has no place for it\n"
                               "line 12: INDI._UID.CONC \"34\" was not taken: a family has no place for it\n"
                               "line 13: SOUR was not taken: a family has no place for it\n"
                               "line 14: SOUR.TITL \"A book\" was not taken: a family has no place for it");
    EXPECT_EQ(family.report.notTaken, 7u);
    EXPECT_EQ(family.report.unreadableLines, 0u);
}

TEST(ImportReport, TheSameBytesGiveTheSameFamily)
{
    const auto uuid = [](const char* text) { return imported(text).context->storeUuid(); };
    EXPECT_EQ(uuid("0 @I1@ INDI\n"), uuid("0 @I1@ INDI\n"));
    EXPECT_NE(uuid("0 @I1@ INDI\n"), uuid("0 @I2@ INDI\n"));
}

TEST(ImportReport, QuotesAreShortAndPrintable)
{
    EXPECT_EQ(inQuotes("plain").toStdString(), "\"plain\"");
    EXPECT_EQ(inQuotes("\x1B[31mred\x07\tnext").toStdString(), "\"\uFFFD[31mred\uFFFD next\"");
    EXPECT_EQ(inQuotes(std::string(60, 'x')).size(), 62);
    EXPECT_EQ(inQuotes(std::string(61, 'x')).toStdString(), '"' + std::string(60, 'x') + "…\"");
    std::string pictures = "x";
    for (int i = 0; i < 300; ++i)
        pictures += "\U0001F333";
    EXPECT_EQ(inQuotes(pictures).size(), 1 + 59 - 1 + 3) << "a pair of surrogates must not be cut in two";
}

TEST(ImportReport, TooManyNotesEndInASum)
{
    ImportNotes notes;
    for (std::uint32_t line = 0; line < ImportNotes::mostNotes + 5; ++line)
        notes.notTaken(line, QStringLiteral("x"));
    ImportReport report;
    notes.writeTo(report);
    EXPECT_EQ(report.notTaken, ImportNotes::mostNotes + 5);
    EXPECT_EQ(report.notes.size(), qsizetype{ImportNotes::mostNotes} + 1);
    EXPECT_EQ(report.notes.back(), QStringLiteral("and 5 more notes of the same kinds"));
}

TEST(ImportReport, AFileThatCanNotBeReadIsNamed)
{
    QTemporaryDir folder;
    const auto missing = importGedcomFile(folder.filePath(QStringLiteral("missing.ged")));
    ASSERT_TRUE(missing.failed());
    EXPECT_THAT(missing.failure().message.toStdString(), HasSubstr("“missing.ged” can't be imported: "));
    EXPECT_TRUE(importGedcomFile(folder.path()).failed());
}

} // namespace
} // namespace lineara

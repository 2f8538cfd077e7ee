#include "imported.h"

#include "import_notes.h"

#include <gtest/gtest.h>

namespace lineara {
namespace {

TEST(ImportReport, EveryLineIsCountedOnceByWhatBecameOfIt)
{
    const auto family = imported("0 HEAD\n1 SOUR someone\n2 VERS 1\n1 GEDC\n2 VERS 5.5.1\n2 FORM LINEAGE-LINKED\n"
                                 "1 CHAR UTF-8\n\n0 @I1@ INDI\n1 NAME A\n1 SEX M\n1 _UID 12\n2 CONC 34\n1 FAMS @F1@\n"
                                 "junk\n1 OCCU smith\n0 @S1@ SOUR\n1 TITL A book\n0 @I2@ INDI\n1 OCCU baker\n0 TRLR\n");
    const ImportReport& report = family.report;
    EXPECT_EQ(keptOf(family), "HEAD.SOUR 1, HEAD.SOUR.VERS 1, INDI.SEX 1, INDI._UID 1, INDI._UID.CONC 1, INDI.OCCU 2, "
                              "SOUR 1, SOUR.TITL 1");
    EXPECT_EQ(report.kept.at(5).firstLine, 16u);
    EXPECT_EQ(report.lines, 20u);
    EXPECT_EQ(report.keptLines, 9u);
    EXPECT_EQ(report.notTaken, 1u);
    EXPECT_EQ(report.unreadableLines, 1u);
    EXPECT_EQ(report.takenLines, 9u);
    EXPECT_EQ(report.records, 5u);
    EXPECT_EQ(report.version, QStringLiteral("5.5.1"));
}

TEST(ImportReport, AFileOfCountlessTagsIsToldInASum)
{
    QByteArray text = "0 @I1@ INDI\n";
    const int tags = static_cast<int>(KeptPaths::mostPaths) + 100;
    for (int i = 0; i < tags; ++i)
        text += "1 _T" + QByteArray::number(i) + "\n";
    const auto family = imported(text);
    EXPECT_EQ(family.report.keptLines, static_cast<std::size_t>(tags));
    EXPECT_EQ(family.report.kept.size(), KeptPaths::mostPaths);
    EXPECT_EQ(family.report.kept.back().path, QStringLiteral("other lines"));
}

TEST(ImportReport, RefusalsAreCountedByTheirReason)
{
    const auto family = imported("0 @A@ INDI\n0 @B@ INDI\n0 @C@ INDI\n0 @F1@ FAM\n1 HUSB @A@\n1 WIFE @A@\n1 CHIL @A@\n"
                                 "0 @F2@ FAM\n1 HUSB @B@\n1 CHIL @B@\n");
    ASSERT_EQ(family.report.refusals.size(), 2u);
    EXPECT_EQ(family.report.refusals[0].reason, QStringLiteral("partners of themselves"));
    EXPECT_EQ(family.report.refusals[0].links, 1u);
    EXPECT_EQ(family.report.refusals[1].reason, QStringLiteral("parents of themselves"));
    EXPECT_EQ(family.report.refusals[1].links, 2u);
    EXPECT_EQ(family.report.refusedLinks, 3u);
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

} // namespace
} // namespace lineara

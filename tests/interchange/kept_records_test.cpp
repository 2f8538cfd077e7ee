#include "imported.h"

#include "gedcom_charset.h"
#include "import_notes.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

#include <map>

namespace lineara {
namespace {

QByteArray keptText(const ImportedFamily& family)
{
    QByteArray text;
    for (const SourceRecord* source : family.context->allSources())
        text += source->text();
    return text;
}

TEST(KeptRecords, StandInFileOrderAndBelongToTheirPersons)
{
    const QByteArray text =
        "0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME A\njunk\n1 OCCU smith\n0 @F1@ FAM\n1 HUSB @I1@\n0 TRLR";
    const auto family = imported(text);
    const auto sources = family.context->allSources();
    ASSERT_EQ(sources.size(), 4u);
    EXPECT_EQ(sources[1]->text(), QByteArray("0 @I1@ INDI\n1 NAME A\njunk\n1 OCCU smith\n"));
    EXPECT_EQ(sources[1]->person(), &member(family, 0));
    EXPECT_EQ(member(family, 0).source(), sources[1]);
    EXPECT_EQ(sources[1]->origin(), (SourceOrigin{QStringLiteral("test.ged"), 3}));
    EXPECT_EQ(sources[2]->person(), nullptr);
    EXPECT_EQ(keptText(family), text + '\n');
    EXPECT_FALSE(family.context->journal().canUndo());
}

TEST(KeptRecords, RememberWhatTheirPointersNamedInVain)
{
    const auto family =
        imported("0 HEAD\n1 SUBM @U1@\n0 @I1@ INDI\n1 NAME A @x@ B\n1 SOUR @S9@\n2 PAGE 3\n1 FAMS @F1@\n"
                 "1 ASSO @I9@\n1 NOTE @VOID@\n1 NOTE a\n2 CONT @N8@\n9 SOUR @S8@ \n1 SOUR @S9@\n"
                 "0 @F1@ FAM\n1 HUSB @I1@\n0 @U1@ SUBM\n0 TRLR\n");
    const auto sources = family.context->allSources();
    ASSERT_EQ(sources.size(), 5u);
    EXPECT_FALSE(sources[0]->origin().dangling.isNull());
    EXPECT_EQ(sources[0]->origin().dangling, "");
    EXPECT_EQ(sources[1]->origin().dangling, "@I9@S8@S9@");
    EXPECT_TRUE(sources[2]->origin().dangling.isNull());
}

/// Of every line of levels 1 and 2 that a reader of its own finds: by the tags that lead to it, how often.
std::map<std::string, std::size_t> countedPaths(const QByteArray& text)
{
    std::map<std::string, std::size_t> paths;
    std::string above[2];
    for (const QByteArray& whole : text.split('\n')) {
        const QByteArray line = whole.trimmed();
        const auto parts = line.simplified().split(' ');
        bool isLevel = false;
        const int level = parts[0].toInt(&isLevel);
        if (!isLevel || level > 2 || parts.size() < 2)
            continue;
        const std::string tag = parts[level == 0 && parts.size() > 2 && parts[1].startsWith('@') ? 2 : 1].toStdString();
        if (level < 2)
            above[level] = level == 0 ? tag : above[0] + "." + tag;
        if (level > 0)
            ++paths[level == 1 ? above[1] : above[1] + "." + tag];
    }
    return paths;
}

class RealGenealogies : public testing::TestWithParam<const char*>
{};

// Whatever the file holds stands in a kept record, and whatever a person has no field for is counted or told.
TEST_P(RealGenealogies, KeepAndAccountForEveryLine)
{
    QFile file(QStringLiteral(LINEARA_TEST_DATA "/gedcom/") + QString::fromLatin1(GetParam()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto family = imported(file.readAll());
    file.seek(0);
    ImportNotes notes;
    QByteArray text = gedcomText(file.readAll(), {}, notes).value().utf8;
    if (!text.endsWith('\n'))
        text += '\n';
    EXPECT_EQ(keptText(family), text);

    std::size_t lines = 0;
    for (const QByteArray& line : text.split('\n'))
        lines += line.trimmed().isEmpty() ? 0u : 1u;
    const ImportReport& report = family.report;
    EXPECT_EQ(report.lines, lines);
    EXPECT_EQ(report.takenLines + report.keptLines + report.notTaken + report.unreadableLines, lines);

    const auto counted = countedPaths(text);
    for (const auto& [path, keptLines, firstLine] : report.kept) {
        const auto depth = path.count(u'.');
        if (depth < 1 || depth > 2)
            continue;
        EXPECT_LE(keptLines, counted.at(path.toStdString())) << path.toStdString();
    }
    // What a family has no field for is never taken for something that it has.
    for (const auto& [path, count] : counted) {
        const bool hasNoField = path.ends_with("SEX") || path.ends_with("OCCU") || path.ends_with("PLAC") ||
                                path.ends_with("MARR") || path.ends_with("TITL") || path.ends_with("BURI");
        if (!hasNoField)
            continue;
        const auto kept = std::find_if(report.kept.begin(), report.kept.end(),
                                       [&](const auto& entry) { return entry.path.toStdString() == path; });
        ASSERT_NE(kept, report.kept.end()) << path;
        EXPECT_EQ(kept->lines, count) << path;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, RealGenealogies,
                         testing::Values("shakespeare.ged", "bronte.ged", "utf8-cr.ged", "royal92.ged",
                                         "irish-kings-cp1252.ged", "relationships-complex.ged",
                                         "family-structure-variants.ged", "calendar-dates.ged",
                                         "malformed/blank-lines.ged", "malformed/circular-reference.ged",
                                         "malformed/duplicate-xref.ged", "malformed/invalid-xref.ged",
                                         "malformed/level-jump-skip.ged", "malformed/missing-header.ged",
                                         "malformed/unterminated-xref.ged"));

TEST(ImportSummary, TellsNoDeclarationThatIsRight)
{
    const QByteArray ascii = "0 HEAD\n1 CHAR ANSEL\n0 @I1@ INDI\n0 TRLR\n";
    EXPECT_TRUE(
        importSummary(imported(ascii).report).startsWith(u"A GEDCOM file of no stated version, read as ASCII.\n"));
    const QString wide = QStringLiteral("\uFEFF0 HEAD\n1 CHAR UNICODE\n0 @I1@ INDI\n0 TRLR\n");
    const QByteArray utf16(reinterpret_cast<const char*>(wide.utf16()), 2 * wide.size());
    EXPECT_TRUE(
        importSummary(imported(utf16).report).startsWith(u"A GEDCOM file of no stated version, read as UTF-16.\n"));
}

TEST(ImportSummary, TellsNumbersAndLines)
{
    const auto family =
        imported("0 HEAD\n1 CHAR ANSEL\n1 GEDC\n2 VERS 5.5\n0 @I1@ INDI\n1 NAME Ren\xE9 x\n1 OCCU smith\n"
                 "0 @F1@ FAM\n1 HUSB @I1@\n1 WIFE @I1@\n0 TRLR\n");
    EXPECT_EQ(
        importSummary(family.report).toStdString(),
        "A GEDCOM file of version 5.5, read as Windows-1252. It says that it is in ANSEL.\n"
        "\nWhat came in\nPersons: 1\nFamilies: 1\nLinks between partners: 0\nLinks between parents and children: 0\n"
        "Pictures: 0\nLines taken into the family, of 11: 10\n"
        "\nWhat was kept beside the family\nRecords, each as it stands in the file: 4\n"
        "Lines that a person has no field for: 1\n  Person: Occupation (INDI.OCCU): 1, the first in line 7\n"
        "\nWhat was refused\nLinks that no family can have: 1\n  partners of themselves: 1\n"
        "Lines that say nothing that could be taken: 0\nLines that can't be read: 0\n"
        "\nLine by line\n"
        "The file declares the character set \"ANSEL\", but is in Windows-1252 and was read so.\n"
        "line 10: FAM.WIFE \"@I1@\" was refused: Ren\u00E9 x can't be a partner of the same person\n");
}

} // namespace
} // namespace lineara

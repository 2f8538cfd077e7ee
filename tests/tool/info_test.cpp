#include "tool_run.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <algorithm>

namespace lineara {
namespace {

using testing::HasSubstr;

ToolRun info(const QString& path, QStringList options = {})
{
    return runTool(QStringList{QStringLiteral("info")} + options + QStringList{path});
}

QJsonObject jsonInfo(const QString& path)
{
    const auto run = info(path, {QStringLiteral("--json")});
    EXPECT_EQ(run.exitCode, 0);
    return QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object();
}

TEST(ToolInfo, CountsAFamilyForPeople)
{
    const auto run = info(testFamily(QStringLiteral("shakespeare.ged")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "persons: 31\npartner links: 10\noffspring links: 39\nrows: 5\n  row 5: 4\n  row 4: 5\n"
                       "  row 3: 9\n  row 2: 6\n  row 1: 7\n  in no row: 0\nunlinked persons: 0\nfamilies read: 11\n"
                       "links refused: 0\nlines kept beside: 115\nlines unreadable: 0\nlines not taken: 0\n");
    EXPECT_EQ(run.err, "lineara-tool: imported 31 persons and 11 families; 0 links refused, 115 lines kept "
                       "beside, 0 lines not taken, 0 lines unreadable\n");
}

TEST(ToolInfo, CountsAFamilyForPrograms)
{
    const QJsonObject family = jsonInfo(testFamily(QStringLiteral("relationships-complex.ged")));
    EXPECT_EQ(family[QStringLiteral("persons")], 43);
    EXPECT_EQ(family[QStringLiteral("links")][QStringLiteral("partner")], 13);
    EXPECT_EQ(family[QStringLiteral("links")][QStringLiteral("offspring")], 51);
    EXPECT_EQ(family[QStringLiteral("unlinked")], 0);
    EXPECT_EQ(family[QStringLiteral("import")][QStringLiteral("linksRefused")], 1);
    int standing = 0;
    for (const auto& row : family[QStringLiteral("rows")].toArray())
        standing += row[QStringLiteral("persons")].toInt();
    EXPECT_EQ(standing, 43);
}

TEST(ToolInfo, NamesThoseWithoutLinks)
{
    const QString path = testFamily(QStringLiteral("family-structure-variants.ged"));
    const QJsonObject family = jsonInfo(path);
    EXPECT_EQ(family[QStringLiteral("unlinked")], 3);
    EXPECT_EQ(family[QStringLiteral("unlinkedNames")],
              QJsonArray::fromStringList({QStringLiteral("Solo Parentless"), QStringLiteral("Second Child"),
                                          QStringLiteral("Narcissus Selfwed")}));
    EXPECT_THAT(info(path).out, HasSubstr("unlinked persons: 3\n  Solo Parentless\n"));
}

TEST(ToolInfo, TellsEveryNoteWhenAsked)
{
    const auto run = info(testFamily(QStringLiteral("malformed/circular-reference.ged")), {QStringLiteral("--notes")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.err, HasSubstr("lineara-tool: line 31: FAM.CHIL \"@I1@\" was refused: "));
    EXPECT_THAT(run.err, HasSubstr("lineara-tool: imported 3 persons and 3 families; 3 links refused, "));
}

TEST(ToolInfo, EmptyFamiliesCountNothing)
{
    const auto run = info(testFamily(QStringLiteral("malformed/unterminated-xref.ged")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.out, HasSubstr("persons: 0\npartner links: 0\noffspring links: 0\nrows: 0\n  in no row: 0\n"));
}

TEST(ToolInfo, WhatCanNotBeReadEndsWithOne)
{
    QTemporaryDir folder;
    const QString junk = folder.filePath(QStringLiteral("junk.ged"));
    writeFile(junk, "PK\x03\x04\xFF");
    for (const QString& path : {folder.filePath(QStringLiteral("missing.ged")),
                                folder.filePath(QStringLiteral("missing.lineara")), junk, folder.path()}) {
        const auto run = info(path);
        EXPECT_EQ(run.exitCode, 1) << path.toStdString();
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, testing::MatchesRegex("lineara-tool: .*can't be .*\n"));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    }
}

TEST(ToolInfo, AnyFileNameWillDo)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Großmutter 雪 & co.ged"));
    writeFile(path, bytesOf(testFamily(QStringLiteral("bronte.ged"))));
    EXPECT_THAT(info(path).out, HasSubstr("persons: 14\n"));

    QProcess process;
    process.setWorkingDirectory(folder.path());
    writeFile(folder.filePath(QStringLiteral("--json.ged")), bytesOf(path));
    process.start(QStringLiteral(LINEARA_TOOL),
                  {QStringLiteral("info"), QStringLiteral("--"), QStringLiteral("--json.ged")});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_THAT(process.readAllStandardOutput().toStdString(), HasSubstr("persons: 14\n"));
}

TEST(ToolInfo, LeavesNothingBehindInTheHomeFolder)
{
    QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", home.path().toLocal8Bit());
    qunsetenv("XDG_DATA_HOME");
    for (const QString& path :
         {testFamily(QStringLiteral("bronte.ged")), QStringLiteral(LINEARA_TEST_DATA "/versions/family_12.lineara"),
          QStringLiteral(LINEARA_TEST_DATA "/versions/family_14.lineara")})
        EXPECT_EQ(info(path).exitCode, 0) << path.toStdString();
    qputenv("HOME", before);
    EXPECT_EQ(QDir(home.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

TEST(ToolInfo, AFullOutputEndsWithThree)
{
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(LINEARA_TOOL), {QStringLiteral("--help")});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 3);
    EXPECT_EQ(process.readAllStandardError().toStdString(), "lineara-tool: standard output could not be written\n");
}

} // namespace
} // namespace lineara

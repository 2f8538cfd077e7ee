#include "imported.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <chrono>

namespace lineara {
namespace {

using testing::HasSubstr;

TEST(GenealogyFile, WhatIsNoGedcomIsRefusedByWhatItIs)
{
    EXPECT_EQ(failureOf(""), "“test.ged” can't be imported: the file is empty.");
    EXPECT_EQ(failureOf("\xEF\xBB\xBF"), "“test.ged” can't be imported: the file is empty.");
    EXPECT_THAT(failureOf("\x89PNG\r\n\x1A\n\x8F\x90"), HasSubstr("it is a picture, not a GEDCOM file."));
    EXPECT_THAT(failureOf("\xFF\xD8\xFF\xE0"), HasSubstr("it is a picture"));
    EXPECT_THAT(failureOf("<!DOCTYPE html>\n<html>0 HEAD</html>"), HasSubstr("it is a web page, not a GEDCOM file."));
    EXPECT_THAT(failureOf("<?xml version=\"1.0\"?>\n<database/>\n"), HasSubstr("it is an XML file"));
    EXPECT_THAT(failureOf("%PDF-1.4\n"), HasSubstr("it is a PDF document"));
    EXPECT_THAT(failureOf(QByteArray(5000, '\0')), HasSubstr("it holds nothing but zeros"));
    EXPECT_EQ(failureOf("\n\n  \n"), "“test.ged” can't be imported: it is not a GEDCOM file.");
    EXPECT_THAT(failureOf("Shopping\n0 apples\n1 pear\n"), HasSubstr("it is not a GEDCOM file."));
}

TEST(GenealogyFile, LinesOfOneWithinSomethingElseMakeItNone)
{
    const QByteArray lines = "\n0 HEAD\n0 @I1@ INDI\n1 NAME Ada\n";
    EXPECT_THAT(failureOf("<!DOCTYPE html>\n<html><pre>" + lines + "</pre></html>"), HasSubstr("it is a web page"));
    EXPECT_THAT(failureOf("\xEF\xBB\xBF \n<html><pre>" + lines + "</pre></html>"), HasSubstr("it is a web page"));
    EXPECT_THAT(failureOf("<?xml version=\"1.0\"?>\n<a>" + lines + "</a>"), HasSubstr("it is an XML file"));
    EXPECT_THAT(failureOf("\n<database>" + lines + "</database>"), HasSubstr("it is not a GEDCOM file."));
    EXPECT_THAT(failureOf("%PDF-1.4" + lines), HasSubstr("it is a PDF document"));
    EXPECT_THAT(failureOf("\x1F\x8B\x08" + lines), HasSubstr("it is compressed"));
    const QByteArray pictures[] = {"\x89PNG\r\n", "\xFF\xD8\xFF\xE0",     "GIF89a",
                                   "RIFF",        QByteArray("II*\0", 4), QByteArray("MM\0*", 4)};
    for (const QByteArray& picture : pictures)
        EXPECT_THAT(failureOf(picture + lines), HasSubstr("it is a picture")) << picture.toHex().toStdString();
    EXPECT_EQ(imported("MM, BM and II*" + lines).report.persons, 1U);
}

TEST(GenealogyFile, IsKnownWithoutItsHeaderToo)
{
    EXPECT_EQ(imported("\n\n0 @I1@ INDI\n").report.persons, 1u);
    EXPECT_EQ(imported("0 INDI\n").report.persons, 1u);
    EXPECT_EQ(imported("Made on a Monday\n0 @I1@ INDI\n").report.unreadableLines, 1u);
}

TEST(GenealogyFile, TwoGigabytesOfZerosAreRefusedAtOnce)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("zeros.ged")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(qint64{2} << 30));
    const auto before = std::chrono::steady_clock::now();
    const auto family = importGedcomFile(file.fileName());
    ASSERT_TRUE(family.failed());
    EXPECT_THAT(family.failure().message.toStdString(), HasSubstr("“zeros.ged” can't be imported: it holds nothing"));
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(1));
    EXPECT_FALSE(isGenealogy(file.fileName()));
}

TEST(GenealogyFile, TooManyBytesAreRefusedFromMemoryToo)
{
    constexpr qint64 tooMany = qint64{512} * 1024 * 1024 + 1;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("long.ged")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write("0 HEAD\n0 TRLR\n");
    ASSERT_TRUE(file.resize(tooMany));
    const uchar* const bytes = file.map(0, tooMany);
    ASSERT_NE(bytes, nullptr);
    EXPECT_EQ(failureOf(QByteArray::fromRawData(reinterpret_cast<const char*>(bytes), tooMany)),
              "“test.ged” can't be imported: it has more than 512 MB.");
}

TEST(GenealogyFile, IsToldFromOthersByItsBeginning)
{
    const QString data = QStringLiteral(LINEARA_TEST_DATA "/gedcom/");
    EXPECT_TRUE(isGenealogy(data + QStringLiteral("royal92.ged")));
    EXPECT_TRUE(isGenealogy(data + QStringLiteral("utf8-cr.ged")));
    EXPECT_FALSE(isGenealogy(data + QStringLiteral("SOURCES.md")));
    EXPECT_FALSE(isGenealogy(data + QStringLiteral("missing.ged")));
    EXPECT_FALSE(isGenealogy(data));
}

TEST(GenealogyFile, AFamilyFileWhoseNotesQuoteOneIsNone)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("own.lineara")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<database>\n<object>In an old file:\n0 @I7@ INDI\n"
               "1 NAME Ada</object>\n</database>\n");
    file.close();
    EXPECT_FALSE(isGenealogy(file.fileName()));
}

TEST(GenealogyFile, ThatCanNotBeReadIsNamed)
{
    const QTemporaryDir folder;
    const auto missing = importGedcomFile(folder.filePath(QStringLiteral("missing.ged")));
    ASSERT_TRUE(missing.failed());
    EXPECT_THAT(missing.failure().message.toStdString(), HasSubstr("“missing.ged” can't be imported: "));
    EXPECT_TRUE(importGedcomFile(folder.path()).failed());
}

} // namespace
} // namespace lineara

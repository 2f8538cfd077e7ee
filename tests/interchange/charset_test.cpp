#include "imported.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

TEST(GedcomCharset, ByteOrderMarkIsNoPartOfTheText)
{
    const auto family = imported("\xEF\xBB\xBF"
                                 "0 HEAD\n0 @I1@ INDI\n1 NAME Zo\xC3\xAB /Smith/\n");
    EXPECT_EQ(member(family, 0).name(), QStringLiteral("Zo\u00EB Smith"));
    EXPECT_EQ(notesOf(family), "");
}

TEST(GedcomCharset, PlainAsciiIsReadWhateverIsDeclared)
{
    for (const char* charset : {"ANSEL", "ANSI", "UNICODE", "IBMPC", "MACINTOSH"}) {
        const auto family = imported(QByteArray("0 HEAD\n1 CHAR ") + charset + "\n0 @I1@ INDI\n1 NAME A\n");
        EXPECT_EQ(family.report.persons, 1u) << charset;
    }
}

TEST(GedcomCharset, BytesThatAreNotUtf8AreRefusedByTheNameOfTheirCharset)
{
    EXPECT_EQ(failureOf("0 HEAD\n1 CHAR ANSEL\n0 @I1@ INDI\n1 NAME Ren\xE2"
                        "e\n"),
              "“test.ged” can't be imported: it is written in the character set \"ANSEL\", which can't be read yet; "
              "save it as UTF-8 and import it "
              "again.");
    EXPECT_THAT(failureOf("0 HEAD\n1 CHAR ANSI\n0 @I1@ INDI\n1 NAME Ren\xE9\n"), HasSubstr("character set \"ANSI\""));
    EXPECT_THAT(failureOf("0 HEAD\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME Ren\xE9\n"), HasSubstr("said to be in UTF-8"));
    EXPECT_THAT(failureOf("0 HEAD\n0 @I1@ INDI\n1 NAME Ren\xE9\n"), HasSubstr("said to be in UTF-8"));
}

TEST(GedcomCharset, Utf16IsRefusedWithAndWithoutItsMark)
{
    const QByteArray littleEndian("0\0 \0H\0E\0A\0D\0\n\0", 14);
    const QByteArray bigEndian("\0"
                               "0\0 \0H\0E\0A\0D\0\n",
                               14);
    for (const QByteArray& text : {"\xFF\xFE" + littleEndian, littleEndian, "\xFE\xFF" + bigEndian, bigEndian})
        EXPECT_THAT(failureOf(text), HasSubstr("character set \"UTF-16\""));
}

TEST(GedcomCharset, Utf8UnderAnotherNameIsReadAndTold)
{
    const auto family = imported("0 HEAD\n1 CHAR ANSEL\n0 @I1@ INDI\n1 NAME Zo\xC3\xAB\n");
    EXPECT_EQ(member(family, 0).name(), QStringLiteral("Zo\u00EB"));
    EXPECT_EQ(notesOf(family), "The file declares the character set \"ANSEL\", but is in UTF-8 and was read so.");
}

TEST(GedcomCharset, WhatIsNoGedcomIsRefused)
{
    EXPECT_EQ(failureOf(""), "“test.ged” can't be imported: the file is empty.");
    EXPECT_EQ(failureOf("\xEF\xBB\xBF"), "“test.ged” can't be imported: the file is empty.");
    EXPECT_EQ(failureOf("\x89PNG\r\n\x1A\n\x8F\x90"), "“test.ged” can't be imported: it is not a GEDCOM file.");
    EXPECT_EQ(failureOf("PK\x03\x04\xFF\xFF"), "“test.ged” can't be imported: it is not a GEDCOM file.");
    EXPECT_EQ(failureOf("<?xml version=\"1.0\"?>\n<database/>\n"),
              "“test.ged” can't be imported: it is not a GEDCOM file.");
    EXPECT_EQ(failureOf("\n\n  \n"), "“test.ged” can't be imported: it is not a GEDCOM file.");
}

} // namespace
} // namespace lineara

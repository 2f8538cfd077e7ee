#include "imported.h"

#include "charset_guess.h"
#include "gedcom_decoding.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

QByteArray withName(const QByteArray& charset, const QByteArray& name)
{
    return "0 HEAD\n1 CHAR " + charset + "\n0 @I1@ INDI\n1 NAME " + name + "\n";
}

QString nameIn(const QByteArray& bytes)
{
    return member(imported(bytes), 0).name().value();
}

QByteArray utf16(const QString& text, bool isBigEndian)
{
    QByteArray bytes;
    for (const QChar unit : text) {
        const auto code = unit.unicode();
        const char high = static_cast<char>(code >> 8);
        const char low = static_cast<char>(code & 0xFF);
        bytes += isBigEndian ? high : low;
        bytes += isBigEndian ? low : high;
    }
    return bytes;
}

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
        const auto family = imported(withName(charset, "A"));
        EXPECT_EQ(family.report.persons, 1u) << charset;
        EXPECT_EQ(family.report.charset, QStringLiteral("ASCII"));
        EXPECT_EQ(family.report.declaredCharset, QString::fromLatin1(charset));
        EXPECT_EQ(notesOf(family), "");
    }
}

TEST(GedcomCharset, OneByteSetsAreReadAsDeclared)
{
    const QString accented = QStringLiteral("Ren\u00E9 M\u00FCller-\u00D8rsted");
    const std::vector<std::pair<const char*, QByteArray>> texts = {{"ANSI", "Ren\xE9 M\xFCller-\xD8rsted"},
                                                                   {"WINDOWS-1252", "Ren\xE9 M\xFCller-\xD8rsted"},
                                                                   {"ISO-8859-1", "Ren\xE9 M\xFCller-\xD8rsted"},
                                                                   {"ANSEL", "Ren\xE2"
                                                                             "e M\xE8uller-\xA2rsted"},
                                                                   {"CP850", "Ren\x82 M\x81ller-\x9Drsted"},
                                                                   {"MACINTOSH", "Ren\x8E M\x9Fller-\xAFrsted"}};
    for (const auto& [charset, name] : texts) {
        const auto family = imported(withName(charset, name));
        EXPECT_EQ(member(family, 0).name(), accented) << charset;
        EXPECT_EQ(notesOf(family), "") << charset;
    }
    EXPECT_EQ(nameIn(withName("IBMPC", "Ren\x82 M\x81ller")), QStringLiteral("Ren\u00E9 M\u00FCller"));
}

TEST(GedcomCharset, MarksOfAnselFollowTheirLetterAndAreComposed)
{
    EXPECT_EQ(utf8FromPage(CodePage::Ansel, "\xE2"
                                            "e"),
              QByteArray("\xC3\xA9"));
    // Two marks on one letter, as in Vietnamese; both are in one character.
    EXPECT_EQ(utf8FromPage(CodePage::Ansel, "\xE3\xE2"
                                            "a"),
              QStringLiteral("\u1EA5").toUtf8());
    // No character has both: the mark stays beside its letter, after it.
    EXPECT_EQ(utf8FromPage(CodePage::Ansel, "\xE4g!"), QStringLiteral("g\u0303!").toUtf8());
    // A mark at the end of a line belongs to nothing.
    EXPECT_EQ(utf8FromPage(CodePage::Ansel, "a\xE2\nb"), QStringLiteral("a\u0301\nb").toUtf8());
    EXPECT_EQ(utf8FromPage(CodePage::Ansel, "\xCF\xC7\xB1\xA5"), QStringLiteral("\u00DF\u00DF\u0142\u00C6").toUtf8());
}

TEST(GedcomCharset, TheBytesWinOverTheDeclaration)
{
    const auto saidAnsel = imported(withName("ANSEL", "Ren\xE9 M\xFCller J\xE4ger"));
    EXPECT_EQ(member(saidAnsel, 0).name(), QStringLiteral("Ren\u00E9 M\u00FCller J\u00E4ger"));
    EXPECT_EQ(notesOf(saidAnsel),
              "The file declares the character set \"ANSEL\", but is in Windows-1252 and was read so.");
    const auto saidUtf8 = imported(withName("UTF-8", "Ren\xE9"));
    EXPECT_EQ(member(saidUtf8, 0).name(), QStringLiteral("Ren\u00E9"));
    EXPECT_EQ(notesOf(saidUtf8),
              "The file declares the character set \"UTF-8\", but is in Windows-1252 and was read so.");
    const auto isUtf8 = imported(withName("ANSEL", "Zo\xC3\xAB"));
    EXPECT_EQ(member(isUtf8, 0).name(), QStringLiteral("Zo\u00EB"));
    EXPECT_EQ(notesOf(isUtf8), "The file declares the character set \"ANSEL\", but is in UTF-8 and was read so.");
    EXPECT_EQ(nameIn("0 HEAD\n0 @I1@ INDI\n1 NAME Ren\xE9\n"), QStringLiteral("Ren\u00E9"));
}

// Read so, every word would hold Greek letters, lines of boxes or signs of arithmetic.
TEST(GedcomCharset, TextOfWindowsThatCallsItselfDosIsReadAsOfWindows)
{
    const std::vector<std::pair<QByteArray, QString>> names = {
        {"J\xFCrgen /M\xFCller/", QStringLiteral("J\u00FCrgen M\u00FCller")},
        {"Gr\xF6\xDF\x65", QStringLiteral("Gr\u00F6\u00DFe")},
        {"Hans /Wei\xDF/", QStringLiteral("Hans Wei\u00DF")},
        {"\xC4rmel /\xD6hler/", QStringLiteral("\u00C4rmel \u00D6hler")},
        {"S\xF8ren", QStringLiteral("S\u00F8ren")},
        {"\xC5g\xE5rd", QStringLiteral("\u00C5g\u00E5rd")},
        {"N\xE6r", QStringLiteral("N\u00E6r")},
        {"Ren\xE9 /Gu\xE9rin/", QStringLiteral("Ren\u00E9 Gu\u00E9rin")}};
    for (const auto& [bytes, name] : names) {
        for (const char* charset : {"IBMPC", "CP850"}) {
            const auto family = imported(withName(charset, bytes));
            EXPECT_EQ(member(family, 0).name(), name) << charset;
            EXPECT_EQ(family.report.charset, QStringLiteral("Windows-1252")) << bytes.constData() << charset;
            EXPECT_EQ(notesOf(family), std::string("The file declares the character set \"") + charset +
                                           "\", but is in Windows-1252 and was read so.");
        }
    }
    // Some are letters there as well.
    EXPECT_EQ(nameIn(withName("IBMPC", "S\xE1ndor Szab\xF3")), QStringLiteral("S\u00E1ndor Szab\u00F3"));
    EXPECT_EQ(nameIn(withName("MACINTOSH", "Jos\xE9 Mu\xF1oz P\xE9rez G\xF3mez")),
              QStringLiteral("Jos\u00E9 Mu\u00F1oz P\u00E9rez G\u00F3mez"));
}

TEST(GedcomCharset, AnApostropheBelongsInAWord)
{
    const QString name = QStringLiteral("O\u2019Neil");
    EXPECT_EQ(nameIn(withName("ANSI", "O\x92Neil")), name);
    EXPECT_EQ(nameIn(withName("UTF-8", "O\x92Neil")), name);
    EXPECT_EQ(nameIn(withName("MACINTOSH", "O\xD5Neil")), name);
}

TEST(GedcomCharset, ShortTextOfDosIsReadAsDeclared)
{
    const std::vector<std::pair<QByteArray, QString>> names = {
        {"J\x81rgen", QStringLiteral("J\u00FCrgen")},
        {"Gr\x94\xE1\x65", QStringLiteral("Gr\u00F6\u00DFe")},
        {"Wei\xE1", QStringLiteral("Wei\u00DF")},
        {"J\x8EGER", QStringLiteral("J\u00C4GER")},
        {"M\x9ALLER", QStringLiteral("M\u00DCLLER")},
        {"\x99hler", QStringLiteral("\u00D6hler")},
        {"\x8Fse", QStringLiteral("\u00C5se")},
        {"Fran\x87ois", QStringLiteral("Fran\u00E7ois")},
        {"Be\xA4\x61t \xA8qui\x82n?", QStringLiteral("Be\u00F1at \u00BFqui\u00E9n?")},
        {"\xAE\x90lan\xAF", QStringLiteral("\u00AB\u00C9lan\u00BB")},
        {"\xCD\xCD M\x81 \xCD\xCD", QStringLiteral("\u2550\u2550 M\u00FC \u2550\u2550")},
        {"5 \xF1 2, 7\xF8 \xE3", QStringLiteral("5 \u00B1 2, 7\u00B0 \u03C0")}};
    for (const auto& [bytes, name] : names) {
        const auto family = imported(withName("IBMPC", bytes));
        EXPECT_EQ(member(family, 0).name(), name);
        EXPECT_EQ(family.report.charset, QStringLiteral("CP437")) << bytes.constData();
        EXPECT_EQ(notesOf(family), "");
    }
}

TEST(GedcomCharset, FurtherByteOrderMarksAreNoPartOfTheTextEither)
{
    const QByteArray marks("\xEF\xBB\xBF\xEF\xBB\xBF\xEF\xBB\xBF");
    for (const QByteArray name : {"Zoe", "Zo\xC3\xAB", "Zo\xC3\xAB \xC3 \xC3\xAB \xC3\xAB"}) {
        const QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME " + name + "\n";
        const auto family = imported(marks + text);
        EXPECT_EQ(family.report.version, QStringLiteral("5.5.1"));
        EXPECT_EQ(notesOf(family), notesOf(imported(text)));
    }
}

// As in files that show what a program can do: most pairs are written in no language.
TEST(GedcomCharset, AListOfAllMarksOnAllLettersIsAnselStill)
{
    QByteArray list;
    for (int mark = 0xE0; mark <= 0xFB; ++mark) {
        for (char letter = 'A'; letter <= 'Z'; ++letter)
            list += QByteArray(1, static_cast<char>(mark)) + letter;
    }
    const auto family = imported(withName("ANSEL", list));
    EXPECT_EQ(family.report.charset, QStringLiteral("ANSEL"));
    EXPECT_EQ(notesOf(family), "");
    // One word alone is no such list.
    EXPECT_EQ(nameIn(withName("ANSEL", "J\xE4ger")), QStringLiteral("J\u00E4ger"));
}

TEST(GedcomCharset, AFewBrokenBytesDoNotMakeUtf8AnotherSet)
{
    const auto family = imported(withName("UTF-8", "Zo\xC3\xAB Bront\xC3\xAB \xC3 x"));
    EXPECT_EQ(member(family, 0).name(), QStringLiteral("Zo\u00EB Bront\u00EB \uFFFD x"));
    EXPECT_EQ(family.report.charset, QStringLiteral("UTF-8"));
    EXPECT_THAT(notesOf(family), HasSubstr("no characters of UTF-8; they were replaced"));
}

TEST(GedcomCharset, Utf16IsReadInBothOrdersWithAndWithoutItsMark)
{
    const QString text = QStringLiteral("0 HEAD\n\r1 CHAR UNICODE\n\r0 @I1@ INDI\n\r1 NAME Zo\u00EB \U0001F333\n\r");
    for (const bool isBigEndian : {false, true}) {
        for (const qsizetype marks : {0, 1, 2, 3}) {
            const QString mark(marks, QChar(QChar::ByteOrderMark));
            const auto family = imported(utf16(mark + text, isBigEndian));
            EXPECT_EQ(member(family, 0).name(), QStringLiteral("Zo\u00EB \U0001F333"));
            EXPECT_EQ(family.report.charset, QStringLiteral("UTF-16"));
            EXPECT_EQ(notesOf(family), "");
        }
    }
}

TEST(GedcomCharset, AnyLineEndGivesTheSameText)
{
    const QByteArray plain = "0 HEAD\n1 CHAR ANSI\n\n0 @I1@ INDI\n1 NAME Ren\xE9\n";
    for (const QByteArray& end : {QByteArray("\r\n"), QByteArray("\n\r"), QByteArray("\r")}) {
        QByteArray text = plain;
        text.replace("\n", end);
        EXPECT_EQ(withPlainLineEnds(text), plain);
        EXPECT_EQ(nameIn(text), QStringLiteral("Ren\u00E9"));
    }
    EXPECT_EQ(withPlainLineEnds("a\r\nb\rc\n\rd\ne\r\r\n"), QByteArray("a\nb\nc\nd\ne\n\n"));
}

TEST(GedcomCharset, CharactersThatAFileCanNotHoldAreReplacedAndTold)
{
    std::vector<std::uint32_t> lines;
    EXPECT_EQ(withoutUnwritable(QByteArray("a\tb\n\x01\x02\n\xEF\xBF\xBE \xEF\xBF\xBD \xEF\xBB\xBF\nend\x1F"), lines),
              QByteArray("a\tb\n\xEF\xBF\xBD\xEF\xBF\xBD\n\xEF\xBF\xBD \xEF\xBF\xBD \xEF\xBB\xBF\nend\xEF\xBF\xBD"));
    EXPECT_EQ(lines, (std::vector<std::uint32_t>{2, 3, 4}));
}

} // namespace
} // namespace lineara

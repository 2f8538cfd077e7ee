#include "exported.h"
#include "hang_guard.h"
#include "imported.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

QByteArray withNote(const QByteArray& lines, const QByteArray& end = "\n")
{
    QByteArray text = "0 HEAD\n1 GEDC\n2 VERS 5.5.1\n1 CHAR UTF-8\n0 @I1@ INDI\n1 NAME A\n" + lines + "\n0 TRLR\n";
    return text.replace("\n", end);
}

QString noteIn(const ImportedFamily& family)
{
    return member(family, 0).additional().value_or(QString());
}

// As programs write that count bytes where they break lines.
TEST(GedcomUtf8, ACharacterCutByALineIsWhole)
{
    const std::vector<QByteArray> characters = {"\u00FC", "\u20AC", "\U0001F333"};
    for (const QByteArray& end : {QByteArray("\n"), QByteArray("\r"), QByteArray("\r\n"), QByteArray("\n\r")}) {
        for (const QByteArray& character : characters) {
            for (qsizetype cut = 0; cut <= character.size(); ++cut) {
                const auto lines = "1 NOTE M" + character.left(cut) + "\n2 CONC " + character.mid(cut) + "ller";
                const auto family = imported(withNote(lines, end));
                EXPECT_EQ(noteIn(family), QString::fromUtf8("M" + character + "ller")) << cut;
                EXPECT_EQ(notesOf(family), "");
            }
        }
    }
}

TEST(GedcomUtf8, ACutCharacterIsWholeInWhatIsKeptAndGivenBack)
{
    const auto family =
        imported(withNote("1 OCCU M\xC3\n2 CONC \xBCller\n1 BIRT\n2 NOTE \xE2\x82\n 3 CONC \xAC\n2 SOUR "
                          "\xF0\n3 CONC \x9F\x8C\xB3\xC3\n3 CONC \xA4"));
    const QByteArray whole =
        "1 OCCU M\u00FC\n2 CONC ller\n1 BIRT\n2 NOTE \u20AC\n 3 CONC \n2 SOUR \U0001F333\n3 CONC \u00E4\n3 CONC ";
    EXPECT_THAT(member(family, 0).source()->text().toStdString(), HasSubstr(whole.toStdString()));
    EXPECT_EQ(family.report.charset, QStringLiteral("UTF-8"));
    EXPECT_EQ(exported(*family.context).count("\xEF\xBF\xBD"), 0);
    EXPECT_EQ(exported(*family.context).count("\xC3\xBC"), 1);
}

TEST(GedcomUtf8, CutCharactersAreWholeBesideBytesThatAreNone)
{
    const auto family =
        imported(withNote("1 NOTE Zo\u00EB \u00EB\u00EB \xC3 M\xC3\n2 CONC \xBCller \xC3\n2 CONT \xBC"));
    EXPECT_EQ(noteIn(family), QStringLiteral("Zo\u00EB \u00EB\u00EB \uFFFD M\u00FCller \uFFFD\n\uFFFD"));
}

TEST(GedcomUtf8, WhatOnlyLooksLikeACutCharacterIsNone)
{
    const auto family = imported(withNote("1 NOTE Ren\xE9 \xC3\n2 CONC \xBC M\xFCller"));
    EXPECT_EQ(noteIn(family), QStringLiteral("Ren\u00E9 \u00C3\u00BC M\u00FCller"));
    EXPECT_EQ(family.report.charset, QStringLiteral("Windows-1252"));
}

TEST(GedcomUtf8, AWordOfWindowsAmongThemIsReadAsSuchAndTold)
{
    const auto family = imported(withNote("1 NOTE Zo\xEB Bront\u00EB \u00FC\u00E4\u00F6 \u00FC\u00E4\u00F6\n"
                                          "2 CONT Gr\xF6\xDF\x65 O\x92Neil\n2 CONT x \xC3 y",
                                          "\r\n"));
    EXPECT_EQ(noteIn(family), QStringLiteral("Zo\u00EB Bront\u00EB \u00FC\u00E4\u00F6 \u00FC\u00E4\u00F6\n"
                                             "Gr\u00F6\u00DFe O\u2019Neil\nx \uFFFD y"));
    EXPECT_EQ(notesOf(family), "1 bytes are no characters of UTF-8; they were replaced.\n"
                               "line 7: held bytes that are no UTF-8; they were read as Windows-1252\n"
                               "line 8: held bytes that are no UTF-8; they were read as Windows-1252");
}

TEST(GedcomUtf8, PiecesOfACharacterAreNoLettersOfWindows)
{
    const auto family =
        imported(withNote("1 NOTE \u00FC\u00E4\u00F6\u00FC\u00E4\u00F6 a\xE2\x82z \u00FC\xAA\x61 a\xE2\xAAz"));
    EXPECT_EQ(noteIn(family).remove(QChar::ReplacementCharacter),
              QStringLiteral("\u00FC\u00E4\u00F6\u00FC\u00E4\u00F6 az \u00FCa az"));
}

TEST(GedcomUtf8, ManyPiecesOfCharactersAreReadInTime)
{
    constexpr qsizetype bytes = 500'000;
    const QByteArray text = withNote("1 NOTE " + QByteArray(bytes, '\x80'));
    const HangGuard guard;
    EXPECT_EQ(noteIn(imported(text)).size(), bytes);
}

} // namespace
} // namespace lineara

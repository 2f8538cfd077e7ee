// Fonts whose outlines can't be embedded as they are.

#include "outside_program.h"
#include "pdf_file.h"
#include "pdf_font.h"

#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtEndian>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace lineara {
namespace {

using testing::HasSubstr;

QByteArray fontFile()
{
    QFile file(QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// The same font with one of its tables, which nothing here reads, under another name.
QByteArray renamed(QByteArray font, const char* from, const char* to)
{
    const auto tables = qFromBigEndian<quint16>(font.constData() + 4);
    for (int at = 0; at < tables; ++at) {
        char* const name = font.data() + 12 + at * 16;
        if (QByteArrayView(name, 4) == QByteArrayView(from, 4))
            std::copy_n(to, 4, name);
    }
    return font;
}

constexpr int cell = 64; // points
constexpr int cellsInRow = 25;
constexpr int rows = 17;
constexpr double letterSize = 40;

/// Different letters, more than one drawn font has room for.
QString manyLetters()
{
    QString letters;
    for (char16_t letter = u'A'; letter < u'A' + 26; ++letter)
        letters += QChar(letter);
    for (char16_t letter = 0xc0; letter < 0xc0 + 396; ++letter)
        letters += letter == 0xd7 || letter == 0xf7 ? QChar(u'x') : QChar(letter);
    return letters;
}

QByteArray at(double x, double y)
{
    return "1 0 0 1 " + QByteArray::number(x) + ' ' + QByteArray::number(y) + " Tm\n";
}

/// Writes pages of letters in a font.
class LetterPage
{
public:
    explicit LetterPage(const QRawFont& font) : font_(font), used_(font, "F0") {}

    /// From a point of the page on.
    void write(const QString& letters, double x, double y)
    {
        ops_ += at(x, y);
        QByteArray last;
        for (const QChar letter : letters) {
            const auto place = used_.use(font_.glyphIndexesForString(letter).front(), letter);
            if (place.resource != last)
                ops_ += '/' + place.resource + ' ' + QByteArray::number(letterSize) + " Tf\n";
            last = place.resource;
            ops_ += '<' + place.code.toHex() + ">Tj\n";
        }
    }

    QString save(const QString& path) const
    {
        PdfFile file;
        const int pages = file.reserve();
        const QByteArray fonts = used_.write(file);
        const int content = file.addPacked({}, "BT\n" + ops_ + "ET");
        const QByteArray box = QByteArray::number(cell * cellsInRow) + ' ' + QByteArray::number(cell * rows);
        const int page =
            file.add("<</Type/Page/Parent " + PdfFile::reference(pages) + "/MediaBox[0 0 " + box + "]/Contents " +
                     PdfFile::reference(content) + "/Resources<</Font<<" + fonts + ">>>>>>");
        file.put(pages, "<</Type/Pages/Count 1/Kids[" + PdfFile::reference(page) + "]>>");
        const int catalogue = file.add("<</Type/Catalog/Pages " + PdfFile::reference(pages) + ">>");
        QFile out(path);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(file.finish(catalogue, file.add("<<>>")));
        return path;
    }

private:
    QRawFont font_;
    PdfFont used_;
    QByteArray ops_;
};

/// Four pixels for each point.
QImage drawnBy(const QString& pdf, const QString& to)
{
    EXPECT_EQ(printedBy(QStringLiteral("pdftoppm"),
                        {QStringLiteral("-r"), QStringLiteral("288"), QStringLiteral("-singlefile"),
                         QStringLiteral("-png"), QStringLiteral("-gray"), pdf, to}),
              QString());
    return QImage(to + QStringLiteral(".png")).convertToFormat(QImage::Format_Grayscale8);
}

/// A word of a page, and from where to where it reaches, in points.
struct Word
{
    QString letters;
    double begin = 0;
    double end = 0;
};

/// The same font once as it is embedded, and once as it is drawn where it can't be.
class DrawnFont : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(embedded.isValid());
        ASSERT_TRUE(drawn.isValid());
    }

    QString inFolder(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    const QRawFont embedded{fontFile(), letterSize, QFont::PreferNoHinting};
    const QRawFont drawn{renamed(fontFile(), "name", "fvar"), letterSize, QFont::PreferNoHinting};

private:
    QTemporaryDir folder_;
};

/// How far a letter of one picture is from that of another, in parts of its ink.
double apart(const QImage& one, const QImage& other, const QRect& place)
{
    int difference = 0;
    int ink = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        const uchar* const first = one.constScanLine(y);
        const uchar* const second = other.constScanLine(y);
        for (int x = place.left(); x <= place.right(); ++x) {
            difference += std::abs(first[x] - second[x]);
            ink += 255 - first[x];
        }
    }
    return ink > 0 ? static_cast<double>(difference) / ink : difference;
}

/// Letter by letter, so that one that is wrong isn't lost among hundreds. Each begins at a whole pixel: poppler puts
/// drawn letters nowhere else, and what it moves others by would be told as a difference. What remains is at the edges,
/// where the two kinds are smoothed in different ways, and the less of a letter the more pixels it has.
TEST_F(DrawnFont, LooksLikeTheEmbeddedOne)
{
    const QString letters = manyLetters();
    const auto page = [&](const QRawFont& font, const char* name) {
        LetterPage written(font);
        for (int at = 0; at < letters.size(); ++at)
            written.write(letters[at], at % cellsInRow * cell + 10, (rows - at / cellsInRow) * cell - 46);
        return written.save(inFolder(name));
    };
    const QImage one = drawnBy(page(embedded, "one.pdf"), inFolder("one"));
    const QImage other = drawnBy(page(drawn, "other.pdf"), inFolder("other"));
    ASSERT_EQ(one.size(), QSize(cellsInRow, rows) * cell * 4);
    ASSERT_EQ(other.size(), one.size());
    const QSize side(cell * 4, cell * 4);
    for (int at = 0; at < letters.size(); ++at) {
        const QRect place(QPoint(at % cellsInRow, at / cellsInRow) * cell * 4, side);
        EXPECT_LT(apart(one, other, place), 0.04) << QString(letters[at]).toStdString();
    }
}

TEST_F(DrawnFont, IsAsWideAndFoundAlike)
{
    const QString letters = manyLetters();
    const auto page = [&](const QRawFont& font, const char* name) {
        LetterPage written(font);
        for (int at = 0; at + 10 <= letters.size(); at += 10)
            written.write(letters.sliced(at, 10), at / 10 % 4 * 400 + 10, (rows - at / 40) * cell - 46);
        return written.save(inFolder(name));
    };
    const QString one = page(embedded, "one.pdf");
    const QString other = page(drawn, "other.pdf");
    EXPECT_THAT(printedBy(QStringLiteral("pdffonts"), {one}).toStdString(), HasSubstr("CID TrueType"));
    EXPECT_THAT(printedBy(QStringLiteral("pdffonts"), {other}).toStdString(), HasSubstr("Type 3"));
    // How high a letter is thought to be is up to its font; where it begins and ends is not.
    const auto words = [](const QString& pdf) {
        const QString told =
            printedBy(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
        static const QRegularExpression word(
            QStringLiteral("<word xMin=\"([^\"]*)\".*xMax=\"([^\"]*)\".*>(.*)</word>"));
        std::vector<Word> all;
        for (const QRegularExpressionMatch& match : word.globalMatch(told))
            all.push_back({match.captured(3), match.captured(1).toDouble(), match.captured(2).toDouble()});
        return all;
    };
    const std::vector<Word> expected = words(one);
    int found = 0;
    for (const Word& word : words(other)) {
        const auto same = std::ranges::find(expected, word.letters, &Word::letters);
        if (same == expected.end())
            continue;
        ++found;
        EXPECT_NEAR(word.begin, same->begin, 0.1) << word.letters.toStdString();
        EXPECT_NEAR(word.end, same->end, 0.1) << word.letters.toStdString();
    }
    // Of one or another programs make two words, by what they think of the height of its letters.
    EXPECT_GE(found, 40);
    const auto text = [](const QString& pdf) {
        return printedBy(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), pdf, QStringLiteral("-")})
            .simplified()
            .remove(u' ');
    };
    EXPECT_EQ(text(other), text(one));
    EXPECT_TRUE(text(other).startsWith(QStringLiteral("ABCDEFGHIJKL")));
}

} // namespace
} // namespace lineara

// PDF files as other programs see them.

#include "outside_program.h"
#include "paper_family.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

namespace lineara {
namespace {

using testing::HasSubstr;
using testing::Not;

class Pdf : public testing::Test
{
protected:
    QString write(const PaperPicture& picture, const PictureWish& wish = {})
    {
        const QString path = folder_.filePath(QStringLiteral("family.pdf"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytesOf(picture, wish));
        return path;
    }

    static std::string textOf(const QString& path)
    {
        return printedBy(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")})
            .toStdString();
    }
    static std::string infoOf(const QString& path)
    {
        return printedBy(QStringLiteral("pdfinfo"), {path}).simplified().toStdString();
    }

    /// A page as poppler draws it; at first with one pixel for each point.
    QImage drawn(const QString& path, int page = 1, int dotsPerInch = 72)
    {
        const QString number = QString::number(page);
        const QString to = folder_.filePath(QStringLiteral("page"));
        EXPECT_EQ(
            printedBy(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-r"), QString::number(dotsPerInch), QStringLiteral("-f"), number,
                       QStringLiteral("-l"), number, QStringLiteral("-singlefile"), QStringLiteral("-png"), path, to}),
            QString());
        return QImage(to + QStringLiteral(".png")).convertToFormat(QImage::Format_RGB32);
    }

    QTemporaryDir folder_;
    PaperFamily family_;
};

/// How far two pictures of one size are from each other on the whole, from 0 to 255.
double difference(const QImage& one, const QImage& other)
{
    EXPECT_EQ(one.size(), other.size());
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
    }
    return sum / one.width() / one.height();
}

TEST_F(Pdf, HasOnePageAsLargeAsTheFamilyWithTextsAndEmbeddedFonts)
{
    family_.addThreeGenerations();
    const PaperPicture picture(family_.show(), {}, {QStringLiteral("Die Größten & Ältesten"), {}});
    const QString path = write(picture);
    const std::string text = textOf(path);
    for (const char* const name : {"Otto", "Emma", "Karl", "Lina", "Max", "Ulf", "Stranger", "1850", "Größten & Ä"})
        EXPECT_THAT(text, HasSubstr(name));
    EXPECT_THAT(infoOf(path), HasSubstr("Title: Die Größten & Ältesten"));
    EXPECT_THAT(infoOf(path), HasSubstr("Pages: 1 "));
    EXPECT_THAT(infoOf(path), HasSubstr(QStringLiteral("Page size: %1").arg(picture.size().width()).toStdString()));
    const QStringList fonts = printedBy(QStringLiteral("pdffonts"), {path}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    ASSERT_FALSE(fonts.isEmpty());
    for (const QString& font : fonts)
        EXPECT_THAT(font.simplified().toStdString(), HasSubstr(" yes yes yes ")) << "embedded, a part, with letters";
}

constexpr int dense = 576; ///< dots per inch

/// The greatest difference of colour, from 0 to 255, between squares of two points' side of two such pictures. Within a
/// square differences of edges even out, which each program has its own way to smooth.
int greatestDifference(const QImage& one, const QImage& other)
{
    EXPECT_EQ(one.size(), other.size());
    const QSize squares = one.size() * 36 / dense;
    const auto inSquares = [squares](const QImage& picture) {
        return picture.scaled(squares, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage first = inSquares(one);
    const QImage second = inSquares(other);
    int greatest = 0;
    for (int y = 0; y < squares.height(); ++y) {
        for (int x = 0; x < squares.width(); ++x) {
            const QRgb left = first.pixel(x, y);
            const QRgb right = second.pixel(x, y);
            greatest = std::max({greatest, std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                                 std::abs(qBlue(left) - qBlue(right))});
        }
    }
    return greatest;
}

/// Dense enough for letters to stand where they belong, although poppler puts them at whole pixels. Wherever something
/// is a little different the measure tells it by much more than what programs differ by.
TEST_F(Pdf, LooksAsTheCanvasDoes)
{
    Person& mother = family_.add(0, 2, QStringLiteral("Emma Ancestor"), 1852);
    Person& father = family_.add(160, 2, QStringLiteral("Otto Ancestor"), 1850);
    Person& child = family_.add(80, 1, QStringLiteral("Karl Youngest"), 1880);
    mother.addPartner(father);
    mother.addChild(child);
    father.addChild(child);
    const QImage page = drawn(write(PaperPicture(family_.show())), 1, dense);
    const auto offCanvas = [&] {
        QImage canvas;
        canvas.loadFromData(bytesOf(PaperPicture(family_.show()), pngWish(page.size())));
        return greatestDifference(page, canvas.convertToFormat(QImage::Format_RGB32));
    };
    constexpr int usual = 20;
    const int same = offCanvas();
    child.setName(QStringLiteral("Karl Youngast"));
    const int letter = offCanvas();
    child.setName(QStringLiteral("Karl Youngest"));
    child.setX(81);
    const int moved = offCanvas();
    child.setX(80);
    father.removeChild(child);
    const int unlinked = offCanvas();
    EXPECT_LT(same, usual);
    EXPECT_GT(letter, 2 * usual);
    EXPECT_GT(moved, 2 * usual);
    EXPECT_GT(unlinked, 2 * usual);
}

TEST_F(Pdf, APosterHasAPageForEachSheetAndOneThatShowsHowTheyLie)
{
    family_.addRow(40);
    const PaperPicture picture(family_.show());
    PictureWish wish;
    wish.sheets = posterSheets(PosterWish::Sizing::PagesAcross, 3);
    QString path = write(picture, wish);
    EXPECT_THAT(infoOf(path), HasSubstr("Pages: 4 "));
    EXPECT_THAT(infoOf(path), HasSubstr("Page size: 595 x 842 pts"));
    std::string text = textOf(path);
    for (const char* const label : {"1/3 – column A, row 1", "3/3 – column C, row 1", "How the Sheets Lie"})
        EXPECT_THAT(text, HasSubstr(label));
    EXPECT_THAT(text, HasSubstr("Person 0"));
    EXPECT_THAT(text, HasSubstr("Person 39"));
    wish.sheets->marks = {true, false, false, true};
    path = write(picture, wish);
    EXPECT_THAT(infoOf(path), HasSubstr("Pages: 3 "));
    EXPECT_THAT(textOf(path), Not(HasSubstr("column")));
}

TEST_F(Pdf, NothingOfThePictureIsPrintedIntoTheMarginButMarks)
{
    family_.addRow(40);
    PictureWish wish;
    wish.sheets = posterSheets(PosterWish::Sizing::PagesAcross, 3);
    wish.sheets->marks = {false, false, false, false};
    const PaperPicture picture(family_.show());
    const auto inkAt = [](const QImage& page, const QRect& area) {
        int ink = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                ink += page.pixel(x, y) == qRgb(255, 255, 255) ? 0 : 1;
        }
        return ink;
    };
    const QImage plain = drawn(write(picture, wish), 2);
    const QRect margin(0, 0, 27, 842);
    EXPECT_EQ(inkAt(plain, margin), 0);
    EXPECT_GT(inkAt(plain, {28, 28, 539, 786}), 500);
    wish.sheets->marks.cropMarks = true;
    EXPECT_GT(inkAt(drawn(write(picture, wish), 2), margin), 10);
}

TEST_F(Pdf, ADrawnPageOfThePosterIsThePartOfThePictureThatItSays)
{
    family_.addThreeGenerations();
    PictureWish wish;
    wish.sheets = posterSheets(PosterWish::Sizing::Scale, 1);
    wish.sheets->marks = {false, false, false, false};
    const PaperPicture picture(family_.show());
    const auto plan = planOf(picture, *wish.sheets);
    ASSERT_GT(plan.value().pages().size(), 1U);
    const QString path = write(picture, wish);
    const QSize whole = (picture.size()).toSize();
    QImage canvas;
    canvas.loadFromData(bytesOf(picture, pngWish(whole)));
    for (std::size_t page = 0; page < plan.value().pages().size(); ++page) {
        const PosterPage& shown = plan.value().pages()[page];
        const QImage sheet = drawn(path, static_cast<int>(page) + 1).copy(shown.target.toRect());
        const QImage part = canvas.copy(QRect(shown.source.topLeft().toPoint(), sheet.size()));
        QImage onWhite(part.size(), QImage::Format_RGB32);
        onWhite.fill(Qt::white);
        const QRect seen = QRect(-shown.source.topLeft().toPoint(), whole);
        QPainter(&onWhite).drawImage(seen.topLeft(), canvas);
        EXPECT_LT(difference(sheet, onWhite), 1.5) << page;
    }
}

TEST_F(Pdf, BlankSheetsAreLeftOut)
{
    family_.add(0, 0, QStringLiteral("Left"));
    family_.add(6'000, 0, QStringLiteral("Right"));
    PictureWish wish;
    wish.sheets = posterSheets(PosterWish::Sizing::Scale, 1);
    const PaperPicture picture(family_.show());
    EXPECT_THAT(infoOf(write(picture, wish)), HasSubstr("Pages: 3 "));
    wish.sheets->marks.leavesOutBlank = false;
    EXPECT_THAT(infoOf(write(picture, wish)), HasSubstr("Pages: 13 "));
}

TEST_F(Pdf, AFamilyTooWideForAPageIsMadeSmaller)
{
    family_.addRow(300);
    EXPECT_THAT(infoOf(write(PaperPicture(family_.show()))), HasSubstr("Page size: 14400 x "));
}

TEST_F(Pdf, AnEmptyFamilyIsAnEmptyPage)
{
    const QString path = write(PaperPicture(family_.show()));
    EXPECT_THAT(infoOf(path), HasSubstr("Page size: 40 x 40 pts"));
    EXPECT_EQ(textOf(path), "\f");
}

TEST_F(Pdf, NamesInOtherScriptsAreDrawnAndFound)
{
    const QStringList names{QStringLiteral("Łukasz Žižka"), QStringLiteral("Σωκράτης"), QStringLiteral("Лев Толстой"),
                            QStringLiteral("A (b) \\ c")};
    for (int at = 0; at < names.size(); ++at)
        family_.add(at * 200, 0, names[at]);
    const std::string text = textOf(write(PaperPicture(family_.show())));
    for (const char* const word : {"Łukasz", "Σωκράτης", "Толстой", "(b) \\ c"})
        EXPECT_THAT(text, HasSubstr(word));
}

TEST_F(Pdf, PicturesOfPersonsAreReducedAndKeptOnce)
{
    QImage photo(1'000, 1'000, QImage::Format_RGB32);
    for (int y = 0; y < 1'000; ++y) {
        for (int x = 0; x < 1'000; ++x)
            photo.setPixel(x, y, qRgb(x / 4, y / 4, (x * y) & 255));
    }
    const QString file = folder_.filePath(QStringLiteral("photo.jpg"));
    ASSERT_TRUE(photo.save(file, "JPG", 95));
    for (int at = 0; at < 8; ++at)
        family_.add(at * 200, 0, QStringLiteral("Seen")).changePic(file);
    PictureWish wish;
    wish.sheets = posterSheets(PosterWish::Sizing::PagesAcross, 3);
    const QString path = write(PaperPicture(family_.show()), wish);
    const QStringList images =
        printedBy(QStringLiteral("pdfimages"), {QStringLiteral("-list"), path}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    ASSERT_GE(images.size(), 8);
    for (const QString& image : images) {
        const QStringList columns = image.simplified().split(u' ');
        EXPECT_EQ(columns[3], u"216") << "three pixels for each of 72 points";
        EXPECT_EQ(columns[8], u"jpeg");
        EXPECT_EQ(columns[10], images.front().simplified().split(u' ')[10]) << "the same object";
    }
}

} // namespace
} // namespace lineara

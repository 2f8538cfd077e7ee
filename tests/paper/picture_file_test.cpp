// PNG and SVG files, whole and failing.

#include "outside_program.h"
#include "paper/paper_parts.h"
#include "paper_family.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gmock/gmock.h>

#include <stop_token>

#include <csignal>
#include <sys/resource.h>

namespace lineara {
namespace {

using testing::HasSubstr;

QImage decoded(const QByteArray& png)
{
    QImage image;
    EXPECT_TRUE(image.loadFromData(png, "PNG"));
    return image;
}

QByteArray encodedPng(const QImage& image)
{
    QBuffer png;
    image.save(&png, "PNG");
    return png.data();
}

QSize ownSize(const PaperPicture& picture)
{
    return picture.size().toSize();
}

TEST(PngPicture, IsWhatTheCanvasDrawsPixelByPixel)
{
    PaperFamily family;
    family.addThreeGenerations();
    const PaperPicture picture(family.show());
    QImage canvas(ownSize(picture), QImage::Format_RGB32);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.family().paint(painter);
    painter.end();
    EXPECT_EQ(decoded(bytesOf(picture, pngWish(canvas.size()))).convertToFormat(QImage::Format_RGB32), canvas);
}

TEST(PngPicture, StripesLeaveNoSeams)
{
    PaperFamily family;
    family.addThreeGenerations();
    const PaperPicture picture(family.show());
    // Wide enough that a stripe holds a hundred rows of pixels.
    const QSize size(40'000, 300);
    const QImage striped = decoded(bytesOf(picture, pngWish(size))).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(striped.size(), size);
    QImage whole(size, QImage::Format_RGB32);
    whole.fill(Qt::white);
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = 300 / picture.size().height();
    painter.translate((40'000 - picture.size().width() * scale) / 2, 0);
    painter.scale(scale, scale);
    PictureDrawing drawing(picture.family(), QRectF({}, picture.size()));
    drawing.paintNext(painter, drawing.shapes());
    painter.end();
    EXPECT_EQ(striped, whole);
}

TEST(PngPicture, MayLetItsGroundShine)
{
    PaperFamily family;
    family.addThreeGenerations();
    const PaperPicture picture(family.show());
    const QImage clear = decoded(bytesOf(picture, pngWish(ownSize(picture), PictureGround::Transparent)));
    EXPECT_TRUE(clear.hasAlphaChannel());
    EXPECT_EQ(qAlpha(clear.pixel(0, 0)), 0);
    const Frame panel = family.pool.persons()[0]->leafView()->infoFrame();
    const QPointF inside = toPicture(panel.centre()) - toPicture(picture.family().frame()).topLeft();
    EXPECT_EQ(qAlpha(clear.pixel((inside + QPointF(20, 22)).toPoint())), 255);
    // Laid on white it is the picture on white.
    QImage laid(clear.size(), QImage::Format_RGB32);
    laid.fill(Qt::white);
    QPainter(&laid).drawImage(0, 0, clear);
    const QImage white = decoded(bytesOf(picture, pngWish(ownSize(picture))));
    EXPECT_FALSE(white.hasAlphaChannel());
    int worst = 0;
    for (int y = 0; y < laid.height(); ++y) {
        for (int x = 0; x < laid.width(); ++x)
            worst = std::max(worst, std::abs(qGray(laid.pixel(x, y)) - qGray(white.pixel(x, y))));
    }
    EXPECT_LE(worst, 4);
}

TEST(PngPicture, SizesOutOfBoundsAreRefusedWithAdvice)
{
    PaperFamily family;
    family.addRow(2);
    const PaperPicture picture(family.show());
    for (const QSize size : {QSize(65'001, 10), QSize(10, 65'001), QSize(40'000, 40'000)}) {
        const auto bytes = pictureBytes(picture, pngWish(size));
        ASSERT_TRUE(bytes.failed());
        EXPECT_THAT(bytes.failure().message.toStdString(), HasSubstr("Choose a smaller size, or PDF or SVG"));
    }
    EXPECT_TRUE(pictureBytes(picture, pngWish({0, 5})).failed());
    EXPECT_EQ(decoded(bytesOf(picture, pngWish({1, 1}))).size(), QSize(1, 1));
    EXPECT_EQ(decoded(bytesOf(picture, pngWish({65'000, 2}))).size(), QSize(65'000, 2));
}

PictureWish svgWish(PictureGround ground = PictureGround::White)
{
    PictureWish wish;
    wish.kind = PictureKind::Svg;
    wish.ground = ground;
    return wish;
}

/// The texts of an SVG file, one a line; where it is no XML, why.
QString textsOf(const QByteArray& svg)
{
    QXmlStreamReader xml(svg);
    QString texts;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"text")
            texts += xml.readElementText() + u'\n';
    }
    return xml.hasError() ? xml.errorString() : texts;
}

TEST(SvgPicture, HoldsNamesAsTextThatFillsItsPlaceInAnyFont)
{
    PaperFamily family;
    family.add(0, 0, QStringLiteral("Anna <b> & \"Co\""), 1900);
    const QByteArray svg = bytesOf(PaperPicture(family.show(), {}, {QStringLiteral("A & B"), {}}), svgWish());
    EXPECT_EQ(textsOf(svg), u"Anna <b> & \"Co\"\nb.1900\nA & B\n");
    EXPECT_THAT(svg.toStdString(), HasSubstr("<title>A &amp; B</title>"));
    EXPECT_EQ(svg.count("<text "), svg.count(" textLength="));
    EXPECT_THAT(svg.toStdString(), HasSubstr(",sans-serif"));
}

TEST(SvgPicture, KeepsShapesThatComeAgainOnce)
{
    PaperFamily family;
    family.addRow(100);
    const QByteArray svg = bytesOf(PaperPicture(family.show()), svgWish());
    EXPECT_GT(svg.count("<use "), 300);
    EXPECT_LT(svg.count("<path "), 300);
}

/// How much two pictures of one size differ where they differ most, in a colour of the average of so many pixels
/// across. Edges that are smoothed in other ways count little, a shape or a word that is missing much.
int worstDifference(const QImage& one, const QImage& other, int across)
{
    const auto blurred = [&](const QImage& image) {
        return image.scaled(image.size() / across, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage first = blurred(one);
    const QImage second = blurred(other);
    int worst = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QRgb here = first.pixel(x, y);
            const QRgb there = second.pixel(x, y);
            worst = std::max({worst, std::abs(qRed(here) - qRed(there)), std::abs(qGreen(here) - qGreen(there)),
                              std::abs(qBlue(here) - qBlue(there))});
        }
    }
    return worst;
}

// Drawn by a reader of SVG that knows nothing of the canvas.
TEST(SvgPicture, LooksAsThePngDoes)
{
    PaperFamily family;
    family.addThreeGenerations();
    QImage portrait(80, 80, QImage::Format_RGB32);
    portrait.fill(QColor(200, 40, 40));
    family.pool.persons()[0]->changePic(encodedPng(portrait));
    const PaperPicture picture(family.show(), {}, {QStringLiteral("The Family"), QStringLiteral("Footer")});
    constexpr int enlarged = 4;
    const QSize size = ownSize(picture) * enlarged;
    const QImage png = decoded(bytesOf(picture, pngWish(size)));
    QImage svg(size, QImage::Format_RGB32);
    QPainter painter(&svg);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(bytesOf(picture, svgWish())).render(&painter);
    painter.end();
    constexpr int mostOfSmoothing = 20; // a partner's handle that is missing makes twice as much
    EXPECT_LE(worstDifference(png, svg, 4 * enlarged), mostOfSmoothing);
}

TEST(SvgPicture, HasAGroundOrNone)
{
    PaperFamily family;
    family.addRow(1);
    const PaperPicture picture(family.show());
    EXPECT_EQ(bytesOf(picture, svgWish()).count("#ffffff"), 1);
    EXPECT_EQ(bytesOf(picture, svgWish(PictureGround::Transparent)).count("#ffffff"), 0);
}

TEST(SvgPicture, WhatXmlCanNotWriteGivesSoundFiles)
{
    PaperFamily family;
    const QString title = QStringLiteral("A\u0001") + QChar(0xfffe) + QChar(0xffff) + QStringLiteral(" z");
    EXPECT_EQ(textsOf(bytesOf(PaperPicture(family.show(), {}, {title, {}}), svgWish())), u"A z\n");
}

TEST(PictureFile, TheSameFamilyGivesTheSameBytes)
{
    std::vector<QByteArray> files[2];
    for (auto& made : files) {
        PaperFamily family;
        family.addThreeGenerations();
        const PaperPicture picture(family.show(), {}, {QStringLiteral("Title"), QStringLiteral("Footer")});
        PictureWish poster;
        poster.sheets = posterSheets(PosterWish::Sizing::PagesAcross, 2);
        for (const PictureWish& wish : {PictureWish(), poster, svgWish(), pngWish({500, 500})})
            made.push_back(bytesOf(picture, wish));
    }
    EXPECT_EQ(files[0], files[1]);
    for (const QByteArray& file : files[0]) {
        EXPECT_FALSE(file.isEmpty());
        EXPECT_FALSE(file.contains("CreationDate"));
    }
}

TEST(PictureFile, WhatIsSelectedIsNotInIt)
{
    PaperFamily family;
    family.addThreeGenerations();
    family.show();
    const PaperPicture picture(*family.scene);
    const auto all = [&] {
        return bytesOf(picture, {}) + bytesOf(picture, svgWish()) + bytesOf(picture, pngWish({900, 700}));
    };
    const QByteArray before = all();
    family.pool.persons()[0]->leafView()->focus();
    family.scene->branchLayer().select(*family.scene->branchLayer().layers()[0]);
    family.scene->branchLayer().select(*family.scene->branchLayer().layers()[3]);
    EXPECT_TRUE(all() == before);
}

TEST(PictureFile, APartShowsItsPersonsAndTheLinksAmongThemAlone)
{
    PaperFamily family;
    family.addThreeGenerations();
    const Person& karl = *family.pool.persons()[2];
    const FamilyScene& scene = family.show();
    const PaperPicture all(scene);
    const PaperPicture up(scene, ancestorsOf(karl));
    const PaperPicture down(scene, descendantsOf(karl));
    EXPECT_EQ(textsOf(bytesOf(up, svgWish())), u"Otto Ancestor\nb.1850\nEmma Ancestor\nb.1852\nKarl Middle\nb.1880\n");
    EXPECT_EQ(textsOf(bytesOf(down, svgWish())), u"Karl Middle\nb.1880\nLina Married\nb.1881\nMax Youngest\nb.1910\n");
    EXPECT_LT(up.size().width(), all.size().width());
    // A partnership and two children's links of five and two.
    EXPECT_EQ(PictureDrawing(up.family(), QRectF({}, up.size())).shapes(), 3U + 3U);
    EXPECT_EQ(PictureDrawing(all.family(), QRectF({}, all.size())).shapes(), 6U + 6U);
    EXPECT_EQ(PaperPicture(scene, {std::unordered_set<RecordId>()}).size(), QSizeF(40, 40));
}

TEST(PictureFile, TitleAndFooterHaveTheirRoomAndAreNeverCut)
{
    PaperFamily family;
    family.addRow(1);
    const FamilyScene& scene = family.show();
    const PaperPicture plain(scene);
    const PaperPicture titled(scene, {}, {QStringLiteral("A title that is much wider than the one person below"), {}});
    EXPECT_GT(titled.size().width(), plain.size().width());
    EXPECT_GT(titled.size().height(), plain.size().height());
    const QImage image = decoded(bytesOf(titled, pngWish(ownSize(titled) * 2)));
    for (int y = 0; y < image.height(); ++y) {
        EXPECT_EQ(image.pixelColor(2, y), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(image.width() - 3, y), QColor(Qt::white));
    }
    const PaperPicture footed(scene, {}, {{}, QStringLiteral("22 November")});
    EXPECT_EQ(footed.familyPlace().y(), 0);
    EXPECT_GT(footed.size().height(), plain.size().height());
}

TEST(PictureFile, StoppedWorkGivesNothing)
{
    PaperFamily family;
    family.addRow(3'000);
    std::stop_source stop;
    double last = 0;
    const Progress progress(
        [&](double part) {
            last = part;
            stop.request_stop();
        },
        stop.get_token());
    EXPECT_TRUE(pictureBytes(PaperPicture(family.show()), pngWish({20'000, 20'000}), progress).failed());
    EXPECT_GT(last, 0);
    EXPECT_LT(last, 0.9);
}

/// What can't be written as a whole leaves what was there before, and nothing else.
TEST(PictureFile, AFullDiskLeavesTheOldFileAlone)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("family.pdf"));
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit little{1'000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    const auto saved = savePictureFile(path, QByteArray(100'000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(saved.failed());
    EXPECT_THAT(saved.failure().message.toStdString(), HasSubstr(path.toStdString()));
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("family.pdf")});
    EXPECT_FALSE(savePictureFile(path, "new").failed());
}

TEST(PaperParts, AreTheWholeFamilyAndWhatGoesOutFromAPerson)
{
    PaperFamily family;
    family.addThreeGenerations();
    const Person& max = *family.pool.persons()[4];
    EXPECT_EQ(ancestorsOf(max).persons->size(), 5U);
    EXPECT_EQ(descendantsOf(max).persons->size(), 1U);
    EXPECT_EQ(partsOf(&max).size(), 3U);
    EXPECT_EQ(partsOf(nullptr).size(), 1U);
    EXPECT_EQ(partsOf(&max)[1].label, u"Ancestors of Max Youngest");
}

} // namespace
} // namespace lineara

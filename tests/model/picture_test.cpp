#include "hang_guard.h"
#include "model/picture.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace lineara {

namespace {

QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    EXPECT_TRUE(image.save(&buffer, format));
    return buffer.data();
}

QImage noise(int width, int height)
{
    std::minstd_rand random(5);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::generate_n(row, width, [&] { return 0xFF000000u | static_cast<QRgb>(random() & 0xFFFFFFu); });
    }
    return image;
}

QByteArray bigEndian(std::uint32_t number)
{
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>((number >> shift) & 0xFF);
    return bytes;
}

std::uint32_t crc(const QByteArray& bytes)
{
    std::uint32_t sum = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320u : 0u);
    }
    return ~sum;
}

QByteArray pngChunk(const QByteArray& name, const QByteArray& content)
{
    return bigEndian(static_cast<std::uint32_t>(content.size())) + name + content + bigEndian(crc(name + content));
}

/// A PNG that declares any size; its rows are black and compressed as well as they can be.
QByteArray blackPng(std::uint32_t width, std::uint32_t height, qsizetype rowBytes, bool interlaced = false)
{
    const QByteArray header =
        bigEndian(width) + bigEndian(height) + QByteArray::fromHex("0800000000").left(4) + (interlaced ? '\1' : '\0');
    QByteArray pixels = qCompress(QByteArray(rowBytes, '\0'), 9).mid(4);
    return QByteArray::fromHex("89504E470D0A1A0A") + pngChunk("IHDR", header) + pngChunk("IDAT", pixels) +
           pngChunk("IEND", {});
}

/// A JPEG with an orientation mark right after its start.
QByteArray turnedJpeg(const QImage& image, char orientation)
{
    const QByteArray jpeg = encoded(image, "JPEG");
    const QByteArray exif = QByteArray("Exif\0\0", 6) + QByteArray::fromHex("4D4D002A0000000800010112000300000001") +
                            QByteArray(1, '\0') + orientation + QByteArray(6, '\0');
    const auto length = static_cast<std::uint32_t>(exif.size() + 2);
    return jpeg.left(2) + QByteArray::fromHex("FFE1") + bigEndian(length).right(2) + exif + jpeg.mid(2);
}

/// A JPEG that declares another size than its rows fill.
QByteArray stretchedJpeg(const QByteArray& jpeg, std::uint32_t width, std::uint32_t height)
{
    QByteArray bytes = jpeg;
    qsizetype frame = bytes.indexOf("\xFF\xC0");
    if (frame < 0)
        frame = bytes.indexOf("\xFF\xC2");
    EXPECT_GE(frame, 0);
    return bytes.replace(frame + 5, 4, bigEndian(height).right(2) + bigEndian(width).right(2));
}

QByteArray progressiveJpeg(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "JPEG");
    writer.setProgressiveScanWrite(true);
    EXPECT_TRUE(writer.write(image));
    return buffer.data();
}

} // namespace

TEST(Picture, HasTheSizeThatItsFileDeclares)
{
    for (const char* const format : {"PNG", "JPEG", "BMP", "PPM"}) {
        const Picture picture = Picture::decode(encoded(noise(200, 100), format));
        EXPECT_EQ(picture.size(), QSize(200, 100)) << format;
        EXPECT_EQ(picture.pixels().size(), QSize(200, 100)) << format;
    }
}

TEST(Picture, KeepsItsPixelsAndTransparency)
{
    QImage image(4, 2, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixel(3, 1, 0xFF204060u);
    const Picture picture = Picture::decode(encoded(image, "PNG"));
    EXPECT_EQ(picture.pixels().pixel(3, 1), 0xFF204060u);
    EXPECT_EQ(picture.pixels().pixel(0, 0), 0u);
}

TEST(Picture, HoldsNoMorePixelsThanAnyViewNeeds)
{
    for (const char* const format : {"PNG", "JPEG", "BMP"}) {
        const Picture picture = Picture::decode(encoded(noise(1500, 3000), format));
        EXPECT_EQ(picture.size(), QSize(1500, 3000)) << format;
        EXPECT_EQ(picture.pixels().size(), QSize(512, 1024)) << format;
    }
}

TEST(Picture, KeepsAnExtremeShape)
{
    for (const char* const format : {"PNG", "JPEG"}) {
        const Picture picture = Picture::decode(encoded(noise(10000, 1), format));
        EXPECT_EQ(picture.size(), QSize(10000, 1)) << format;
        EXPECT_EQ(picture.pixels().size(), QSize(1024, 1)) << format;
    }
}

TEST(Picture, IsTurnedUprightWhereItsFileSaysSo)
{
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 16; ++x)
            image.setPixel(x, y, 0xFFFFFFFFu);
    }
    EXPECT_EQ(Picture::decode(turnedJpeg(image, 1)).size(), QSize(64, 32));
    const Picture turned = Picture::decode(turnedJpeg(image, 6));
    EXPECT_EQ(turned.size(), QSize(32, 64));
    ASSERT_EQ(turned.pixels().size(), QSize(32, 64));
    EXPECT_GT(qGray(turned.pixels().pixel(16, 4)), 200);
    EXPECT_LT(qGray(turned.pixels().pixel(16, 60)), 50);
}

TEST(Picture, IsTurnedUprightWhenScaledToo)
{
    const Picture turned = Picture::decode(turnedJpeg(noise(3000, 1500), 8));
    EXPECT_EQ(turned.size(), QSize(1500, 3000));
    EXPECT_EQ(turned.pixels().size(), QSize(512, 1024));
}

TEST(Picture, OfDamagedBytesIsEmpty)
{
    const QByteArray png = encoded(noise(100, 100), "PNG");
    const QByteArray jpeg = encoded(noise(100, 100), "JPEG");
    const std::vector<QByteArray> damaged{{},
                                          QByteArray(""),
                                          "no picture",
                                          QByteArray(1000, '\xFF'),
                                          png.left(8),
                                          png.left(20),
                                          jpeg.left(2),
                                          jpeg.left(20),
                                          "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>",
                                          "%PDF-1.4"};
    for (const QByteArray& bytes : damaged) {
        const Picture picture = Picture::decode(bytes);
        EXPECT_EQ(picture.size(), QSize(0, 0)) << bytes.toHex().toStdString();
        EXPECT_TRUE(picture.pixels().isNull());
    }
}

TEST(Picture, OfAFileCutAnywhereIsWholeOrEmpty)
{
    for (const char* const format : {"PNG", "JPEG", "BMP"}) {
        const QByteArray whole = encoded(noise(40, 30), format);
        for (qsizetype length = 0; length < whole.size(); length += 1 + whole.size() / 150) {
            const Picture picture = Picture::decode(whole.left(length));
            const bool empty = picture.size() == QSize(0, 0) && picture.pixels().isNull();
            const bool shown = picture.size() == QSize(40, 30) && picture.pixels().size() == QSize(40, 30);
            EXPECT_TRUE(empty || shown) << format << ' ' << length;
        }
    }
}

TEST(Picture, SurvivesBytesTurnedAtRandom)
{
    std::mt19937 random(11);
#ifdef LINEARA_SANITIZED
    constexpr int rounds = 60;
#else
    constexpr int rounds = 600;
#endif
    for (const char* const format : {"PNG", "JPEG", "BMP", "PPM"}) {
        const QByteArray whole = encoded(noise(40, 30), format);
        for (int round = 0; round < rounds; ++round) {
            QByteArray bytes = whole;
            for (auto flips = 1 + random() % 6; flips > 0; --flips)
                bytes[static_cast<qsizetype>(random() % 200)] = static_cast<char>(random());
            const Picture picture = Picture::decode(bytes);
            EXPECT_LE(std::max(picture.pixels().width(), picture.pixels().height()), 1024);
            EXPECT_TRUE(!picture.size().isEmpty() || picture.pixels().isNull());
        }
    }
}

TEST(Picture, OfAHugeDeclaredSizeKeepsTheSizeAndStaysCheap)
{
    const QByteArray progressive = progressiveJpeg(noise(64, 64));
    for (const QByteArray& bytes :
         {blackPng(20'000, 20'000, 1'000'000), blackPng(20'000, 20'000, 1'000'000, true),
          stretchedJpeg(encoded(noise(64, 64), "JPEG"), 20'000, 20'000), stretchedJpeg(progressive, 20'000, 20'000)}) {
        const HangGuard guard;
        const Picture picture = Picture::decode(bytes);
        EXPECT_EQ(picture.size(), QSize(20'000, 20'000));
        EXPECT_TRUE(picture.pixels().isNull());
    }
}

TEST(Picture, OfFourGigabytesOfPixelsStaysCheap)
{
    // As 32-bit pixels 3.6 GB, just what 32 bits can't count, and more pixels than 32 bits can count.
    for (const std::uint32_t side : {30'000U, 32'768U, 65'536U}) {
        const HangGuard guard;
        const Picture picture = Picture::decode(blackPng(side, side, 100'000));
        EXPECT_TRUE(picture.pixels().isNull());
        const QSize declared(static_cast<int>(side), static_cast<int>(side));
        EXPECT_TRUE(picture.size() == declared || picture.size() == QSize(0, 0)) << side;
    }
    const HangGuard guard;
    EXPECT_TRUE(Picture::decode(blackPng(2'147'483'647, 2'147'483'647, 1000)).pixels().isNull());
}

TEST(Picture, OfAHugeBitmapKeepsTheSizeAndStaysCheap)
{
    QByteArray bmp = encoded(noise(8, 8), "BMP");
    const QByteArray side = QByteArray::fromHex("E02E0000");
    bmp.replace(18, 4, side).replace(22, 4, side);
    const HangGuard guard;
    const Picture picture = Picture::decode(bmp);
    EXPECT_EQ(picture.size(), QSize(12'000, 12'000));
    EXPECT_TRUE(picture.pixels().isNull());
}

TEST(Picture, WithScansWithoutEndStaysCheap)
{
    const QByteArray jpeg = stretchedJpeg(progressiveJpeg(noise(64, 64)), 6'000, 6'000);
    const qsizetype lastScan = jpeg.lastIndexOf("\xFF\xDA");
    QByteArray bytes = jpeg.left(lastScan);
    for (int scan = 0; scan < 20'000; ++scan)
        bytes += jpeg.mid(lastScan, 14);
    const HangGuard guard;
    const Picture picture = Picture::decode(bytes);
    EXPECT_EQ(picture.size(), QSize(6'000, 6'000));
    EXPECT_TRUE(picture.pixels().isNull());
}

TEST(Picture, WithManyMegapixelsIsShownAllTheSame)
{
    const QByteArray photo = stretchedJpeg(encoded(noise(64, 64), "JPEG"), 12'000, 9'000);
    const HangGuard guard;
    const Picture picture = Picture::decode(photo);
    EXPECT_EQ(picture.size(), QSize(12'000, 9'000));
    EXPECT_EQ(picture.pixels().size(), QSize(1024, 768));
}

TEST(Picture, WrittenInScansIsShownToo)
{
    const Picture picture = Picture::decode(progressiveJpeg(noise(2000, 1000)));
    EXPECT_EQ(picture.size(), QSize(2000, 1000));
    EXPECT_EQ(picture.pixels().size(), QSize(1024, 512));
}

} // namespace lineara

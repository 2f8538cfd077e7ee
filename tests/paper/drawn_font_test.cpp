// Fonts whose outlines can't be embedded as they are.

#include "outside_program.h"
#include "pdf_file.h"
#include "pdf_font.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QtEndian>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

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

/// A page with a word of 300 letters in that font, 20 points high.
QString pageIn(const QRawFont& font, const QString& word, const QString& path)
{
    PdfFont used(font, "F0");
    QByteArray strings;
    QByteArray last;
    for (const QChar letter : word) {
        const auto place = used.use(font.glyphIndexesForString(letter).front(), letter);
        if (place.resource != last)
            strings += '/' + place.resource + " 20 Tf\n";
        last = place.resource;
        strings += '<' + place.code.toHex() + ">Tj\n";
    }
    PdfFile file;
    const int pages = file.reserve();
    const QByteArray fonts = used.write(file);
    const int content = file.addPacked({}, "BT 1 0 0 1 20 20 Tm\n" + strings + "ET");
    const int page = file.add("<</Type/Page/Parent " + PdfFile::reference(pages) + "/MediaBox[0 0 8000 60]/Contents " +
                              PdfFile::reference(content) + "/Resources<</Font<<" + fonts + ">>>>>>");
    file.put(pages, "<</Type/Pages/Count 1/Kids[" + PdfFile::reference(page) + "]>>");
    const int catalogue = file.add("<</Type/Catalog/Pages " + PdfFile::reference(pages) + ">>");
    QFile out(path);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(file.finish(catalogue, file.add("<<>>")));
    return path;
}

QImage drawnBy(const QString& pdf, const QString& to)
{
    EXPECT_EQ(printedBy(QStringLiteral("pdftoppm"),
                        {QStringLiteral("-r"), QStringLiteral("288"), QStringLiteral("-singlefile"),
                         QStringLiteral("-png"), QStringLiteral("-gray"), pdf, to}),
              QString());
    return QImage(to + QStringLiteral(".png"));
}

TEST(DrawnFont, LooksLikeTheEmbeddedOneAndIsFoundAlike)
{
    // More different letters than one drawn font has room for.
    QString word;
    for (char16_t letter = u'A'; letter < u'A' + 26; ++letter)
        word += QChar(letter);
    for (char16_t letter = 0xc0; letter < 0xc0 + 400; ++letter)
        word += letter == 0xd7 || letter == 0xf7 ? QChar(u'x') : QChar(letter);
    QTemporaryDir folder;
    const QByteArray font = fontFile();
    const QRawFont embedded(font, 20, QFont::PreferNoHinting);
    const QRawFont drawn(renamed(font, "name", "fvar"), 20, QFont::PreferNoHinting);
    ASSERT_TRUE(embedded.isValid());
    ASSERT_TRUE(drawn.isValid());
    const QString one = pageIn(embedded, word, folder.filePath(QStringLiteral("one.pdf")));
    const QString other = pageIn(drawn, word, folder.filePath(QStringLiteral("other.pdf")));
    const auto fonts = [](const QString& pdf) { return printedBy(QStringLiteral("pdffonts"), {pdf}).toStdString(); };
    EXPECT_THAT(fonts(one), HasSubstr("CID TrueType"));
    EXPECT_THAT(fonts(other), HasSubstr("Type 3"));
    const auto text = [](const QString& pdf) {
        return printedBy(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), pdf, QStringLiteral("-")});
    };
    EXPECT_EQ(text(other), text(one));
    EXPECT_THAT(text(other).toStdString(), HasSubstr("ABCDEFGH"));
    const QImage first = drawnBy(one, folder.filePath(QStringLiteral("one")));
    const QImage second = drawnBy(other, folder.filePath(QStringLiteral("other")));
    ASSERT_EQ(first.size(), second.size());
    qint64 apart = 0;
    qint64 ink = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            apart += std::abs(qGray(first.pixel(x, y)) - qGray(second.pixel(x, y)));
            ink += 255 - qGray(first.pixel(x, y));
        }
    }
    EXPECT_GT(ink, 100'000);
    EXPECT_LT(apart, ink / 10);
}

} // namespace
} // namespace lineara

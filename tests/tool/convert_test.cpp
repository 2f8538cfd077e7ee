#include "tool_run.h"

#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;

class ToolConvert : public testing::Test
{
protected:
    QString at(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

    static ToolRun convert(const QString& input, const QString& output)
    {
        return runTool({QStringLiteral("convert"), input, output});
    }

    static QString shakespeare() { return testFamily(QStringLiteral("shakespeare.ged")); }

    QTemporaryDir folder_;
};

TEST_F(ToolConvert, AFamilyFileHoldsTheImportedFamily)
{
    const auto run = convert(shakespeare(), at("a.lineara"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, "");
    const auto info = runTool({QStringLiteral("info"), at("a.lineara")});
    EXPECT_EQ(info.exitCode, 0);
    EXPECT_EQ(info.out, "persons: 31\npartner links: 10\noffspring links: 39\nrows: 5\n  row 5: 4\n  row 4: 5\n"
                        "  row 3: 9\n  row 2: 6\n  row 1: 7\n  in no row: 0\nunlinked persons: 0\n");
    EXPECT_EQ(info.err, "");
}

TEST_F(ToolConvert, AFamilyFileComesBackTheSame)
{
    ASSERT_EQ(convert(shakespeare(), at("a.lineara")).exitCode, 0);
    ASSERT_EQ(convert(at("a.lineara"), at("b.lineara")).exitCode, 0);
    EXPECT_FALSE(bytesOf(at("a.lineara")).isEmpty());
    EXPECT_EQ(bytesOf(at("a.lineara")), bytesOf(at("b.lineara")));
}

TEST_F(ToolConvert, AGenealogyComesBackLineByLine)
{
    ASSERT_EQ(convert(shakespeare(), at("a.ged")).exitCode, 0);
    const QByteArray before = bytesOf(shakespeare());
    const QByteArray after = bytesOf(at("a.ged"));
    const auto lines = [](const QByteArray& text) {
        // The header says who wrote the file.
        QList<QByteArray> all = text.mid(text.indexOf("\n0 @")).split('\n');
        all.removeAll({});
        return all;
    };
    EXPECT_EQ(lines(after), lines(before));
}

TEST_F(ToolConvert, AGenealogyIsOfTheVersionThatIsAskedFor)
{
    ASSERT_EQ(runTool({QStringLiteral("convert"), QStringLiteral("--gedcom7"), shakespeare(), at("a.ged")}).exitCode,
              0);
    EXPECT_THAT(bytesOf(at("a.ged")).toStdString(), HasSubstr("2 VERS 7.0\n"));
    ASSERT_EQ(convert(shakespeare(), at("b.ged")).exitCode, 0);
    EXPECT_THAT(bytesOf(at("b.ged")).toStdString(), HasSubstr("2 VERS 5.5.1\n"));
    ASSERT_EQ(convert(shakespeare(), at("c.gdz")).exitCode, 0);
    EXPECT_TRUE(bytesOf(at("c.gdz")).startsWith("PK"));
}

TEST_F(ToolConvert, TheSameInputGivesTheSameBytes)
{
    for (const char* suffix : {".lineara", ".ged", ".gdz", ".pdf", ".png", ".svg"}) {
        const QString first = at("first") + QString::fromLatin1(suffix);
        const QString second = at("second") + QString::fromLatin1(suffix);
        ASSERT_EQ(convert(shakespeare(), first).exitCode, 0) << suffix;
        ASSERT_EQ(convert(shakespeare(), second).exitCode, 0) << suffix;
        EXPECT_FALSE(bytesOf(first).isEmpty()) << suffix;
        EXPECT_EQ(bytesOf(first), bytesOf(second)) << suffix;
    }
}

TEST_F(ToolConvert, APdfOfALargeFamilyCanBeSentByMail)
{
    ASSERT_EQ(convert(testFamily(QStringLiteral("royal92.ged")), at("a.pdf")).exitCode, 0);
    EXPECT_GT(bytesOf(at("a.pdf")).size(), 100'000);
    EXPECT_LT(bytesOf(at("a.pdf")).size(), 600'000);
}

TEST_F(ToolConvert, APngShowsTheWholeFamilyInColour)
{
    ASSERT_EQ(convert(shakespeare(), at("a.png")).exitCode, 0);
    const QImage image(at("a.png"));
    // Five rows 221 points apart, at most nine nodes in one.
    EXPECT_GT(image.height(), 4 * 221);
    EXPECT_LT(image.height(), 6 * 221);
    EXPECT_GT(image.width(), 9 * 72);
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            inked += image.pixel(x, y) == qRgb(255, 255, 255) ? 0 : 1;
    }
    EXPECT_GT(inked, image.width() * image.height() / 50);
    EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255)) << "a margin stays free";
}

TEST_F(ToolConvert, AnSvgIsReadableAndHoldsTheNamesAsText)
{
    ASSERT_EQ(convert(shakespeare(), at("a.SVG")).exitCode, 0);
    QXmlStreamReader xml(bytesOf(at("a.SVG")));
    QString texts;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::Characters)
            texts += xml.text();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_THAT(texts.toStdString(), HasSubstr("Hathaway"));
    EXPECT_THAT(texts.toStdString(), HasSubstr("1564 - 1616"));
}

TEST_F(ToolConvert, APictureOfAHugeFamilyStaysWithinBounds)
{
    QByteArray text;
    for (int i = 0; i < 2'000; ++i)
        text += "0 INDI\n1 NAME Person " + QByteArray::number(i) + "\n";
    writeFile(at("wide.ged"), text);
    const auto run = convert(at("wide.ged"), at("wide.png"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.err,
                HasSubstr("lineara-tool: the family is too large for a picture at full size; it is drawn at "));
    QImageReader::setAllocationLimit(0);
    const QSize size = QImageReader(at("wide.png")).size();
    EXPECT_LE(size.width(), 20'000);
    EXPECT_GT(size.width(), 19'000);
    EXPECT_GE(size.height(), 1);
}

TEST_F(ToolConvert, AnEmptyFamilyGivesAnEmptyPicture)
{
    writeFile(at("empty.ged"), "0 HEAD\n0 TRLR\n");
    for (const char* name : {"empty.pdf", "empty.png", "empty.svg", "empty.lineara"}) {
        EXPECT_EQ(convert(at("empty.ged"), at(name)).exitCode, 0) << name;
        EXPECT_FALSE(bytesOf(at(name)).isEmpty()) << name;
    }
}

TEST_F(ToolConvert, FilesThatAreMissingAreToldOneByOneWhenAsked)
{
    writeFile(at("a.ged"), "0 HEAD\n0 @I1@ INDI\n1 OBJE\n2 FILE gone.mp3\n1 OBJE\n2 FILE lost.mp3\n0 TRLR\n");
    const auto sum = convert(at("a.ged"), at("b.ged"));
    EXPECT_EQ(sum.exitCode, 0);
    EXPECT_THAT(sum.err, HasSubstr("lineara-tool: Files that the genealogy names and that are not there: 2\n"));
    EXPECT_THAT(sum.err, testing::Not(HasSubstr(".mp3")));
    const auto all = runTool({QStringLiteral("convert"), QStringLiteral("--notes"), at("a.ged"), at("b.ged")});
    EXPECT_THAT(all.err, HasSubstr("not there: 2\nlineara-tool:   gone.mp3\nlineara-tool:   lost.mp3\n"));
}

TEST_F(ToolConvert, AnInputThatCanNotBeReadLeavesTheOutputAlone)
{
    writeFile(at("old.svg"), "old");
    const auto run = convert(at("missing.ged"), at("old.svg"));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.err, HasSubstr("lineara-tool: “missing.ged” can't be imported: "));
    EXPECT_EQ(bytesOf(at("old.svg")), "old");
}

TEST_F(ToolConvert, AnOutputThatCanNotBeWrittenEndsWithThree)
{
    for (const char* name : {"nowhere/a.lineara", "nowhere/a.pdf", "nowhere/a.png", "nowhere/a.svg"}) {
        const auto run = convert(shakespeare(), at(name));
        EXPECT_EQ(run.exitCode, 3) << name;
        EXPECT_THAT(run.err, HasSubstr("can't be saved: ")) << name;
    }
    for (const char* name : {"folder.lineara", "folder.png", "folder.svg"}) {
        ASSERT_TRUE(QDir().mkdir(at(name)));
        EXPECT_EQ(convert(shakespeare(), at(name)).exitCode, 3) << name;
    }
}

} // namespace
} // namespace lineara

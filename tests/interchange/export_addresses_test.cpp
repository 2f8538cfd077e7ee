// 7.0 names files by addresses, 5.5.1 by whatever people called them.

#include "exported.h"

#include "file_addresses.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace lineara;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// As they stand in 5.5.1: an @ is doubled.
std::vector<QByteArray> oddNames()
{
    return {"a.jpg",
            "a b.jpg",
            "a  b.jpg",
            "a.jpg ",
            "a.jpg\t",
            "a%20b.jpg",
            "a%20b c.jpg",
            "a%2520b.jpg",
            "100%.jpg",
            "100%25.jpg",
            "%",
            "%zz%20.jpg",
            "a%FFb.jpg",
            "a%2Fb.jpg",
            "%41.jpg",
            "a#b.jpg",
            "a?b=c&d.jpg",
            "a+b,c;d=e.jpg",
            "(a)[b]{c}!$'.jpg",
            "\"a\"<b>|c^d`.jpg",
            "a@@b.jpg",
            "@@home.jpg",
            "a:b.jpg",
            "C:foo.jpg",
            "C:",
            "C:\\",
            "C:\\Pictures\\Tom.jpg",
            "c:\\My Pictures\\Tom & Ann.jpg",
            "C:/Pictures/Tom.jpg",
            "C:\\Pictures/Tom.jpg",
            "C:\\a%20b.jpg",
            "C://x/y.jpg",
            "\\\\server\\share\\a b.jpg",
            "\\\\my server\\a.jpg",
            "\\\\?\\C:\\a.jpg",
            "//server/share/a.jpg",
            "\\Pictures\\a.jpg",
            "Pictures\\a b.jpg",
            "Pictures/a b.jpg",
            "./a.jpg",
            "../a.jpg",
            "..\\..\\a.jpg",
            "a//b.jpg",
            "a/b:c.jpg",
            "~/x.jpg",
            "/home/me/a.jpg",
            "/home/me/a b%20c.jpg",
            "///a.jpg",
            "\xC3\xBCml\xC3\xA4ut.jpg",
            "\xF0\x9F\x98\x80/\xD0\x96 \xE6\xBC\xA2.jpg",
            "\xEF\xBF\xBD.jpg",
            "e\xCC\x81.jpg",
            "http://example.com/a.jpg",
            "https://example.com/a b.jpg?x=\xC3\xBC#f",
            "HTTP://EXAMPLE.COM/100%.jpg",
            "see http://example.com/a.jpg",
            "file:///C:/a.jpg",
            "file:///home/me/d%20e f.jpg",
            "file://server/a.jpg",
            "file:a.jpg",
            "FILE:C:\\a.jpg",
            "mailto:me@@example.com",
            "data:image/png;base64,AAAA",
            "album, page 3",
            "a.jpg\n2 CONT b.jpg",
            QByteArray("long").repeated(60),
            QByteArray(200, 'x') + "\xC3\xBC.jpg"};
}

QByteArray withName(const QByteArray& name)
{
    return versionFive("0 @I1@ INDI\n1 NAME Ada\n1 OBJE @O1@\n0 @O1@ OBJE\n1 FILE " + name + "\n2 FORM jpg\n");
}

bool isAddressText(const std::string& text)
{
    static const QRegularExpression shape(
        QRegularExpression::anchoredPattern(QStringLiteral(
            "((file:|[a-z][a-z0-9+.-]+://)|(?![^/]*:))([A-Za-z0-9._~:/?#\\[\\]@!$&'()*+,;=-]|%[0-9A-F]{2})*")),
        QRegularExpression::CaseInsensitiveOption);
    return shape.match(QString::fromStdString(text)).hasMatch();
}

/// The address that the only file has in a genealogy of 7.0.
std::string addressIn(const QByteArray& seven)
{
    for (const std::string& line : linesOf(seven)) {
        if (line.starts_with("1 FILE @@"))
            return line.substr(8);
        if (line.starts_with("1 FILE "))
            return line.substr(7);
    }
    return {};
}

/// A folder with pictures under the names that the odd ones may mean.
class OddNames : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* const name : {"a.jpg",
                                       "a b.jpg",
                                       "a%20b c.jpg",
                                       "d e f.jpg",
                                       "100%.jpg",
                                       "a#b.jpg",
                                       "a?b=c&d.jpg",
                                       "Pictures/Tom.jpg",
                                       "Tom & Ann.jpg",
                                       "share/a b.jpg",
                                       "x.jpg",
                                       "me/a b%20c.jpg",
                                       "\xC3\xBCml\xC3\xA4ut.jpg",
                                       "a:b.jpg",
                                       "C:foo.jpg",
                                       "b:c.jpg",
                                       "\"a\"<b>|c^d`.jpg",
                                       "(a)[b]{c}!$'.jpg",
                                       "@home.jpg",
                                       "a@b.jpg",
                                       "a+b,c;d=e.jpg",
                                       "e\xCC\x81.jpg"}) {
            const QString path = folder_.filePath(QString::fromUtf8(name));
            ASSERT_TRUE(QFileInfo(path).dir().mkpath(QStringLiteral(".")));
            write(path, QByteArray("\x89PNG ") + name);
        }
    }

    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    ImportedFamily importedHere(const QByteArray& text) const
    {
        const QString path = folder_.filePath(QStringLiteral("in.ged"));
        write(path, text);
        return std::move(importGedcomFile(path).value());
    }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST(FileAddresses, AreMadeOfNames)
{
    const auto address = [](const char* name) { return addressOfName(QString::fromUtf8(name)).toStdString(); };
    EXPECT_EQ(address("C:\\Pictures\\Tom B.jpg"), "file:///C:/Pictures/Tom%20B.jpg");
    EXPECT_EQ(address("\\\\server\\share\\a.jpg"), "file://server/share/a.jpg");
    EXPECT_EQ(address("/home/me/a.jpg"), "file:///home/me/a.jpg");
    EXPECT_EQ(address("Pictures\\\xC3\xBC#1.jpg"), "Pictures/%C3%BC%231.jpg");
    EXPECT_EQ(address("a%20b.jpg"), "a%20b.jpg");
    EXPECT_EQ(address("100%.jpg"), "100%25.jpg");
    EXPECT_EQ(address("C:foo"), "C%3Afoo");
    EXPECT_EQ(address("https://example.com/a%20b?c#d"), "https://example.com/a%20b?c#d");
    EXPECT_EQ(address("https://example.com/a b"), "https://example.com/a%20b");
    EXPECT_EQ(address(""), "");
}

TEST(FileAddresses, BecomeNames)
{
    const auto name = [](const char* address) { return nameOfAddress(QString::fromUtf8(address)).toStdString(); };
    EXPECT_EQ(name("file:///C:/Pictures/Tom%20B.jpg"), "C:\\Pictures\\Tom B.jpg");
    EXPECT_EQ(name("file://server/share/a.jpg"), "\\\\server\\share\\a.jpg");
    EXPECT_EQ(name("file:///home/me/a.jpg"), "/home/me/a.jpg");
    EXPECT_EQ(name("media/a%20b.jpg"), "media/a b.jpg");
    EXPECT_EQ(name("https://example.com/a%20b"), "https://example.com/a%20b");
    for (const char* const foreign : {"a%2520b.jpg", "%41.jpg", "a%2Fb.jpg", "a b.jpg", "file:/home/a.jpg", "%FF.jpg"})
        EXPECT_EQ(name(foreign), foreign);
}

TEST_F(OddNames, AreAddressesIn7AndComeBackByteByByte)
{
    for (const QByteArray& name : oddNames()) {
        const QByteArray text = withName(name);
        const auto family = importedHere(text);
        for (const GedcomFormat format : {GedcomFormat::Gedcom70, GedcomFormat::Gedzip}) {
            const bool isArchive = format == GedcomFormat::Gedzip;
            const QByteArray file = exported(*family.context, format);
            const QByteArray seven = isArchive ? genealogyIn(file) : file;
            EXPECT_TRUE(isAddressText(addressIn(seven))) << seven.toStdString();
            const auto again = isArchive ? imported(file) : importedHere(seven);
            EXPECT_EQ(pictureOf(member(again, 0)), pictureOf(member(family, 0))) << name.toStdString();
            EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty()) << seven.toStdString();
            EXPECT_TRUE(exported(*again.context, format) == file) << name.toStdString();
        }
    }
}

TEST_F(OddNames, StayBesideWhatOtherProgramsMeanByTheTag)
{
    for (const QByteArray& name : oddNames()) {
        // The latter is in 5.5.1 where another program has written what it did not know.
        for (const char* const line : {"\n2 _FILE b.png\n3 NOTE of another", "\n2 _LINEARA_FILE b.png"}) {
            const QByteArray both = withName(name + line);
            const auto family = importedHere(both);
            for (const GedcomFormat format : {GedcomFormat::Gedcom70, GedcomFormat::Gedzip}) {
                const QByteArray file = exported(*family.context, format);
                const auto again = format == GedcomFormat::Gedzip ? imported(file) : importedHere(file);
                EXPECT_EQ(pictureOf(member(again, 0)), pictureOf(member(family, 0))) << name.toStdString();
                EXPECT_THAT(difference(both, exported(*again.context)), IsEmpty()) << name.toStdString();
            }
        }
    }
}

TEST(FileAddresses, CountWhereOtherProgramsMovedTheFiles)
{
    const auto moved = imported("0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @O1@ OBJE\n1 FILE photos/new%20one.jpg\n"
                                "2 _LINEARA_FILE Pictures\\a.jpg\n2 FORM image/jpeg\n0 TRLR\n");
    const QByteArray five = exported(*moved.context);
    EXPECT_TRUE(five.contains("\n1 FILE photos/new one.jpg\n2 _LINEARA_FILE Pictures\\a.jpg\n")) << five.toStdString();
}

TEST_F(OddNames, ComeBackThroughBoth)
{
    for (const QByteArray& name : oddNames()) {
        const QByteArray text = withName(name);
        const auto seven = importedHere(exported(*importedHere(text).context, GedcomFormat::Gedcom70));
        const auto archived = imported(exported(*seven.context, GedcomFormat::Gedzip));
        EXPECT_EQ(pictureOf(member(archived, 0)), pictureOf(member(seven, 0))) << name.toStdString();
        EXPECT_THAT(difference(text, exported(*archived.context)), IsEmpty()) << name.toStdString();
    }
}

TEST(FileAddresses, KeepNamesThatTheyDoNotTellOnce)
{
    const auto family = imported(withName("Pictures\\a.jpg"));
    EXPECT_THAT(inSeven(family),
                ElementsAre("0 @I1@ INDI", "1 NAME Ada", "1 OBJE @O1@", "0 @O1@ OBJE", "1 FILE Pictures/a.jpg",
                            "2 _LINEARA_FILE Pictures\\a.jpg", "2 FORM image/jpeg", "0 TRLR"));
    const auto told = imported(withName("C:\\Pictures\\a.jpg"));
    EXPECT_THAT(inSeven(told), ElementsAre("0 @I1@ INDI", "1 NAME Ada", "1 OBJE @O1@", "0 @O1@ OBJE",
                                           "1 FILE file:///C:/Pictures/a.jpg", "2 FORM image/jpeg", "0 TRLR"));
}

TEST(FileAddresses, LeaveTheNameInTheHeader)
{
    const QByteArray text =
        versionFive("0 @I1@ INDI\n").replace("1 CHAR UTF-8\n", "1 FILE C:\\Oak.ged\n1 CHAR UTF-8\n");
    const auto family = imported(text);
    EXPECT_TRUE(exported(*family.context, GedcomFormat::Gedcom70).contains("\n1 _LINEARA_FILE C:\\Oak.ged\n"));
    const auto again = imported(exported(*family.context, GedcomFormat::Gedcom70));
    EXPECT_THAT(difference(text, exported(*again.context)), IsEmpty());
}

TEST(FileAddresses, LeaveWhatIsSaidBelowAKeptName)
{
    const auto family =
        imported("0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @O1@ OBJE\n1 FILE Tom.jpg\n2 _LINEARA_FILE C:\\Tom.jpg\n"
                 "3 NOTE below\n2 FORM image/jpeg\n0 TRLR\n");
    EXPECT_TRUE(exported(*family.context).contains("\n2 _LINEARA_FILE C:\\Tom.jpg\n3 NOTE below\n"));
}

TEST(FileAddresses, LeaveHeadersWithinRecordsToOtherPrograms)
{
    const auto family = imported(versionFive("0 @X1@ _BACKUP\n1 HEAD\n2 FILE C:\\Oak.ged\n"));
    EXPECT_THAT(inSeven(family), ElementsAre("0 @X1@ _BACKUP", "1 HEAD", "2 FILE C:\\Oak.ged", "0 TRLR"));
}

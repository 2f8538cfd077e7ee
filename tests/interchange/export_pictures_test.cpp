// Pictures travel in archives.

#include "exported.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

using namespace lineara;

namespace {

QByteArray png(Qt::GlobalColor colour)
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(colour);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

class Pictures : public testing::Test
{
protected:
    void setPicture(Person& person, const QByteArray& bytes)
    {
        QFile file(folder_.filePath(QStringLiteral("picture")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        person.changePic(file.fileName());
    }

    static QByteArray pictureOf(const Person& person)
    {
        return person.pic() ? person.pic()->data() : QByteArrayLiteral("none");
    }

    const QByteArray red = png(Qt::red);
    const QByteArray blue = png(Qt::blue);
    const QByteArray text =
        "0 HEAD\n1 GEDC\n2 VERS 7.0\n0 @I1@ INDI\n1 NAME Ada\n1 OBJE @O1@\n0 @I2@ INDI\n1 NAME Ben\n"
        "1 OBJE @O1@\n0 @I3@ INDI\n1 NAME Cid\n0 @I4@ INDI\n1 NAME Dan\n1 OBJE @O2@\n"
        "0 @O1@ OBJE\n1 FILE photos/both.png\n2 FORM image/png\n"
        "0 @O2@ OBJE\n1 FILE ../dan.png\n2 FORM image/png\n0 TRLR\n";

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(Pictures, ComeBackFromAnArchive)
{
    const auto family = imported(text);
    const auto colours = std::vector<QByteArray>{red, blue, blue, red};
    for (std::size_t person = 0; person < 4; ++person)
        setPicture(member(family, person), colours[person]);
    const QByteArray archive = exported(*family.context, GedcomFormat::Gedzip);
    const auto again = imported(archive);
    EXPECT_EQ(familyText(*again.context), familyText(*family.context));
    for (std::size_t person = 0; person < 4; ++person)
        EXPECT_TRUE(pictureOf(member(again, person)) == colours[person]) << person;
    EXPECT_TRUE(exported(*family.context, GedcomFormat::Gedzip) == archive);
}

TEST_F(Pictures, UnderTheNamesOfTheRecordsChangeNoLine)
{
    const auto family = imported(text);
    setPicture(member(family, 0), red);
    setPicture(member(family, 1), red);
    EXPECT_TRUE(exported(*family.context, GedcomFormat::Gedzip).contains("photos/both.png"));
    EXPECT_THAT(difference(text, exported(*family.context, GedcomFormat::Gedcom70)), testing::IsEmpty());
}

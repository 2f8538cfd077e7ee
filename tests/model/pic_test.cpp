#include "model/dump.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace lineara {

namespace {

QByteArray png(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, "PNG");
    return buffer.data();
}

class PictureFiles
{
public:
    QString write(const QString& name, const QByteArray& bytes)
    {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QString missing() const { return folder_.filePath(u"missing.png"_qs); }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST(PersonPicture, IsStoredAsTheBytesOfTheFile)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    const QByteArray bytes = png(200, 100);
    person.changePic(files.write(u"a.png"_qs, bytes));
    ASSERT_NE(person.pic(), nullptr);
    EXPECT_EQ(person.pic()->data(), bytes);
    EXPECT_EQ(person.pic()->person(), &person);
    ASSERT_TRUE(person.image());
    EXPECT_EQ(person.image()->size(), QSize(200, 100));
}

TEST(PersonPicture, ReplacesTheBytesInTheSameRecord)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    person.changePic(files.write(u"a.png"_qs, png(20, 10)));
    Pic* const pic = person.pic();
    EXPECT_EQ(person.image()->size(), QSize(20, 10));
    person.changePic(files.write(u"b.png"_qs, png(30, 10)));
    EXPECT_EQ(person.pic(), pic);
    EXPECT_EQ(context.allPics().size(), 1u);
    EXPECT_EQ(person.image()->size(), QSize(30, 10));
}

TEST(PersonPicture, OfAFileThatCannotBeReadIsEmptyAndCanBeUndone)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    const QByteArray bytes = png(20, 10);
    person.changePic(files.write(u"a.png"_qs, bytes));
    context.journal().begin(u"Change Picture"_qs);
    person.changePic(files.missing());
    EXPECT_TRUE(person.pic()->hasData());
    EXPECT_TRUE(person.pic()->data().isEmpty());
    ASSERT_TRUE(person.image());
    EXPECT_EQ(person.image()->size(), QSize(0, 0));
    context.journal().undo();
    EXPECT_EQ(person.pic()->data(), bytes);
    EXPECT_EQ(person.image()->size(), QSize(20, 10));
}

TEST(PersonPicture, OfAnUnreadableFileIsMadeForAPersonWithoutOneToo)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    person.changePic(files.missing());
    ASSERT_NE(person.pic(), nullptr);
    EXPECT_TRUE(person.pic()->hasData());
}

TEST(PersonPicture, IsTakenAwayTogetherWithItsRecord)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    person.changePic(files.write(u"a.png"_qs, png(20, 10)));
    const std::string before = test::dump(context);
    context.journal().begin(u"Remove Picture"_qs);
    person.removePic();
    EXPECT_EQ(person.pic(), nullptr);
    EXPECT_EQ(person.image(), std::nullopt);
    EXPECT_TRUE(context.allPics().empty());
    context.journal().undo();
    EXPECT_EQ(test::dump(context), before);
    ASSERT_TRUE(person.image());
    EXPECT_EQ(person.image()->size(), QSize(20, 10));
}

TEST(PersonPicture, TakenAwayWhereThereIsNoneChangesNothing)
{
    ObjectContext context;
    Person& person = context.insertPerson();
    int events = 0;
    const Subscription subscription = context.observe([&](const Change&) { ++events; });
    person.removePic();
    EXPECT_EQ(events, 0);
}

TEST(PersonPicture, GoesWithThePersonAndComesBackWithIt)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    person.changePic(files.write(u"a.png"_qs, png(20, 10)));
    const std::string before = test::dump(context);
    context.journal().begin(u"Remove Person"_qs);
    context.remove(person);
    EXPECT_TRUE(context.allPics().empty());
    context.journal().undo();
    EXPECT_EQ(test::dump(context), before);
}

TEST(PersonPicture, IsAnnouncedAsAChangeOfTheImage)
{
    PictureFiles files;
    ObjectContext context;
    Person& person = context.insertPerson();
    int images = 0;
    const Subscription subscription = context.observe([&](const Change& change) {
        if (const auto* const attributes = std::get_if<AttributesChanged>(&change)) {
            EXPECT_EQ(attributes->attributes, PersonAttribute::Image);
            EXPECT_EQ(&attributes->person, &person);
            ++images;
        }
    });
    person.changePic(files.write(u"a.png"_qs, png(20, 10)));
    EXPECT_EQ(images, 1);
    person.changePic(files.write(u"b.png"_qs, png(30, 10)));
    EXPECT_EQ(images, 2);
    person.changePic(files.write(u"c.png"_qs, png(30, 10)));
    EXPECT_EQ(images, 2);
    person.removePic();
    EXPECT_EQ(images, 3);
}

TEST(PersonPicture, WithoutDataIsNotTheSameAsEmptyData)
{
    ObjectContext context;
    Pic& pic = context.insertPic();
    EXPECT_FALSE(pic.hasData());
    context.journal().begin(u"Change"_qs);
    pic.setData(QByteArray(""));
    EXPECT_TRUE(pic.hasData());
    EXPECT_TRUE(context.journal().canUndo());
    context.journal().undo();
    EXPECT_FALSE(pic.hasData());
}

} // namespace lineara

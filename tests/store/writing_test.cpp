#include "family_texts.h"

#include <QBuffer>
#include <QFile>

namespace lineara::test {

using testing::HasSubstr;

namespace {

/// Takes a given number of bytes and refuses the rest, as a full disk does.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 room) : room_(room) { open(WriteOnly | Unbuffered); }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 size) override
    {
        if (size > room_)
            return -1;
        room_ -= size;
        return size;
    }

private:
    qint64 room_;
};

} // namespace

TEST(Writing, CanonicalFileComesBackByteForByte)
{
    EXPECT_EQ(rewritten(smallFamily()), smallFamily());
}

TEST(Writing, ExampleOfTheDocumentationIsWhatWouldBeWritten)
{
    QFile page(QStringLiteral(LINEARA_DOCS "/family-file.md"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const auto text = page.readAll();
    const QByteArray fence = "```xml\n";
    const auto begin = text.indexOf(fence) + fence.size();
    const auto example = text.mid(begin, text.indexOf("```", begin) - begin);
    ASSERT_FALSE(example.isEmpty());
    EXPECT_TRUE(loaded(example).repairs.isEmpty());
    EXPECT_EQ(rewritten(example), example);
}

TEST(Writing, TextOfAFamilyFollowsItsRecords)
{
    ObjectContext family(QUuid(u"0f9619ff-8b86-4011-b42d-00c04fc964ff"_qs));
    auto& pool = family.insertPool();
    PersonValues ada;
    ada.name = u"Ada"_qs;
    ada.birthYear = 1815;
    PersonValues ben;
    ben.name = u"Ben"_qs;
    ben.additional = u"a < b & c"_qs;
    ben.generation = 2;
    ben.x = -40;
    PersonValues dan;
    dan.name = u"Dan"_qs;
    auto& first = family.insertPerson(ada);
    auto& second = family.insertPerson(ben);
    auto& third = family.insertPerson();
    auto& fourth = family.insertPerson(dan);
    for (auto* person : {&first, &second, &third, &fourth})
        pool.addPerson(*person);
    first.addPartner(second);
    first.addChild(third);
    second.addChild(third);
    second.addChild(fourth);
    first.addChild(fourth);
    EXPECT_EQ(textOf(family), smallFamily());
}

TEST(Writing, EmptyFamily)
{
    ObjectContext family(QUuid(u"0f9619ff-8b86-4011-b42d-00c04fc964ff"_qs));
    EXPECT_EQ(textOf(family), fileWith("", "101"));
}

TEST(Writing, PersonsComeInTheOrderOfThePoolAndStrangersAfterThem)
{
    const auto text = fileWith(pool("z105 z103") + pool("z104", "z102") + person("z105", inPool()) +
                               person("z103", inPool()) + person("z104", inPool("z102")) + person("z106"));
    EXPECT_EQ(rewritten(text), text);
}

TEST(Writing, UndoOfARemovalGivesTheSameFile)
{
    // The generations of a fresh run depend on the order of the persons and of every set.
    const auto before = fileWith(pool("z102 z103 z104") + person("z102", links("children", "z103 z104") + inPool()) +
                                     person("z103", links("parents", "z102") + links("partners", "z104") + inPool()) +
                                     person("z104", links("parents", "z102") + links("partners", "z103") + inPool()),
                                 "105");
    const auto family = loaded(before);
    auto& context = *family.context;
    context.journal().begin(u"Remove"_qs);
    context.remove(personOf(family, 102));
    const auto after = textOf(context);
    EXPECT_NE(after, before);
    context.journal().undo();
    EXPECT_EQ(textOf(context), before);
    context.journal().redo();
    EXPECT_EQ(textOf(context), after);
    context.journal().undo();

    const auto again = loaded(textOf(context));
    context.allPools().front()->process();
    again.context->allPools().front()->process();
    EXPECT_EQ(textOf(*again.context), textOf(context));
    EXPECT_EQ(personOf(family, 104).generation(), 1);
}

TEST(Writing, PicturesOfEverySizeComeBack)
{
    // Encoding goes piece by piece, so sizes around the ends of pieces are the interesting ones.
    constexpr int piece = 3 * 16 * 1024;
    for (const int size : {0, 1, 2, 3, piece - 1, piece, piece + 1, 2 * piece + 2, 10 * piece + 1}) {
        QByteArray bytes;
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(i ^ (i >> 8));
        ObjectContext family;
        auto& person = family.insertPerson();
        family.insertPool().addPerson(person);
        const auto written = [&] {
            auto base64 = bytes.isEmpty() ? QByteArray("<attribute name=\"data\" type=\"binary\"/>")
                                          : attribute("data", "binary", bytes.toBase64());
            return fileWith(pool("z102") +
                            ::lineara::test::person("z102", inPool() + links("pic", "z103", "PIC", "0/1")) +
                            object("PIC", "z103",
                                   (bytes.isEmpty() ? "        " + base64 + "\n" : base64) +
                                       links("person", "z102", "PERSON", "0/1")));
        }();
        EXPECT_TRUE(rewritten(written) == written) << size;
    }
}

TEST(Writing, DeviceThatRefusesIsNoticed)
{
    ObjectContext family;
    PersonValues values;
    values.name = u"x"_qs.repeated(2'000'000);
    family.insertPerson(values);
    const auto size = textOf(family).size();
    FullDevice none(0);
    FullDevice half(size / 2);
    FullDevice enough(size);
    EXPECT_FALSE(writeFamily(family, none));
    EXPECT_FALSE(writeFamily(family, half));
    EXPECT_TRUE(writeFamily(family, enough));
}

} // namespace lineara::test

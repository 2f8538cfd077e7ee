#include "model/text_hygiene.h"

#include "model/object_context.h"

#include <gtest/gtest.h>

namespace lineara {

namespace {

QString text(std::initializer_list<char16_t> units)
{
    QString made;
    for (const char16_t unit : units)
        made += QChar(unit);
    return made;
}

} // namespace

TEST(WritableText, ComesBackAsItIs)
{
    for (const QString& sound :
         {u""_qs, u" "_qs, u"\r\n\t a\r"_qs, u"Ærøskøbing 李 \U0001F333"_qs, text({0x7F, 0x85, 0xFFFD})}) {
        bool repaired = true;
        EXPECT_EQ(writableText(sound, &repaired), sound);
        EXPECT_FALSE(repaired);
    }
}

TEST(WritableText, SharesTheMemoryOfASoundText)
{
    const QString sound = u"Edith"_qs + QString::number(1901);
    EXPECT_EQ(writableText(sound).constData(), sound.constData());
}

TEST(WritableText, ReplacesWhatNoReaderAccepts)
{
    const QString replaced(QChar::ReplacementCharacter);
    for (const char16_t unit : std::initializer_list<char16_t>{0x00, 0x01, 0x08, 0x0B, 0x0C, 0x1F, 0xD800, 0xDBFF,
                                                               0xDC00, 0xDFFF, 0xFFFE, 0xFFFF}) {
        bool repaired = false;
        EXPECT_EQ(writableText(u"a"_qs + text({unit}) + u"b"_qs, &repaired), u"a"_qs + replaced + u"b"_qs)
            << "U+" << std::hex << static_cast<unsigned>(unit);
        EXPECT_TRUE(repaired);
        EXPECT_EQ(writableText(text({unit})), replaced);
    }
}

TEST(WritableText, ReplacesEachHalfOfAPairThatIsTheWrongWayRound)
{
    EXPECT_EQ(writableText(text({0xDF33, 0xD83C})), text({0xFFFD, 0xFFFD}));
    EXPECT_EQ(writableText(text({0xD83C, 0xD83C, 0xDF33})), text({0xFFFD, 0xD83C, 0xDF33}));
}

TEST(WritableText, InUtf8IsMendedInTheSameWay)
{
    for (const QByteArray& sound : {QByteArray(), QByteArray("0 HEAD\r\n\t"), u"Ærøskøbing 李 \U0001F333"_qs.toUtf8(),
                                    QByteArray("\xEF\xBB\xBF"), QByteArray("\xEF\xBF\xBD"), QByteArray("\x7F")})
        EXPECT_EQ(writableUtf8(sound), sound);
    const QByteArray replaced = "a\xEF\xBF\xBD"
                                "b";
    for (const QByteArray& dirty : {QByteArray("a\0b", 3),
                                    QByteArray("a\x0B"
                                               "b"),
                                    QByteArray("a\xFF"
                                               "b"),
                                    QByteArray("a\xEF\xBF\xBE"
                                               "b"),
                                    QByteArray("a\xEF\xBF\xBF"
                                               "b")})
        EXPECT_EQ(writableUtf8(dirty), replaced) << dirty.toHex().toStdString();
    EXPECT_TRUE(QUtf8StringView(writableUtf8("a\xC3")).isValidUtf8());
    EXPECT_TRUE(QUtf8StringView(writableUtf8("\xED\xA0\x80")).isValidUtf8());
}

TEST(WritableText, InUtf8SharesTheMemoryOfASoundText)
{
    const QByteArray sound = u"Zoë"_qs.toUtf8();
    EXPECT_EQ(writableUtf8(sound).constData(), sound.constData());
}

TEST(WritableText, IsAllThatPersonsEverHold)
{
    ObjectContext context;
    const QString dirty = text({u'a', 0x01});
    const QString clean = text({u'a', 0xFFFD});
    Person& person = context.insertPerson({.name = dirty, .additional = dirty});
    EXPECT_EQ(person.name(), clean);
    EXPECT_EQ(person.additional(), clean);
    person.setName(dirty + dirty);
    person.setAdditional(dirty + dirty);
    EXPECT_EQ(person.name(), clean + clean);
    EXPECT_EQ(person.additional(), clean + clean);
}

} // namespace lineara

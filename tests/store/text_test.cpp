#include "family_texts.h"

namespace lineara::test {

using testing::IsEmpty;

namespace {

struct Case
{
    const char* called;
    QString text;
};

QString everyCharacterOnce()
{
    QString result = u"\t\n\r"_qs;
    for (char32_t c = 0x20; c < 0x10FFFF; c += c < 0x3000 ? 1 : 77) {
        const bool isCharacter = (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF;
        if (isCharacter)
            result += QString::fromUcs4(&c, 1);
    }
    return result;
}

const std::vector<Case>& cases()
{
    static const std::vector<Case> all = {
        {"empty", u""_qs},
        {"one blank", u" "_qs},
        {"blanks only", u" \t\n "_qs},
        {"line ends", u"\r\n\t a\r"_qs},
        {"only a carriage return", u"\r"_qs},
        {"blanks around", u"  Ada  "_qs},
        {"markup", u"<b>&amp;</b> ]]> <!-- \"'"_qs},
        {"other scripts", u"Zoë Łukasz 王 عائشة \U0001F468\u200D\U0001F469\u200D\U0001F467"_qs},
        {"next line and line separator", u"a\u0085b\u2028c\u007F"_qs},
        {"byte order mark", u"\uFEFFa\uFEFF"_qs},
        {"all characters", everyCharacterOnce()},
        {"longer than a buffer", u"<long & wide>"_qs.repeated(60'000)},
    };
    return all;
}

} // namespace

TEST(Text, ComesBackExactlyAsItWas)
{
    for (const auto& [called, text] : cases()) {
        ObjectContext family;
        PersonValues values;
        values.name = text;
        values.additional = text;
        family.insertPool().addPerson(family.insertPerson(values));
        const auto written = textOf(family);
        const auto back = loaded(written);
        EXPECT_THAT(back.repairs, IsEmpty()) << called;
        EXPECT_TRUE(back.context->allPersons().front()->values() == values) << called;
        EXPECT_TRUE(textOf(*back.context) == written) << called;
    }
}

TEST(Text, EmptyAndAbsentDiffer)
{
    const auto empty = attribute("name", "string", "");
    EXPECT_EQ(personOf(loaded(fileWith(person("z102", empty))), 102).name(), std::optional(u""_qs));
    EXPECT_EQ(personOf(loaded(fileWith(person("z102"))), 102).name(), std::nullopt);
}

TEST(Text, LineEndsOfTheFileAreNormalised)
{
    const auto family = loaded(fileWith(person("z102", attribute("name", "string", "a\r\nb\rc&#13;&#xD;\n"))));
    EXPECT_EQ(personOf(family, 102).name(), u"a\nb\nc\r\r\n"_qs);
}

TEST(Text, EveryWayToWriteACharacterIsUnderstood)
{
    const auto text = "&lt;&gt;&amp;&quot;&apos;&#65;&#x42;&#x1F600;<![CDATA[<&amp;>]]> <!-- no --> <?no no?>C";
    EXPECT_EQ(personOf(loaded(fileWith(person("z102", attribute("name", "string", text)))), 102).name(),
              u"<>&\"'AB\U0001F600<&amp;>  C"_qs);
}

TEST(Text, BlanksAroundSectionsAreText)
{
    const auto text = " <![CDATA[x]]> ";
    EXPECT_EQ(personOf(loaded(fileWith(person("z102", attribute("name", "string", text)))), 102).name(), u" x "_qs);
}

TEST(Text, WhatNoFileCanHoldIsReplacedWhenWritten)
{
    ObjectContext family;
    auto& pool = family.insertPool();
    auto& person = family.insertPerson();
    pool.addPerson(person);
    QString text = u"a"_qs;
    for (const auto unit : {u'\x01', u'\x1F', u'\xD800', u'\xFFFE', u'\xFFFF', u'\xDC00'})
        text += QChar(unit);
    person.setName(text);
    const auto back = loaded(textOf(family));
    EXPECT_THAT(back.repairs, IsEmpty());
    EXPECT_EQ(back.context->allPersons().front()->name(), u"a\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"_qs);
}

} // namespace lineara::test

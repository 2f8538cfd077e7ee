#include "family_texts.h"

#include <QFile>
#include <QTemporaryDir>

#include <thread>

namespace lineara::test {

namespace {

std::string savedText(const FamilyContent& content)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"content.lineara"_qs);
    EXPECT_TRUE(saveFamilyFile(content, path));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
}

/// A bit of everything that a file can hold, canonical.
QByteArray richFamily()
{
    return fileWith(
        pool("z105 z103") + pool("z104", "z102") +
        person("z105",
               attribute("name", "string", "Ada") + "        <strange/>\n" + links("children", "z103") + inPool()) +
        person("z103", links("parents", "z105") + inPool() + links("pic", "z107", "PIC", "0/1") + madeOf("z110")) +
        person("z104", attribute("additional", "string", "note") + inPool("z102")) + person("z106") +
        object("PIC", "z107", attribute("data", "binary", "iVBORw0KGgo=") + ofPerson("z103")) +
        source("z109", "0 HEAD\n1 NOTE a &lt; b\n") +
        source("z110", "0 @I1@ INDI\n", "        <strange/>\n" + ofPerson("z103")) +
        "    <object type=\"HOUSE\" id=\"z108\"/>\n");
}

} // namespace

TEST(Content, HoldsEverythingThatTheFileHolds)
{
    for (const auto& text : {smallFamily(), richFamily()})
        EXPECT_EQ(savedText(FamilyContent(*loaded(text).context)), text.toStdString());
}

TEST(Content, StaysAsItWasTaken)
{
    auto family = loaded(richFamily());
    auto& context = *family.context;
    const FamilyContent content(context);
    personOf(family, 105).setName(u"Eve"_qs);
    personOf(family, 103).removePic();
    context.remove(personOf(family, 104));
    context.remove(personOf(family, 103));
    context.insertPool().addPerson(context.insertPerson());
    EXPECT_EQ(savedText(content), richFamily().toStdString());
    family.context.reset();
    EXPECT_EQ(savedText(content), richFamily().toStdString());
}

TEST(Content, IsWrittenOnAnotherThreadWhileTheFamilyChanges)
{
    const auto family = loaded(richFamily());
    std::string written;
    std::thread writer([&written, content = FamilyContent(*family.context)] { written = savedText(content); });
    for (int round = 0; round < 1000; ++round) {
        personOf(family, 105).setName(u"Ada%1"_qs.arg(round));
        personOf(family, 104).setAdditional(personOf(family, 105).name());
        personOf(family, 104).addPartner(personOf(family, 106));
        personOf(family, 104).removePartner(personOf(family, 106));
    }
    writer.join();
    EXPECT_EQ(written, richFamily().toStdString());
}

TEST(Content, WhatIsBeingTypedLiesOverTheRecords)
{
    const auto family = loaded(smallFamily());
    FamilyContent content(*family.context);
    PersonValues typed = personOf(family, 102).values();
    typed.name = u"Ada & co\u0001"_qs;
    typed.birthYear = -12;
    typed.additional = std::nullopt;
    content.setValues(RecordId{102}, typed);
    const auto reread = loaded(QByteArray::fromStdString(savedText(content)));
    typed.name = u"Ada & co\uFFFD"_qs;
    EXPECT_EQ(personOf(reread, 102).values(), typed);
    EXPECT_EQ(personOf(reread, 103).values(), personOf(family, 103).values());
    EXPECT_EQ(textOf(*family.context), smallFamily());
}

TEST(Content, ValuesOfAPersonThatIsGoneLeaveTheOthersAlone)
{
    FamilyContent content(*loaded(smallFamily()).context);
    PersonValues typed;
    typed.name = u"nobody"_qs;
    content.setValues(RecordId{101}, typed);
    content.setValues(RecordId{999}, typed);
    EXPECT_EQ(savedText(content), smallFamily().toStdString());
}

} // namespace lineara::test

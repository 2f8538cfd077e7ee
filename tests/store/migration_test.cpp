#include "local_zone.h"
#include "store/migration_manager.h"
#include "version_samples.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>
#include <random>

namespace lineara::test {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct Zone
{
    const char* name;
    QString sample;
};

const std::vector<Zone>& zones()
{
    static const std::vector<Zone> all = {{"America/New_York", u"New_York"_qs},
                                          {"Asia/Tokyo", u"Tokyo"_qs},
                                          {"Pacific/Apia", u"Apia"_qs},
                                          {"Europe/London", u"London"_qs}};
    return all;
}

/// A folder with one old file in it.
class Migration : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    QStringList filesInFolder() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

    /// What one step makes of the text; empty after a failure, which is in message_.
    QByteArray migrated(const QByteArray& text, int from, int to)
    {
        return migratedBy(text, modelOf(from), modelOf(to),
                          ResourceBundle().mappingModel(modelOf(from), modelOf(to)).value_or(MappingModel()));
    }

    QByteArray migratedBy(const QByteArray& text, const ModelVersion& from, const ModelVersion& to,
                          const MappingModel& mapping, const store::FileCalls& calls = store::FileCalls::ofTheSystem())
    {
        QFile::remove(path(u"new"_qs));
        QFile file(path(u"old"_qs));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(text), text.size());
        file.close();
        const auto done = MigrationManager(from, to).migrateStore(path(u"old"_qs), path(u"new"_qs), mapping, calls);
        message_ = done.failed() ? done.failure().message.toStdString() : std::string();
        EXPECT_EQ(contentsOf(path(u"old"_qs)), text);
        EXPECT_EQ(QFile::exists(path(u"new"_qs)), !done.failed());
        return done.failed() ? QByteArray() : contentsOf(path(u"new"_qs));
    }

    /// Why the step from 12 to 14 refuses a file of these objects.
    std::string refusalOf(const QByteArray& objects)
    {
        migrated(ofVersion(12, fileWith(objects)), 12, 14);
        EXPECT_EQ(filesInFolder(), QStringList{u"old"_qs});
        return message_;
    }

    std::string refusalOfText(const QByteArray& text)
    {
        migrated(text, 12, 14);
        EXPECT_EQ(filesInFolder(), QStringList{u"old"_qs});
        return message_;
    }

    std::string message_;

private:
    QTemporaryDir folder_;
};

QByteArray onePerson(const QByteArray& members)
{
    return pool("z102") + person("z102", members + inPool());
}

/// The small family as version 12 would have written it.
QByteArray smallOldFamily()
{
    return ofVersion(12, smallFamily().replace(attribute("birthYear", "int32", "1815"), ""));
}

/// A step from version 1 to 2 of a model with one entity of three attributes.
struct SmallStep
{
    ModelVersion from = *readModel("<model version='1'><entity name='A'><attribute name='a' type='string'/>"
                                   "<attribute name='d' type='date'/></entity></model>");
    ModelVersion to = *readModel("<model version='2'><entity name='A'><attribute name='b' type='string'/>"
                                 "<attribute name='n' type='int32'/></entity></model>");

    static std::optional<ModelVersion> readModel(const QByteArray& text)
    {
        auto model = ModelVersion::read(text);
        return model.failed() ? std::nullopt : std::optional(std::move(model.value()));
    }

    static MappingModel mapping(const QByteArray& properties)
    {
        auto model =
            MappingModel::read("<mapping from='1' to='2'><entity name='A'>" + properties + "</entity></mapping>");
        EXPECT_TRUE(model);
        return model.failed() ? MappingModel() : std::move(model.value());
    }
};

} // namespace

TEST_F(Migration, StepFrom11MakesTheFrozenResult)
{
    EXPECT_EQ(migrated(sample(u"family_11"_qs), 11, 12), sample(u"golden/11_to_12"_qs)) << message_;
    EXPECT_EQ(migrated(sample(u"golden/11_to_12"_qs), 12, 14), sample(u"golden/11_to_14"_qs)) << message_;
}

TEST_F(Migration, StepsFrom12And13MakeTheFrozenResultOfEachZone)
{
    for (const auto& zone : zones()) {
        const LocalZone local(zone.name);
        EXPECT_EQ(migrated(sample(u"family_12"_qs), 12, 14), sample(u"golden/12_to_14."_qs + zone.sample)) << message_;
        EXPECT_EQ(migrated(sample(u"family_13"_qs), 13, 14), sample(u"golden/13_to_14."_qs + zone.sample)) << message_;
    }
}

TEST_F(Migration, TheResultOpensWithoutRepairsAndIsSavedAsItStands)
{
    for (const auto& zone : zones()) {
        for (const auto& name : {u"golden/12_to_14."_qs, u"golden/13_to_14."_qs}) {
            const auto text = sample(name + zone.sample);
            EXPECT_THAT(loaded(text).repairs, IsEmpty());
            EXPECT_EQ(rewritten(text), text);
        }
    }
    EXPECT_THAT(loaded(sample(u"golden/11_to_14"_qs)).repairs, IsEmpty());
}

TEST_F(Migration, ADateNearMidnightIsReadByTheZoneOfItsDay)
{
    const auto text = ofVersion(12, fileWith(onePerson(attribute("birth", "date", "-4733589600"))));
    const auto dayIn = [&](const char* zone) {
        const LocalZone local(zone);
        const auto family = loaded(migrated(text, 12, 14));
        const auto& person = personOf(family, 102);
        return std::vector{person.birthYear(), person.birthMonth(), person.birthDay()};
    };
    using Day = std::vector<std::optional<std::int32_t>>;
    EXPECT_EQ(dayIn("America/New_York"), (Day{1850, 12, 31}));
    EXPECT_EQ(dayIn("Asia/Tokyo"), (Day{1851, 1, 1}));
}

TEST_F(Migration, ABegunSecondBelongsToTheYearItLiesIn)
{
    const LocalZone local("UTC");
    const auto yearOf = [&](const QByteArray& seconds) {
        const auto family =
            loaded(migrated(ofVersion(12, fileWith(onePerson(attribute("birth", "date", seconds)))), 12, 14));
        return personOf(family, 102).birthYear();
    };
    EXPECT_EQ(yearOf("0"), 2001);
    EXPECT_EQ(yearOf("-0"), 2001);
    EXPECT_EQ(yearOf("0.999"), 2001);
    EXPECT_EQ(yearOf("-0.001"), 2000);
    EXPECT_EQ(yearOf("-1e-300"), 2000);
    EXPECT_EQ(yearOf("-31622400"), 2000);
    EXPECT_EQ(yearOf("-31622400.5"), 1999);
    EXPECT_EQ(yearOf("-6.3113904e10"), 1);
    EXPECT_EQ(yearOf("-63113904000.5"), -1);
}

TEST_F(Migration, DatesBeyondEveryCalendarStayAsTheyStand)
{
    for (const QByteArray seconds : {"9.1e15", "-9.1e15", "1e17", "-1e300", "1e999", "-1e999"}) {
        const auto line = attribute("birth", "date", seconds);
        const auto result = migrated(ofVersion(12, fileWith(onePerson(line))), 12, 14);
        EXPECT_TRUE(result.contains(line)) << message_;
        EXPECT_FALSE(result.contains("birthYear"));
        EXPECT_EQ(rewritten(result), result);
    }
    for (const QByteArray seconds : {"9e15", "-9e15"}) {
        const auto result = migrated(ofVersion(12, fileWith(onePerson(attribute("birth", "date", seconds)))), 12, 14);
        const auto year = personOf(loaded(result), 102).birthYear();
        ASSERT_TRUE(year);
        EXPECT_NEAR(*year, seconds.startsWith('-') ? -285'193'000 : 285'197'000, 10'000);
    }
}

TEST_F(Migration, PartsBesideADateAreTakenOverFrom13)
{
    const LocalZone local("UTC");
    const auto family = loaded(migrated(
        ofVersion(13, fileWith(onePerson(attribute("birthDay", "int32", "3") + attribute("birth", "date", "0")))), 13,
        14));
    EXPECT_EQ(personOf(family, 102).birthDay(), 3);
    EXPECT_EQ(personOf(family, 102).birthMonth(), std::nullopt);
    EXPECT_EQ(personOf(family, 102).birthYear(), 2001);
}

TEST_F(Migration, WhatSomebodyWroteMoreAboutIsKept)
{
    const auto members = QByteArray("        <attribute name='birth' type='date' about=\"noon\">0</attribute>\n"
                                    "        <attribute name='name' type='string' lang=\"de\">Ada</attribute>\n");
    const auto result = migrated(ofVersion(12, fileWith(onePerson(members))), 12, 14);
    EXPECT_TRUE(result.contains(members.left(members.indexOf('\n')))) << message_;
    EXPECT_TRUE(result.contains(members.mid(members.indexOf('\n')).trimmed()));
    EXPECT_EQ(personOf(loaded(result), 102).birthYear().has_value(), true);
    EXPECT_EQ(personOf(loaded(result), 102).name(), u"Ada"_qs);
    const auto notes = QByteArray("<attribute name='notes' type='string' lang=\"de\">Ja</attribute>");
    const auto renamed = migrated(ofVersion(11, fileWith(onePerson(notes))), 11, 12);
    EXPECT_TRUE(renamed.contains("<attribute name='additional' type='string' lang=\"de\">Ja</attribute>")) << message_;
}

TEST_F(Migration, WhatStandsAroundTheFamilyIsKept)
{
    auto text = smallOldFamily();
    text.replace("<database>", "<!-- before --><database by=\"hand\">");
    text += "<!-- after -->\n";
    text.replace("<databaseInfo>", "<databaseInfo about='all'>");
    text.replace("<object type=\"PERSON\" id=\"z104\">", "<object id='z104' type='PERSON' colour=\"red\">");
    auto expected = text;
    EXPECT_EQ(migrated(text, 12, 14), expected.replace(">12</metadata>", ">14</metadata>")) << message_;
}

TEST_F(Migration, EmptyObjectsAndRelationshipsAreWrittenAsAlways)
{
    const auto text = ofVersion(12, fileWith("    <object type='POOL' id='z101'><relationship name='persons' "
                                             "type='0/0' destination='PERSON' idrefs=' '/></object>\n"
                                             "<object type='PERSON' id='z102'/>"));
    const auto result = migrated(text, 12, 14);
    EXPECT_EQ(result, fileWith(object("POOL", "z101", {}) + person("z102"))) << message_;
}

TEST_F(Migration, UnknownContentSurvivesEverywhere)
{
    const std::vector<QByteArray> strangers = {
        "<attribute name=\"nickname\" type=\"string\">Bee &amp; <![CDATA[<x>]]> </attribute>",
        "<relationship name=\"godparents\" type=\"0/0\" destination=\"PERSON\" idrefs=\"z7 z8\"/>",
        "<!-- a comment > with < signs -->", "<?hint keep=\"this\" ?>", "<note a='>'><note>\n  nested\n</note></note>"};
    std::mt19937 random(4);
    for (int round = 0; round < 60; ++round) {
        QByteArray text;
        for (const auto& line : smallOldFamily().split('\n')) {
            const bool canFollow = line.startsWith("        <");
            text += line + '\n';
            for (auto count = random() % 3; canFollow && count > 0; --count)
                text += "        " + strangers[random() % strangers.size()] + '\n';
        }
        text.chop(1);
        auto expected = text;
        ASSERT_EQ(migrated(text, 12, 14), expected.replace(">12</metadata>", ">14</metadata>")) << message_;
    }
}

TEST_F(Migration, BrokenFilesAreRefusedWithTheirPlaceAndNothingIsWritten)
{
    EXPECT_THAT(refusalOf(onePerson(attribute("birth", "date", "soon"))),
                AllOf(HasSubstr("/old”"), HasSubstr("line 13"), HasSubstr("z102"), HasSubstr("“soon”")));
    for (const QByteArray value : {"", "nan", "inf", "-infinity", "1,5", " 5", "5 ", "0x10", "+1", "1e"})
        EXPECT_THAT(refusalOf(onePerson(attribute("birth", "date", value))), HasSubstr("no number of seconds"));
    EXPECT_THAT(refusalOf(onePerson(attribute("birth", "int32", "5"))), HasSubstr("“int32” instead of “date”"));
    EXPECT_THAT(refusalOf(onePerson(attribute("birth", "date", "5<b/>"))), HasSubstr("no number of seconds"));
    EXPECT_THAT(refusalOf(onePerson(attribute("birth", "date", "5") + attribute("birth", "date", "5"))),
                HasSubstr("twice"));
    EXPECT_THAT(refusalOf(onePerson(attribute("x", "int32", "5.5"))), HasSubstr("not a whole number"));
    EXPECT_THAT(refusalOf(onePerson(attribute("x", "int32", "2147483648"))), HasSubstr("out of range"));
    EXPECT_THAT(refusalOf(onePerson(attribute("name", "string", "&nothing;"))), HasSubstr("means nothing"));
    EXPECT_THAT(refusalOf(onePerson("stray")), HasSubstr("text stands outside"));
    EXPECT_THAT(refusalOf("stray" + onePerson({})), HasSubstr("stray text"));
    EXPECT_THAT(refusalOf(onePerson(links("parents", "z7"))), AllOf(HasSubstr("z102"), HasSubstr("z7")));
    EXPECT_THAT(refusalOf(onePerson(links("parents", "z101"))), HasSubstr("another entity"));
    EXPECT_THAT(refusalOf(onePerson(links("parents", "102"))), HasSubstr("no object id"));
    EXPECT_THAT(refusalOf(onePerson(links("parents", "z102", "POOL"))), HasSubstr("“POOL” instead of “PERSON”"));
    EXPECT_THAT(refusalOf(onePerson(links("pic", "z101 z102", "PIC"))), HasSubstr("more than one"));
    EXPECT_THAT(refusalOf(onePerson({}) + person("z102")), HasSubstr("z102 is there twice"));
    EXPECT_THAT(refusalOf(onePerson({}) + object("PLACE", "z102", {})), HasSubstr("z102 is there twice"));
    EXPECT_THAT(refusalOf(onePerson({}) + person("102")), HasSubstr("no object id"));
    EXPECT_THAT(refusalOf(object("PIC", "z103", attribute("data", "binary", "%%%%"))), HasSubstr("base64"));
}

TEST_F(Migration, WhatIsNoFamilyFileOfTheVersionIsRefused)
{
    const auto text = smallOldFamily();
    EXPECT_THAT(refusalOfText(smallFamily()), HasSubstr("version 14 instead of 12"));
    EXPECT_THAT(refusalOfText({}), HasSubstr("empty"));
    EXPECT_THAT(refusalOfText("<database/>"), HasSubstr("databaseInfo"));
    for (qsizetype size = 1; size < text.size() - 1; size += 7)
        EXPECT_NE(refusalOfText(text.left(size)), "");
    EXPECT_THAT(refusalOfText("<!DOCTYPE database [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]>" + text.mid(39)),
                HasSubstr("document type"));
    EXPECT_THAT(refusalOfText(QByteArray(text).replace("Ada", "A\xFF")), HasSubstr("UTF-8"));
    EXPECT_THAT(refusalOfText(QByteArray(text).replace("    </databaseInfo>", "</databaseInfo><databaseInfo/>")),
                HasSubstr("second “databaseInfo”"));
    EXPECT_TRUE(MigrationManager(modelOf(12), modelOf(14))
                    .migrateStore(path(u"gone"_qs), path(u"new"_qs), MappingModel())
                    .failed());
}

TEST_F(Migration, MappingsThatDoNotFitAreRefused)
{
    const SmallStep step;
    const auto problemOf = [&](const QByteArray& properties) {
        migratedBy(fileWith({}).replace(">14<", ">1<"), step.from, step.to, SmallStep::mapping(properties));
        return message_;
    };
    EXPECT_EQ(problemOf("<rename from='a' name='b'/><drop name='d'/>"), "");
    EXPECT_EQ(problemOf("<drop name='a'/><compute from='d' name='n' function='dateToDay_12_14'/>"), "");
    EXPECT_THAT(problemOf("<rename from='a' name='b'/>"), HasSubstr("“d” of “A” does not fit: nothing is said"));
    EXPECT_THAT(problemOf("<copy name='a'/><drop name='d'/>"), HasSubstr("nothing like it"));
    EXPECT_THAT(problemOf("<rename from='a' name='n'/><drop name='d'/>"), HasSubstr("nothing like it"));
    EXPECT_THAT(problemOf("<drop name='a'/><drop name='d'/><drop name='e'/>"), HasSubstr("does not know it"));
    EXPECT_THAT(problemOf("<drop name='a'/><compute from='d' name='n' function='dateToWeek'/>"),
                HasSubstr("no such function"));
    EXPECT_THAT(problemOf("<drop name='d'/><compute from='a' name='n' function='dateToDay_12_14'/>"),
                HasSubstr("from a date"));
    EXPECT_THAT(problemOf("<rename from='a' name='b'/><compute from='d' name='n' function='dateToDay_12_14'/>"
                          "<compute from='d' name='n' function='dateToYear_12_14'/>"),
                HasSubstr("not the only one"));
    migratedBy(fileWith({}), step.from, step.to, MappingModel{3, 4, {}});
    EXPECT_THAT(message_, HasSubstr("other versions"));
    migratedBy(fileWith({}), step.from, modelOf(12), MappingModel{1, 12, {}});
    EXPECT_THAT(message_, HasSubstr("has no “A”"));
}

TEST_F(Migration, DeviceThatRefusesLeavesNothingBehind)
{
    const auto mapping = *ResourceBundle().mappingModel(modelOf(12), modelOf(14));
    const auto text = smallOldFamily();
    auto full = store::FileCalls::ofTheSystem();
    full.write = [](int, const void*, std::size_t) -> ssize_t {
        errno = ENOSPC;
        return -1;
    };
    auto unsynced = store::FileCalls::ofTheSystem();
    unsynced.sync = [](int) {
        errno = EIO;
        return -1;
    };
    for (const auto& calls : {full, unsynced}) {
        migratedBy(text, modelOf(12), modelOf(14), mapping, calls);
        EXPECT_THAT(message_, AllOf(HasSubstr("/new”"), HasSubstr("can't be saved")));
        EXPECT_EQ(filesInFolder(), QStringList{u"old"_qs});
    }
}

} // namespace lineara::test

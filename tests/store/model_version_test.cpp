#include "store/store_metadata.h"
#include "version_samples.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

namespace lineara::test {

using testing::AllOf;
using testing::HasSubstr;

namespace {

/// A file for one test.
class WrittenFile
{
public:
    explicit WrittenFile(const QByteArray& bytes) : path_(folder_.filePath(u"a.lineara"_qs))
    {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
    }

    Outcome<StoreMetadata> metadata() const { return metadataForPersistentStore(path_); }

private:
    QTemporaryDir folder_;
    QString path_;
};

std::string problem(const QByteArray& bytes)
{
    const auto metadata = WrittenFile(bytes).metadata();
    return metadata.failed() ? metadata.failure().message.toStdString() : std::string();
}

int versionIn(const QByteArray& bytes)
{
    const auto metadata = WrittenFile(bytes).metadata();
    return metadata.failed() ? 0 : metadata.value().modelVersion;
}

std::string problemOfModel(const QByteArray& mom)
{
    const auto model = ModelVersion::read(mom);
    return model.failed() ? model.failure().message.toStdString() : std::string();
}

std::string problemOfMapping(const QByteArray& mapping)
{
    const auto model = MappingModel::read(mapping);
    return model.failed() ? model.failure().message.toStdString() : std::string();
}

} // namespace

TEST(Metadata, OfEverySampleIsRead)
{
    for (const int version : {11, 12, 13, 14}) {
        const auto metadata = metadataForPersistentStore(samplePath(u"family_%1"_qs.arg(version)));
        ASSERT_TRUE(metadata);
        EXPECT_EQ(metadata.value().modelVersion, version);
        EXPECT_EQ(metadata.value().formatVersion, 1);
        EXPECT_FALSE(metadata.value().uuid.isNull());
    }
}

TEST(Metadata, AreTheSameAsTheReaderFinds)
{
    const auto metadata = WrittenFile(smallFamily()).metadata();
    ASSERT_TRUE(metadata);
    EXPECT_EQ(metadata.value().uuid, loaded(smallFamily()).context->storeUuid());
}

TEST(Metadata, OfAnUnknownVersionAreReadAllTheSame)
{
    EXPECT_EQ(versionIn(ofVersion(15, smallFamily())), 15);
    EXPECT_EQ(versionIn(ofVersion(1, smallFamily())), 1);
}

TEST(Metadata, NeedTheBeginningOfTheFileAlone)
{
    auto text = smallFamily();
    text.truncate(text.indexOf("</databaseInfo>") + 15);
    EXPECT_EQ(versionIn(text + QByteArray(30'000'000, 'x')), 14);
}

TEST(Metadata, WordsInACommentEndNothing)
{
    auto text = smallFamily();
    text.replace("        <formatVersion>", "        <!-- </databaseInfo> --><!-- <database> </databaseInfo>-->\n"
                                            "        <formatVersion>");
    EXPECT_EQ(versionIn(text), 14);
}

TEST(Metadata, OfAFileFullOfMisleadingCommentsAreGivenUpSoon)
{
    QElapsedTimer timer;
    timer.start();
    QByteArray comments;
    for (int i = 0; i < 50'000; ++i)
        comments += "<!-- </databaseInfo> -->";
    auto text = smallFamily();
    text.replace("        <formatVersion>", comments + "<formatVersion>");
    EXPECT_NE(problem(text), "");
    EXPECT_LT(timer.elapsed(), 5'000);
}

TEST(Metadata, UnreadableFilesAreFailuresWithTheirName)
{
    EXPECT_THAT(problem({}), AllOf(HasSubstr("a.lineara”"), HasSubstr("can't be opened")));
    EXPECT_THAT(problem("0 HEAD\n1 GEDC\n"), HasSubstr("can't be opened"));
    EXPECT_THAT(problem("<database/>"), HasSubstr("databaseInfo"));
    EXPECT_THAT(problem(smallFamily().replace("<database>", "<families>")), HasSubstr("root element"));
    EXPECT_THAT(problem(smallFamily().replace("modelVersion", "modelversion")), HasSubstr("data model version"));
    EXPECT_THAT(problem(smallFamily().replace(">14<", ">fourteen<")), HasSubstr("“fourteen”"));
    EXPECT_THAT(problem(smallFamily().replace("<formatVersion>1", "<formatVersion>2")), HasSubstr("newer program"));
    EXPECT_THAT(problem(smallFamily().replace("<UUID>0f96", "<UUID>zz")), HasSubstr("UUID"));
    EXPECT_THAT(problem("<!DOCTYPE database [<!ENTITY a \"b\">]>" + smallFamily().mid(39)), HasSubstr("document type"));
    EXPECT_THAT(problem(smallFamily().left(150)), HasSubstr("databaseInfo"));
    const auto missing = metadataForPersistentStore(u"/gone/away.lineara"_qs);
    ASSERT_TRUE(missing.failed());
    EXPECT_THAT(missing.failure().message.toStdString(), HasSubstr("/gone/away.lineara"));
    EXPECT_TRUE(metadataForPersistentStore(u"/tmp"_qs).failed());
}

TEST(Models, AreListedInTheOrderThatIsWrittenDown)
{
    const ResourceBundle bundle;
    EXPECT_EQ(bundle.resources(u"mom"_qs, u"Document.momd"_qs),
              (QStringList{u":/models/Document.momd/11.mom"_qs, u":/models/Document.momd/12.mom"_qs,
                           u":/models/Document.momd/13.mom"_qs, u":/models/Document.momd/14.mom"_qs}));
    EXPECT_TRUE(bundle.resources(u"txt"_qs, u"Document.momd"_qs).isEmpty());
    EXPECT_TRUE(bundle.resources(u"mom"_qs, u"elsewhere"_qs).isEmpty());
    EXPECT_TRUE(bundle.model(u":/models/Document.momd/10.mom"_qs).failed());
}

TEST(Models, OfAllVersionsAreSound)
{
    const ResourceBundle bundle;
    int version = 11;
    for (const auto& resource : bundle.resources(u"mom"_qs, u"Document.momd"_qs)) {
        const auto model = bundle.model(resource);
        ASSERT_TRUE(model) << model.failure().message.toStdString();
        EXPECT_EQ(model.value().version, version++);
    }
    EXPECT_EQ(bundle.currentModel().version, currentModelVersion);
    EXPECT_EQ(bundle.currentModel().entities.size(), 4U);
    StoreMetadata newer;
    newer.modelVersion = 15;
    EXPECT_FALSE(bundle.modelFor(newer));
}

TEST(Models, TheCurrentOneIsWhatTheWriterWrites)
{
    const auto current = modelOf(currentModelVersion);
    const auto family = sample(u"family_14"_qs);
    const auto* const person = current.entity("PERSON");
    ASSERT_NE(person, nullptr);
    ASSERT_NE(person->attribute("birthYear"), nullptr);
    EXPECT_EQ(person->attribute("birthYear")->type, AttributeType::Int32);
    ASSERT_NE(person->relationship("pic"), nullptr);
    EXPECT_FALSE(person->relationship("pic")->isToMany);
    EXPECT_TRUE(person->relationship("parents")->isToMany);
    EXPECT_EQ(person->attribute("birth"), nullptr);
    EXPECT_EQ(rewritten(family), family);
}

TEST(Models, MappingsAreFoundBetweenTheVersionsTheyNameOnly)
{
    const ResourceBundle bundle;
    for (const int from : {11, 12, 13, 14}) {
        for (const int to : {11, 12, 13, 14}) {
            const auto mapping = bundle.mappingModel(modelOf(from), modelOf(to));
            const bool isThere = (from == 11 && to == 12) || (from == 12 && to == 14) || (from == 13 && to == 14);
            EXPECT_EQ(mapping.has_value(), isThere) << from << " to " << to;
        }
    }
}

TEST(Models, AFileIsCompatibleByVersionAndConfiguration)
{
    auto model = modelOf(14);
    StoreMetadata metadata;
    metadata.modelVersion = 14;
    EXPECT_TRUE(model.isCompatible(std::nullopt, metadata));
    EXPECT_FALSE(model.isCompatible(u"Archive"_qs, metadata));
    model.configurations = {u"Archive"_qs};
    EXPECT_TRUE(model.isCompatible(u"Archive"_qs, metadata));
    metadata.modelVersion = 13;
    EXPECT_FALSE(model.isCompatible(std::nullopt, metadata));
    EXPECT_FALSE(model.isCompatible(u"Archive"_qs, metadata));
}

TEST(Models, ConfigurationsAreRead)
{
    const auto model = ModelVersion::read("<model version='3'><configuration name='Archive'/></model>");
    ASSERT_TRUE(model);
    EXPECT_EQ(model.value().configurations, QStringList{u"Archive"_qs});
}

TEST(Models, WhatMakesNoSenseIsRefused)
{
    EXPECT_THAT(problemOfModel("<model version='3'>"), HasSubstr("byte"));
    EXPECT_THAT(problemOfModel("<mapping/>"), HasSubstr("model"));
    EXPECT_THAT(problemOfModel("<model/>"), HasSubstr("version"));
    EXPECT_THAT(problemOfModel("<model version='3'><entity name='A'><attribute name='b' type='c'/></entity></model>"),
                HasSubstr("“b”: there is no such type"));
    EXPECT_THAT(
        problemOfModel("<model version='3'><entity name='A'><relationship name='b' destination='C'/></entity></model>"),
        HasSubstr("“b” leads nowhere"));
    EXPECT_THAT(problemOfMapping("<mapping from='1'/>"), HasSubstr("versions"));
    EXPECT_THAT(problemOfMapping("<model/>"), HasSubstr("mapping"));
    EXPECT_THAT(problemOfMapping("<mapping from='1' to='2'><entity name='A'><move name='b'/></entity></mapping>"),
                HasSubstr("“move” “b”"));
    EXPECT_THAT(problemOfMapping("<mapping from='1' to='2'><entity name='A'><rename name='b'/></entity></mapping>"),
                HasSubstr("“rename” “b”"));
}

} // namespace lineara::test

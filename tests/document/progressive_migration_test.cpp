#include "migration_stage.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;

namespace lineara {

namespace {

const std::string needed = "Migration needed, migrating data to latest version\n";
const std::string progressive = "Progressive migration required\n";
const std::string loading = "Loading all available models\n";
const std::string fatal = "Fatal Error: Unable to find any suitable mapping model for migration of data\n";
const std::string performing = "Performing migration\n";
const std::string unable = "Unable to perform migration\n";
const std::string overwriting = "Successfully migrated to temporary file, overwriting original data\n";
const std::string pass = performing + overwriting;

std::string checking(const QString& path)
{
    return "Checking if migration needed for file: file://" + path.toStdString() + "\n";
}

/// One old file, and what the mappings between versions make of it.
class Opening : public testing::Test
{
protected:
    void begin(int version, std::vector<int> versions, MadeUpBundle::Pairs mappings)
    {
        bundle_.emplace(std::move(versions), std::move(mappings));
        stage_.emplace(*bundle_, bundle_->modelOf(14));
        path_ = stage_->files.write(u"f.lineara"_qs, familyOfVersion(version));
    }

    MigrationStage& stage() { return *stage_; }
    bool open() { return stage_->open(path_); }
    std::string log() const { return stage_->log.substr(checking(path_).size()); }
    std::string error() const { return stage_->error ? stage_->error->message.toStdString() : "none"; }
    bool isOfVersion(int version) const { return bytesOf(path_) == familyOfVersion(version); }

    std::optional<MadeUpBundle> bundle_;
    std::optional<MigrationStage> stage_;
    QString path_;
};

} // namespace

TEST_F(Opening, ACurrentFileIsAttachedUnchanged)
{
    begin(14, {11, 12, 14}, {{14, 14}, {12, 14}});
    EXPECT_TRUE(open());
    EXPECT_EQ(stage().log, checking(path_));
    EXPECT_TRUE(isOfVersion(14));
    EXPECT_EQ(stage().originalsKept, 0);
    ASSERT_EQ(stage().attached.size(), 1U);
    EXPECT_EQ(stage().attached.front().url, QUrl::fromLocalFile(path_));
    EXPECT_EQ(stage().attached.front().type, u"XML"_qs);
    EXPECT_EQ(stage().attached.front().options, (QVariantMap{{u"key"_qs, 7}}));
}

TEST_F(Opening, OneVersionBehindGoesInOnePass)
{
    begin(13, {13, 14}, {{13, 14}});
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + pass);
    EXPECT_TRUE(isOfVersion(14));
    EXPECT_EQ(stage().originalsKept, 1);
    EXPECT_EQ(stage().attached.size(), 1U);
    EXPECT_TRUE(stage().filesAtHome().isEmpty());
    EXPECT_EQ(error(), "none");
}

TEST_F(Opening, TwoVersionsBehindLoadsTheModelsOnceAndGoesTwice)
{
    begin(12, {12, 13, 14}, {{12, 13}, {13, 14}});
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass + pass);
    EXPECT_TRUE(isOfVersion(14));
    EXPECT_EQ(stage().originalsKept, 1);
}

TEST_F(Opening, ModelsOnceLoadedAreKeptForLaterPasses)
{
    begin(11, {11, 12, 13, 14}, {{11, 12}, {12, 13}, {13, 14}});
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass + progressive + pass + pass);
    EXPECT_EQ(stage().originalsKept, 1);
}

TEST_F(Opening, TheListedOrderDecidesTheRoute)
{
    const MadeUpBundle::Pairs mappings = {{10, 12}, {10, 11}, {11, 14}, {12, 13}, {13, 14}};
    begin(10, {10, 11, 12, 13, 14}, mappings);
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass + pass);
    begin(10, {10, 12, 11, 13, 14}, mappings);
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass + progressive + pass + pass);
    EXPECT_TRUE(isOfVersion(14));
}

TEST_F(Opening, TheDirectWayIsTriedFirstInEveryPass)
{
    begin(11, {11, 12, 13, 14}, {{11, 12}, {11, 14}});
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + pass);
}

TEST_F(Opening, WithoutAnyMappingTheFileIsLeftUntouched)
{
    begin(11, {11, 12, 14}, {{12, 14}});
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + progressive + loading + fatal);
    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(isOfVersion(11));
    EXPECT_TRUE(stage().attached.empty());
    EXPECT_EQ(stage().originalsKept, 0);
}

TEST_F(Opening, ANewerVersionHasNoModelAndSoNoMapping)
{
    begin(15, {11, 12, 14}, {{12, 14}, {15, 14}});
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + progressive + loading + fatal);
    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(isOfVersion(15));
}

TEST_F(Opening, ACycleEndsWithTheFatalLine)
{
    begin(11, {11, 12, 14}, {{11, 12}, {12, 11}});
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass + progressive + fatal);
    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(isOfVersion(12));
    EXPECT_EQ(stage().originalsKept, 1);
    EXPECT_TRUE(stage().filesAtHome().isEmpty());
}

TEST_F(Opening, AWayOutOfACycleIsTaken)
{
    begin(11, {11, 12, 13, 14}, {{11, 12}, {12, 11}, {12, 13}, {13, 14}});
    EXPECT_TRUE(open());
    EXPECT_TRUE(isOfVersion(14));
}

TEST_F(Opening, AMappingToItselfLeadsNowhere)
{
    begin(12, {12, 14}, {{12, 12}});
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + progressive + loading + fatal);
}

TEST_F(Opening, AStepThatChangesNothingIsNotRepeatedForEver)
{
    begin(12, {12, 13, 14}, {{12, 13}});
    stage().surroundings.migrateStore = [](const MigrationStep& step, ErrorSlot&) {
        return !store::copyOver(step.from, step.to, quickCalls()).failed();
    };
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass + progressive + fatal);
}

TEST_F(Opening, TheAddressIsLoggedPercentEncoded)
{
    begin(14, {14}, {});
    EXPECT_TRUE(stage().open(u"/a/My Family.lineara"_qs));
    EXPECT_EQ(stage().log, "Checking if migration needed for file: file:///a/My%20Family.lineara\n");
    stage().open(u"/a/50% #1?ä.lineara"_qs);
    EXPECT_EQ(stage().log, "Checking if migration needed for file: file:///a/50%25%20%231%3F%C3%A4.lineara\n");
}

TEST_F(Opening, UnreadableMetadataAreHandedOverWithTheError)
{
    begin(12, {12, 14}, {{12, 14}});
    ErrorSlot handedOver;
    stage().surroundings.attach = [&handedOver](const StoreRequest&, ErrorSlot& slot) {
        handedOver = slot;
        return false;
    };
    EXPECT_FALSE(stage().open(u"/gone.lineara"_qs));
    EXPECT_EQ(stage().log, checking(u"/gone.lineara"_qs));
    ASSERT_TRUE(handedOver);
    EXPECT_THAT(handedOver->message.toStdString(), HasSubstr("/gone.lineara"));
}

TEST_F(Opening, WithoutMetadataThoseOfTheAttachedStoreCount)
{
    begin(12, {12, 14}, {{12, 14}});
    const auto read = stage().surroundings.readMetadata;
    int reads = 0;
    stage().surroundings.readMetadata = [&](const QString& path) -> Outcome<std::optional<StoreMetadata>> {
        return ++reads == 1 ? std::optional<StoreMetadata>() : read(path);
    };
    EXPECT_TRUE(open());
    EXPECT_EQ(stage().log, checking(path_));
    EXPECT_TRUE(isOfVersion(12));

    reads = 0;
    stage().surroundings.attachedMetadata = [](const QString&) {
        StoreMetadata metadata;
        metadata.modelVersion = 12;
        return std::optional(metadata);
    };
    EXPECT_TRUE(open());
    EXPECT_EQ(log(), needed + pass);
    EXPECT_TRUE(isOfVersion(14));
}

TEST_F(Opening, AnErrorFromBeforeDoesNotCount)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().error = Failure{u"from before"_qs};
    EXPECT_TRUE(open());
    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(isOfVersion(14));
}

TEST_F(Opening, TheConfigurationIsAskedForAndPassedOn)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.currentModel.configurations = {u"Archive"_qs};
    EXPECT_TRUE(stage().open(path_, u"Archive"_qs));
    EXPECT_TRUE(isOfVersion(14));
    EXPECT_EQ(stage().attached.front().configuration, u"Archive"_qs);
    EXPECT_FALSE(stage().open(path_, u"Cellar"_qs));
    EXPECT_EQ(log(), needed + progressive + loading + fatal);
    EXPECT_TRUE(isOfVersion(14));
}

TEST_F(Opening, WhatAttachingSaysIsTheResult)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.attach = [](const StoreRequest&, ErrorSlot& slot) {
        slot = Failure{u"no"_qs};
        return false;
    };
    EXPECT_FALSE(open());
    EXPECT_EQ(error(), "no");
    EXPECT_TRUE(isOfVersion(14));
}

TEST_F(Opening, AMigrationThatFailsWithAnErrorLeavesTheFile)
{
    begin(12, {12, 14}, {{12, 14}});
    const auto text = familyOfVersion(12).replace(" id=\"z103\"", " id=\"z999999\"");
    stage().files.write(u"f.lineara"_qs, text);
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + performing);
    EXPECT_THAT(error(), AllOf(HasSubstr("f.lineara”"), HasSubstr("refers to z103")));
    EXPECT_EQ(bytesOf(path_), text);
    EXPECT_TRUE(stage().filesAtHome().isEmpty());
    EXPECT_EQ(stage().originalsKept, 0);
}

TEST_F(Opening, AMigrationThatFailsWithoutAnErrorSaysSoInTheLog)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.migrateStore = [](const MigrationStep&, ErrorSlot&) { return false; };
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + performing + unable);
    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(isOfVersion(12));
    EXPECT_TRUE(stage().filesAtHome().isEmpty());
}

TEST_F(Opening, AnErrorCountsEvenIfTheStepIsSaidToBeDone)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.migrateStore = [](const MigrationStep&, ErrorSlot& slot) {
        slot = Failure{u"half done"_qs};
        return true;
    };
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + performing);
    EXPECT_TRUE(isOfVersion(12));
}

TEST_F(Opening, WhenReplacingFailsTheCopyStaysAndIsNamed)
{
    begin(12, {12, 14}, {{12, 14}});
    auto calls = quickCalls();
    calls.rename = [](const char*, const char*) {
        errno = EROFS;
        return -1;
    };
    stage().surroundings.replaceFile = [calls](const QString& from, const QString& to) {
        return store::copyOver(from, to, calls);
    };
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + pass);
    const auto copy = stage().home() + u"/f.lineara"_qs;
    EXPECT_THAT(error(), AllOf(HasSubstr("“" + path_.toStdString() + "”"), HasSubstr("read-only"),
                               HasSubstr("“" + copy.toStdString() + "”")));
    EXPECT_TRUE(isOfVersion(12));
    EXPECT_EQ(bytesOf(copy), familyOfVersion(14));
}

TEST_F(Opening, WhenTheOriginalCantBeKeptNothingIsReplaced)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.keepOriginal = [](const QString&) -> Outcome<Done> { return Failure{u"no room"_qs}; };
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + performing);
    EXPECT_EQ(error(), "no room");
    EXPECT_TRUE(isOfVersion(12));
    EXPECT_TRUE(stage().filesAtHome().isEmpty());
}

TEST_F(Opening, MetadataThatCantBeReadAfterReplacingEndIt)
{
    begin(12, {12, 13, 14}, {{12, 13}, {13, 14}});
    const auto read = stage().surroundings.readMetadata;
    int reads = 0;
    stage().surroundings.readMetadata = [&](const QString& path) -> Outcome<std::optional<StoreMetadata>> {
        return ++reads == 2 ? Failure{u"gone"_qs} : read(path);
    };
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + progressive + loading + pass);
    EXPECT_EQ(error(), "gone");
    EXPECT_TRUE(isOfVersion(13));
    EXPECT_TRUE(stage().attached.empty());
}

TEST_F(Opening, AFileInTheHomeFolderIsNotItsOwnTemporaryFile)
{
    begin(12, {12, 14}, {{12, 14}});
    path_ = stage().files.write(u"home/f.lineara"_qs, familyOfVersion(12));
    QString temporary;
    const auto migrate = stage().surroundings.migrateStore;
    stage().surroundings.migrateStore = [&](const MigrationStep& step, ErrorSlot& slot) {
        temporary = step.to;
        return migrate(step, slot);
    };
    EXPECT_TRUE(open());
    EXPECT_EQ(temporary, stage().home() + u"/f 2.lineara"_qs);
    EXPECT_TRUE(isOfVersion(14));
    EXPECT_EQ(stage().filesAtHome(), QStringList{u"f.lineara"_qs});
}

TEST_F(Opening, AnotherFileOfThatNameInTheHomeFolderStaysAsItIs)
{
    begin(12, {12, 14}, {{12, 14}});
    const auto other = stage().files.write(u"home/f.lineara"_qs, "the user's own");
    EXPECT_TRUE(open());
    EXPECT_TRUE(isOfVersion(14));
    EXPECT_EQ(bytesOf(other), "the user's own");
    EXPECT_EQ(stage().filesAtHome(), QStringList{u"f.lineara"_qs});
}

TEST_F(Opening, WithoutAHomeFolderAnotherOneServes)
{
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.temporaryFolders = {u"/gone/home"_qs, stage().home()};
    EXPECT_TRUE(open());
    EXPECT_TRUE(isOfVersion(14));
    begin(12, {12, 14}, {{12, 14}});
    stage().surroundings.temporaryFolders = {u"/gone/home"_qs};
    EXPECT_FALSE(open());
    EXPECT_EQ(log(), needed + performing);
    EXPECT_THAT(error(), AllOf(HasSubstr("f.lineara”"), HasSubstr("does not exist")));
    EXPECT_TRUE(isOfVersion(12));
}

TEST_F(Opening, ModelsThatCantBeLoadedAreNoCandidates)
{
    class HalfBroken : public MadeUpBundle
    {
    public:
        using MadeUpBundle::MadeUpBundle;
        Outcome<ModelVersion> model(const QString& resource) const override
        {
            return resource == u"12" ? Failure{u"broken"_qs} : MadeUpBundle::model(resource);
        }
    };
    const HalfBroken bundle({11, 12, 13, 14}, {{11, 12}, {12, 14}, {11, 13}, {13, 14}});
    MigrationStage stage(bundle, bundle.modelOf(14));
    const auto path = stage.files.write(u"f.lineara"_qs, familyOfVersion(11));
    QList<int> route;
    const auto migrate = stage.surroundings.migrateStore;
    stage.surroundings.migrateStore = [&](const MigrationStep& step, ErrorSlot& slot) {
        route += step.destination.version;
        return migrate(step, slot);
    };
    EXPECT_TRUE(stage.open(path));
    EXPECT_EQ(route, (QList<int>{13, 14}));
}

} // namespace lineara

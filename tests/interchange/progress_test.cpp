#include "heard_progress.h"
#include "imported.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <thread>

namespace lineara {
namespace {

#ifdef LINEARA_SANITIZED
constexpr int manyFamilies = 1000;
#else
constexpr int manyFamilies = 8000;
#endif

/// Couples with a child each, and a line for each person that has no place in a family.
QByteArray longFile()
{
    QByteArray text = "0 HEAD\n1 CHAR UTF-8\n";
    for (int family = 0; family < manyFamilies; ++family) {
        const auto number = QByteArray::number(family);
        for (const char* role : {"H", "W", "C"})
            text += "0 @" + QByteArray(role) + number + "@ INDI\n1 NAME Person /" + number + "/\n1 OCCU baker\n";
        text +=
            "0 @F" + number + "@ FAM\n1 HUSB @H" + number + "@\n1 WIFE @W" + number + "@\n1 CHIL @C" + number + "@\n";
    }
    return text + "0 TRLR\n";
}

class ImportWithProgress : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const QByteArray text = longFile();
        ASSERT_EQ(file.write(text), text.size());
    }

    const QTemporaryDir folder_;
    const QString path_ = folder_.filePath(QStringLiteral("long.ged"));
};

TEST_F(ImportWithProgress, PartsAscendToOne)
{
    HeardProgress heard(HeardProgress::never);
    const auto family = importGedcomFile(path_, heard.progress());
    ASSERT_TRUE(family);
    EXPECT_EQ(family.value().report.persons, 3U * manyFamilies);
    heard.expectPartsAscendToOne();
}

// In every character set, and while links are made.
TEST(ImportProgress, EveryStageIsHeardOf)
{
    const QByteArray family = longFile().replace("Person", "P\xE9rson").repeated(16'000 / manyFamilies);
    const QString text = QString::fromLatin1(family);
    const QByteArray utf16(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    for (const QByteArray& bytes : {utf16, family}) {
        std::vector<double> parts;
        ASSERT_TRUE(
            importGedcom(bytes, QStringLiteral("a.ged"), Progress([&](double part) { parts.push_back(part); })));
        const auto heard = [&](double begin, double end) {
            return std::ranges::count_if(parts, [&](double part) { return part > begin && part < end; });
        };
        EXPECT_GE(heard(0.195, 0.22), 1) << "decoding";
        EXPECT_GE(heard(0.78, 0.806), 1) << "links";
    }
}

TEST_F(ImportWithProgress, EndsAtTheReportThatIsAnsweredByAStop)
{
    expectEndAtAnyStop([this](const Progress& progress) { return importGedcomFile(path_, progress); },
                       "“long.ged” can't be imported: ");
}

TEST_F(ImportWithProgress, FamilyImportedOnAnotherThreadIsTheMainThreadsAfterwards)
{
    std::unique_ptr<ObjectContext> family;
    std::thread importer([&] { family = std::move(importGedcomFile(path_).value().context); });
    importer.join();
    auto& pool = *family->allPools().front();
    pool.persons()[0]->setName(QStringLiteral("Ada"));
    EXPECT_TRUE(pool.process());
    EXPECT_EQ(pool.maxGeneration(), 2);
}

TEST(ImportReport, TheUuidIsTheOneOfItsName)
{
    const QUuid importedFamilies(QStringLiteral("5f4a6d51-27b3-4c0e-9d6a-2d5d0a1c7e90"));
    const auto text = QByteArray("0 @I1@ INDI\n").repeated(200'000);
    EXPECT_EQ(imported(text).context->storeUuid(), QUuid::createUuidV5(importedFamilies, text));
}

} // namespace
} // namespace lineara

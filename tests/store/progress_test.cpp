#include "family_texts.h"
#include "heard_progress.h"

#include <QFile>
#include <QTemporaryDir>

#include <thread>

namespace lineara::test {

namespace {

#ifdef LINEARA_SANITIZED
constexpr int manyPersons = 3000;
#else
constexpr int manyPersons = 20'000;
#endif

/// A chain of parents and children, so that every stage of reading has something to do.
QByteArray longFamily()
{
    ObjectContext family;
    const Journal::Pause pause(family.journal());
    auto& pool = family.insertPool();
    Person* last = nullptr;
    for (int i = 0; i < manyPersons; ++i) {
        PersonValues values;
        values.name = u"Person %1"_qs.arg(i);
        auto& person = family.insertPerson(values);
        pool.addPerson(person);
        if (last)
            last->addChild(person);
        last = &person;
    }
    return textOf(family);
}

class ReadingWithProgress : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text_), text_.size());
    }

    const QByteArray text_ = longFamily();
    const QTemporaryDir folder_;
    const QString path_ = folder_.filePath(u"long.lineara"_qs);
};

} // namespace

TEST_F(ReadingWithProgress, PartsAscendToOne)
{
    HeardProgress heard(HeardProgress::never);
    const auto family = readFamilyFile(path_, heard.progress());
    ASSERT_TRUE(family);
    heard.expectPartsAscendToOne();
}

TEST_F(ReadingWithProgress, EndsAtTheReportThatIsAnsweredByAStop)
{
    expectEndAtAnyStop([this](const Progress& progress) { return readFamilyFile(path_, progress); },
                       "long.lineara” can't be opened: ");
}

TEST_F(ReadingWithProgress, StoppedBeforeItBeganReadsNothing)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(readFamily(text_, u"long"_qs, Progress([](double) {}, stop.get_token())).failed());
    EXPECT_TRUE(readFamilyFile(path_, Progress([](double) {}, stop.get_token())).failed());
}

TEST_F(ReadingWithProgress, FamilyReadOnAnotherThreadIsTheMainThreadsAfterwards)
{
    std::unique_ptr<ObjectContext> family;
    std::thread reader([&] { family = std::move(readFamilyFile(path_).value().context); });
    reader.join();
    EXPECT_EQ(textOf(*family), text_);

    int changes = 0;
    int awake = 0;
    const auto subscription = family->observe([&changes](const Change&) { ++changes; });
    family->setAwakening([&awake](Person&) { ++awake; });
    auto& pool = *family->allPools().front();
    auto& first = *pool.persons()[0];
    family->journal().begin(u"Add"_qs);
    auto& added = family->insertPerson();
    pool.addPerson(added);
    first.addPartner(added);
    first.setName(u"Ada"_qs);
    EXPECT_TRUE(pool.process());
    family->journal().undo();
    EXPECT_EQ(awake, manyPersons + 1);
    EXPECT_GT(changes, 5);
    EXPECT_EQ(first.name(), u"Person 0"_qs);
}

} // namespace lineara::test

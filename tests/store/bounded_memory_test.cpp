#include "family_texts.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// Sanitizers reserve more address space than any limit here leaves.
#ifndef LINEARA_SANITIZED

namespace lineara::test {

namespace {

/// What this process has mapped already, in bytes.
rlim_t mappedNow()
{
    QFile file(u"/proc/self/statm"_qs);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split(' ').front().toULongLong() * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

/// Whether reading the text in a process of its own, which has five times the size of the text and a bit to live on,
/// ends by itself, and as expected.
bool isReadWithinBounds(const QByteArray& text, bool isOpened)
{
    constexpr rlim_t aBit = rlim_t{400} << 20;
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"hostile.lineara"_qs);
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(text), text.size());
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const auto most = mappedNow() + aBit + 5 * static_cast<rlim_t>(text.size());
        const struct rlimit limit = {most, most};
        const struct rlimit seconds = {30, 30};
        const bool isLimited = ::setrlimit(RLIMIT_AS, &limit) == 0 && ::setrlimit(RLIMIT_CPU, &seconds) == 0;
        ::_exit(isLimited && !readFamilyFile(path).failed() == isOpened ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

constexpr bool opened = true;
constexpr bool refused = false;

QByteArray repeated(int count, const std::function<QByteArray(int)>& piece)
{
    QByteArray result;
    for (int i = 0; i < count; ++i)
        result += piece(i);
    return result;
}

QByteArray idOf(int number)
{
    return "z" + QByteArray::number(200 + number);
}

} // namespace

TEST(BoundedMemory, LongTexts)
{
    const auto named = [](int size) { return attribute("name", "string", QByteArray(size, 'x')); };
    EXPECT_TRUE(isReadWithinBounds(fileWith(pool("z102") + person("z102", named(60'000'000))), opened));
    const auto persons = repeated(50, [&](int i) { return person(idOf(i), named(1'000'000)); });
    EXPECT_TRUE(isReadWithinBounds(fileWith(persons, "999"), opened));
}

TEST(BoundedMemory, AttributesWithoutEnd)
{
    const auto attributes = attribute("u", "string", "x").repeated(450'000);
    EXPECT_TRUE(isReadWithinBounds(fileWith(person("z102", attributes)), opened));
    EXPECT_TRUE(isReadWithinBounds(fileWith(person("z102", attributes.repeated(2))), refused));
    const auto plain = "<object type=\"PERSON\" id=\"z102\"" + QByteArray(" a=\"\"").repeated(10'000'000) + "/>";
    EXPECT_TRUE(isReadWithinBounds(fileWith(plain), refused));
}

TEST(BoundedMemory, DeepNesting)
{
    const auto deep = QByteArray("<a>").repeated(10'000'000) + QByteArray("</a>").repeated(10'000'000);
    EXPECT_TRUE(isReadWithinBounds(fileWith(deep), refused));
    EXPECT_TRUE(isReadWithinBounds(fileWith(QByteArray("<a>").repeated(1'000'000)), refused));
}

TEST(BoundedMemory, CommentsWithoutEnd)
{
    EXPECT_TRUE(isReadWithinBounds(fileWith(QByteArray("<!-- -->").repeated(5'000'000)), refused));
}

TEST(BoundedMemory, RepairsThatQuoteALongNameAgainAndAgain)
{
    const auto name = attribute("name", "string", QByteArray(1'000'000, 'x'));
    const auto partners = links("partners", QByteArray("z102 ").repeated(1'000'000));
    EXPECT_TRUE(isReadWithinBounds(fileWith(pool("z102") + person("z102", name + partners)), opened));
}

TEST(BoundedMemory, PersonsWithoutEnd)
{
    const auto persons = repeated(300'000, [](int i) { return person(idOf(i)); });
    EXPECT_TRUE(isReadWithinBounds(fileWith(persons, "9999999"), opened));
}

TEST(BoundedMemory, FileThatShrinksWhileItIsRead)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"shrinking.lineara"_qs);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(fileWith(repeated(200'000, [](int i) { return person(idOf(i)); }), "9999999"));
    file.flush();
    // The first report comes after the first piece; the rest is gone then.
    const Progress progress([&file](double) { file.resize(1000); });
    const auto family = readFamilyFile(path, progress);
    ASSERT_TRUE(family.failed());
    EXPECT_THAT(family.failure().message.toStdString(), testing::HasSubstr("cut off"));
}

} // namespace lineara::test

#endif

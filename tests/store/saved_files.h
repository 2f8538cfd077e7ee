#pragma once

#include "family_texts.h"
#include "store/atomic_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cerrno>
#include <functional>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lineara::test {

inline QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

inline void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

inline mode_t modeOf(const QString& path)
{
    struct stat status = {};
    return ::stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777 : 0;
}

inline std::string problem(const Outcome<Done>& outcome)
{
    return outcome.failed() ? outcome.failure().message.toStdString() : std::string();
}

/// What the function answers when it is not the superuser that asks, whom no permission stops.
inline std::string asOrdinaryUser(const std::function<std::string()>& ask)
{
    constexpr uid_t nobody = 65534;
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isOrdinary = ::geteuid() != 0 || ::setuid(nobody) == 0;
        const auto answer = isOrdinary ? ask() : "still the superuser";
        const bool told = ::write(ends[1], answer.data(), answer.size()) >= 0;
        ::_exit(told ? 0 : 1);
    }
    ::close(ends[1]);
    std::array<char, 1000> answer{};
    const auto size = ::read(ends[0], answer.data(), answer.size());
    ::close(ends[0]);
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    return {answer.data(), static_cast<std::size_t>(std::max<ssize_t>(0, size))};
}

/// A folder for one test, and a family to save into it.
class Saving : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    const ObjectContext& family() const { return *family_.context; }
    QStringList filesInFolder() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

    Outcome<Done> saveWith(const store::FileCalls& calls, const QString& name) const
    {
        return store::replaceFile(
            path(name), [](const store::ByteSink& sink) { return sink("new ") && sink("text"); }, calls);
    }

private:
    QTemporaryDir folder_;
    LoadedFamily family_ = loaded(smallFamily());
};

} // namespace lineara::test

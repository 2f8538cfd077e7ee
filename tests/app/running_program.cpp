#include "running_program.h"

#include "hand.h"

#include <QDir>

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lineara {

namespace {

std::vector<std::string> environment(const QString& home)
{
    std::vector<std::string> variables{"HOME=" + home.toStdString()};
    for (char** variable = environ; *variable; ++variable) {
        const std::string text = *variable;
        if (!text.starts_with("HOME=") && !text.starts_with("XDG_"))
            variables.push_back(text);
    }
    return variables;
}

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> all;
    all.reserve(texts.size() + 1);
    for (std::string& text : texts)
        all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

} // namespace

RunningProgram::RunningProgram(const QString& home, const QStringList& files) : home_(home)
{
    std::vector<std::string> words{LINEARA_PROGRAM};
    for (const QString& file : files)
        words.push_back(file.toStdString());
    auto variables = environment(home);
    EXPECT_EQ(
        ::posix_spawn(&id_, LINEARA_PROGRAM, nullptr, nullptr, pointers(words).data(), pointers(variables).data()), 0);
}

RunningProgram::~RunningProgram()
{
    if (hasEnded())
        return;
    send(SIGKILL);
    ::waitpid(id_, nullptr, 0);
}

void RunningProgram::bringToFront(const QString& title) const
{
    Hand::focus(title);
}

QStringList RunningProgram::keptFamilies() const
{
    return QDir(home_ + QStringLiteral("/.local/share/lineara/lineara/recovery"))
        .entryList({QStringLiteral("*.lineara")}, QDir::Files);
}

void RunningProgram::send(int signal) const
{
    EXPECT_EQ(::kill(id_, signal), 0);
}

bool RunningProgram::hasEnded()
{
    int status = 0;
    if (!end_ && ::waitpid(id_, &status, WNOHANG) == id_)
        end_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return end_.has_value();
}

std::optional<int> RunningProgram::waitForEnd()
{
    waitUntil([this] { return hasEnded(); });
    return end_;
}

} // namespace lineara

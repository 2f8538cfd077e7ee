#include "child.h"

#include "reports.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <sstream>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>

namespace lineara::chaos {

namespace {

std::vector<std::string> environment(const std::filesystem::path& home)
{
    std::vector<std::string> result;
    for (char** variable = environ; *variable; ++variable) {
        const std::string text = *variable;
        if (!text.starts_with("HOME=") && !text.starts_with("XDG_") && !text.starts_with("TMPDIR="))
            result.push_back(text);
    }
    for (const auto& [name, folder] : {std::pair("HOME", "home"), std::pair("XDG_DATA_HOME", "data"),
                                       std::pair("XDG_CONFIG_HOME", "config"), std::pair("TMPDIR", "tmp")}) {
        std::filesystem::create_directories(home / folder);
        result.push_back(std::string(name).append(1, '=').append((home / folder).string()));
    }
    return result;
}

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> result;
    for (auto& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

} // namespace

Child::Child(const std::filesystem::path& home, std::vector<std::string> role)
{
    std::array<int, 2> output{};
    std::array<int, 2> input{};
    if (::pipe2(output.data(), O_CLOEXEC) != 0 || ::pipe2(input.data(), O_CLOEXEC) != 0)
        return;
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    const auto log = (home / "log").string();
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    const std::string program = "/proc/self/exe";
    role.insert(role.begin(), program);
    auto variables = environment(home);
    ::posix_spawn(&id_, program.c_str(), &actions, nullptr, pointers(role).data(), pointers(variables).data());
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);
    ::close(input[0]);
    reports_ = output[0];
    hold_ = input[1];
}

Child::~Child()
{
    kill();
    ::close(reports_);
    ::close(hold_);
}

std::optional<Report> Child::buffered()
{
    const auto end = text_.find('\n');
    if (end == std::string::npos)
        return std::nullopt;
    std::istringstream line(text_.substr(0, end));
    text_.erase(0, end + 1);
    Report report;
    line >> report.at;
    for (std::string word; line >> word;)
        report.words.push_back(word);
    return report.words.empty() ? buffered() : report;
}

std::optional<Report> Child::next(std::int64_t deadline)
{
    for (;;) {
        if (auto report = buffered())
            return report;
        const auto left = deadline - now();
        struct timespec wait = {left / 1'000'000'000, left % 1'000'000'000};
        struct pollfd file = {reports_, POLLIN, 0};
        if (left <= 0 || ::ppoll(&file, 1, &wait, nullptr) == 0)
            return std::nullopt;
        std::array<char, 4096> piece{};
        const auto size = ::read(reports_, piece.data(), piece.size());
        if (size == 0 || (size < 0 && errno != EINTR))
            return std::nullopt;
        if (size > 0)
            text_.append(piece.data(), static_cast<std::size_t>(size));
    }
}

std::optional<Report> Child::expect(const std::string& kind)
{
    const auto deadline = now() + minute;
    while (auto report = next(deadline)) {
        if (report->kind() == kind)
            return report;
    }
    return std::nullopt;
}

void Child::wait()
{
    if (!isWaitedFor_ && id_ > 0)
        ::waitpid(id_, &status_, 0);
    isWaitedFor_ = true;
}

std::vector<Report> Child::kill()
{
    if (!isWaitedFor_ && id_ > 0)
        ::kill(id_, SIGKILL);
    wait();
    std::vector<Report> rest;
    while (auto report = next(now() + minute))
        rest.push_back(std::move(*report));
    return rest;
}

std::vector<Report> Child::finish()
{
    ::close(std::exchange(hold_, -1));
    std::vector<Report> all;
    while (auto report = next(now() + minute))
        all.push_back(std::move(*report));
    wait();
    return all;
}

bool Child::hasSucceeded()
{
    wait();
    return WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
}

} // namespace lineara::chaos

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace lineara::chaos {

/// What a child has told: when, and words.
struct Report
{
    std::int64_t at = 0; ///< nanoseconds, as now() gives them
    std::vector<std::string> words;

    const std::string& kind() const { return words.front(); }
};

/// This program once more, in another role and with a home of its own. Killed when it goes.
class Child
{
public:
    /// Everything that the child takes for the user's lies in `home`, and what it logs in the file "log" there.
    Child(const std::filesystem::path& home, std::vector<std::string> role);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// The next report; no value if the child has ended, or tells nothing before that moment.
    std::optional<Report> next(std::int64_t deadline);
    /// The first report of that kind, within a minute.
    std::optional<Report> expect(const std::string& kind);
    /// Ends it at once, and gives what it had told before.
    std::vector<Report> kill();
    /// All reports until it ends by itself.
    std::vector<Report> finish();
    /// Whether it ended by itself and well.
    bool hasSucceeded();
    pid_t id() const { return id_; }

private:
    std::optional<Report> buffered();
    void wait();

    pid_t id_ = -1;
    int reports_ = -1;
    int hold_ = -1; // closed when the child is to let go
    bool isWaitedFor_ = false;
    int status_ = -1;
    std::string text_;
};

} // namespace lineara::chaos

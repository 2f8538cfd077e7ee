// The role of a program whose disk fails: from some moment on, the system itself refuses calls.

#include "document/document.h"
#include "document/document_window.h"
#include "reports.h"
#include "roles.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <array>
#include <cerrno>
#include <cstddef>
#include <map>
#include <vector>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

namespace lineara::chaos {

namespace {

/// One call that fails with an error if one of its arguments is what it says.
struct Refusal
{
    enum class If : std::uint16_t
    {
        AtLeast = BPF_JGE,
        Equal = BPF_JEQ
    };

    std::uint32_t call;
    std::uint32_t argument; ///< counted from 0
    If comparison;
    std::uint32_t value;
    std::uint32_t error;
};

constexpr std::uint32_t small = 256; // bytes: more than threads tell each other, less than any family

const std::map<QString, std::vector<Refusal>> disks = {
    {QStringLiteral("full"), {{SYS_write, 2, Refusal::If::AtLeast, small, ENOSPC}}},
    {QStringLiteral("unsynced"), {{SYS_fsync, 0, Refusal::If::AtLeast, 0, EIO}}},
    {QStringLiteral("closed"), {{SYS_openat, 2, Refusal::If::Equal, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, EACCES}}},
    {QStringLiteral("unnamed"),
     {
#ifdef SYS_rename
         {SYS_rename, 0, Refusal::If::AtLeast, 0, EROFS},
#endif
         {SYS_renameat, 0, Refusal::If::AtLeast, 0, EROFS},
         {SYS_renameat2, 0, Refusal::If::AtLeast, 0, EROFS}}},
    {QStringLiteral("sound"), {}}};

/// For all threads of the process, and for good.
bool refuse(const std::vector<Refusal>& refusals)
{
    constexpr std::uint16_t load = BPF_LD | BPF_W | BPF_ABS;
    const auto compare = [](std::uint16_t how) { return static_cast<std::uint16_t>(BPF_JMP | BPF_K | how); };
    std::vector<sock_filter> filter;
    for (const auto& refusal : refusals) {
        const auto argument =
            static_cast<std::uint32_t>(offsetof(seccomp_data, args) + refusal.argument * sizeof(std::uint64_t));
        filter.push_back({load, 0, 0, offsetof(seccomp_data, nr)});
        filter.push_back({compare(BPF_JEQ), 0, 3, refusal.call});
        filter.push_back({load, 0, 0, argument});
        filter.push_back({compare(static_cast<std::uint16_t>(refusal.comparison)), 0, 1, refusal.value});
        filter.push_back({BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | refusal.error});
    }
    filter.push_back({BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW});
    const sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_TSYNC, &program) == 0;
}

void settle(Document& document)
{
    bool isDone = false;
    document.whenSettled([&isDone] { isDone = true; });
    static_cast<void>(QTest::qWaitFor([&isDone] { return isDone; }, 60'000));
}

void tell(const QByteArray& what, bool isSo)
{
    report(what + (isSo ? " yes" : " no"));
}

} // namespace

int fail(const QStringList& words)
{
    auto opened = Document::open(words.value(0));
    if (opened.failed())
        return 1;
    const auto document = std::move(opened.value());
    document->window().show();
    settle(*document);
    document->context().journal().begin(QStringLiteral("Edit Name"));
    document->pool().persons()[0]->setName(QStringLiteral("Renamed"));
    document->keepUnsaved();
    settle(*document);
    const auto* const warning = document->window().findChild<QLabel*>(QStringLiteral("warning"));
    tell("warned", warning && warning->isVisible());
    if (!refuse(disks.at(words.value(1))))
        return 1;
    document->save(words.value(0), [](const Outcome<SaveEnd>& outcome) {
        report(outcome ? "saved" : "message " + outcome.failure().message.toUtf8());
    });
    settle(*document);
    tell("modified", document->isModified());
    tell("kept", document->keptWork().has_value());
    // As a crash would: nothing is tidied up.
    ::_exit(0);
}

} // namespace lineara::chaos

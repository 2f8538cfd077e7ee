// chaos_tests [--runs=N] [--seed=N]: kills programs at random moments and looks at what is left. Started with the name
// of a role, it is one of those programs.

#include "quiet_log.h"
#include "roles.h"
#include "rounds.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <string_view>

#include <sys/prctl.h>

namespace {

void setUp(const std::string_view argument)
{
    auto& rounds = lineara::chaos::rounds();
    for (const auto& [name, value] :
         {std::pair(std::string_view("--runs="), &rounds.runs), std::pair(std::string_view("--seed="), &rounds.seed)}) {
        if (argument.starts_with(name))
            *value = std::atoi(argument.substr(name.size()).data());
    }
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("lineara"));
    QApplication::setApplicationName(QStringLiteral("lineara"));
    const auto arguments = QApplication::arguments().mid(1);
    // Whoever plays a role does not outlive the tests.
    if (!arguments.isEmpty() && !arguments[0].startsWith(u'-') && ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0)
        return lineara::chaos::play(arguments);
    for (int at = 1; at < argc; ++at)
        setUp(argv[at]);
    testing::UnitTest::GetInstance()->listeners().Append(new lineara::QuietLog);
    return RUN_ALL_TESTS();
}

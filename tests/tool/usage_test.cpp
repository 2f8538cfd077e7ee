#include "tool_run.h"

#include <gmock/gmock.h>

namespace lineara {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(ToolUsage, HelpAndVersionGoToStandardOutput)
{
    for (const QString& option : {QStringLiteral("--help"), QStringLiteral("-h")}) {
        const auto help = runTool({option});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_THAT(help.out, StartsWith("Usage:\n  lineara-tool convert [--notes] [--gedcom7] IN OUT\n"));
        EXPECT_THAT(help.out, HasSubstr("Exit codes:\n  0  done\n"));
        EXPECT_EQ(help.err, "");
    }
    const auto version = runTool({QStringLiteral("--version")});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "lineara-tool " LINEARA_VERSION "\n");
}

TEST(ToolUsage, WrongArgumentsAreToldInOneLine)
{
    const QString family = testFamily(QStringLiteral("bronte.ged"));
    const std::vector<std::pair<QStringList, const char*>> cases = {
        {{}, "no command is given"},
        {{QStringLiteral("draw"), family}, "there is no command \"draw\""},
        {{QStringLiteral("--json")}, "there is no command \"--json\""},
        {{QStringLiteral("info")}, "info needs one file"},
        {{QStringLiteral("info"), family, family}, "info needs one file"},
        {{QStringLiteral("info"), QStringLiteral("--xml"), family}, "info does not know the option --xml"},
        {{QStringLiteral("convert"), family}, "convert needs one input and one output file"},
        {{QStringLiteral("convert"), QStringLiteral("--json"), family, QStringLiteral("a.svg")},
         "convert does not know the option --json"},
        {{QStringLiteral("convert"), family, QStringLiteral("a.gif")},
         "the output's name must end in .lineara, .ged, .gdz, .pdf, .png or .svg: a.gif"},
        {{QStringLiteral("convert"), family, QStringLiteral("svg")},
         "the output's name must end in .lineara, .ged, .gdz, .pdf, .png or .svg: svg"},
        {{QStringLiteral("convert"), QStringLiteral("--gedcom7"), family, QStringLiteral("a.lineara")},
         "--gedcom7 is about an output whose name ends in .ged, not about a.lineara"},
        {{QStringLiteral("convert"), family, QStringLiteral("a.svg"), QStringLiteral("--gedcom7")},
         "--gedcom7 is about an output whose name ends in .ged, not about a.svg"},
    };
    for (const auto& [arguments, reason] : cases) {
        const auto run = runTool(arguments);
        EXPECT_EQ(run.exitCode, 2) << reason;
        EXPECT_EQ(run.out, "") << reason;
        EXPECT_EQ(run.err, std::string("lineara-tool: ") + reason + "; see lineara-tool --help\n");
    }
}

TEST(ToolUsage, TheToolkitsOwnOptionsMeanNothing)
{
    EXPECT_EQ(runTool({QStringLiteral("info"), QStringLiteral("-platform"), QStringLiteral("xcb")}).exitCode, 2);
}

} // namespace
} // namespace lineara

#include "command_line.h"
#include "convert.h"
#include "family_info.h"
#include "messages.h"

#include <QApplication>

namespace lineara::tool {

namespace {

ExitCode printed(const QString& text)
{
    if (print(text))
        return ExitCode::Done;
    tell(u"standard output could not be written"_qs);
    return ExitCode::OutputUnwritable;
}

ExitCode run(const ConvertCommand& command)
{
    return convert(command);
}

ExitCode run(const InfoCommand& command)
{
    const auto opened = openTold(command.input, command.tellNotes);
    if (opened.failed()) {
        tell(opened.failure().message);
        return ExitCode::InputUnreadable;
    }
    const FamilyInfo info = infoOf(opened.value());
    return printed(command.asJson ? asJson(info) : asText(info));
}

ExitCode run(const HelpCommand& /*command*/)
{
    return printed(usageText());
}

ExitCode run(const VersionCommand& /*command*/)
{
    return printed(QStringLiteral("lineara-tool " LINEARA_VERSION "\n"));
}

ExitCode run(const WrongUsage& usage)
{
    tell(usage.reason + u"; see lineara-tool --help"_qs);
    return ExitCode::WrongUsage;
}

/// The toolkit's remarks about the desktop it does not find here would stand among the messages for scripts.
void keepFatalOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (type == QtFatalMsg)
        tell(message);
}

} // namespace

} // namespace lineara::tool

int main(int argc, char** argv)
{
    // Nothing is ever shown, so it makes no difference whether there is a screen.
    qInstallMessageHandler(lineara::tool::keepFatalOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStringList arguments;
    for (int at = 1; at < argc; ++at)
        arguments << QString::fromLocal8Bit(argv[at]);
    // The toolkit must not take any of the arguments for its own.
    int programNameOnly = 1;
    const QApplication application(programNameOnly, argv);
    const auto command = lineara::tool::parseArguments(arguments);
    return static_cast<int>(std::visit([](const auto& asked) { return lineara::tool::run(asked); }, command));
}

#pragma once

#include <QString>
#include <QStringList>

#include <variant>

namespace lineara::tool {

struct ConvertCommand
{
    QString input;
    QString output;
    bool tellNotes = false;
    bool asGedcom7 = false; ///< what is written as .ged
};

struct InfoCommand
{
    QString input;
    bool asJson = false;
    bool tellNotes = false;
};

struct HelpCommand
{};

struct VersionCommand
{};

/// The arguments make no sense; one sentence says why.
struct WrongUsage
{
    QString reason;
};

using Command = std::variant<ConvertCommand, InfoCommand, HelpCommand, VersionCommand, WrongUsage>;

/// What the arguments after the program's name ask for. Options may stand anywhere; "--" ends them.
Command parseArguments(const QStringList& arguments);

/// The text of --help.
QString usageText();

} // namespace lineara::tool

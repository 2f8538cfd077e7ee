#include "command_line.h"

#include "genealogy_output.h"
#include "picture_file.h"

#include <algorithm>

namespace lineara::tool {

namespace {

struct Split
{
    QStringList options;
    QStringList words;
};

Split split(const QStringList& arguments)
{
    Split split;
    bool optionsEnded = false;
    for (const QString& argument : arguments) {
        if (!optionsEnded && argument == u"--"_qs)
            optionsEnded = true;
        else if (!optionsEnded && argument.startsWith(u'-') && argument.size() > 1)
            split.options << argument;
        else
            split.words << argument;
    }
    return split;
}

/// The first option that the command does not know; empty if it knows all.
QString unknownOption(const QStringList& options, const QStringList& known)
{
    const auto unknown = std::find_if(options.begin(), options.end(),
                                      [&known](const QString& option) { return !known.contains(option); });
    return unknown == options.end() ? QString() : *unknown;
}

Command parseConvert(const QStringList& files, const QStringList& options)
{
    if (files.size() != 2)
        return WrongUsage{u"convert needs one input and one output file"_qs};
    if (!isFamilyFileName(files[1]) && !isPictureFileName(files[1]) && !isGenealogyName(files[1]))
        return WrongUsage{
            u"the output's name must end in .lineara, .ged, .gdz, .pdf, .png or .svg: %1"_qs.arg(files[1])};
    const bool asGedcom7 = options.contains(u"--gedcom7"_qs);
    if (asGedcom7 && !isGenealogyName(files[1]))
        return WrongUsage{u"--gedcom7 is about an output whose name ends in .ged, not about %1"_qs.arg(files[1])};
    return ConvertCommand{files[0], files[1], options.contains(u"--notes"_qs), asGedcom7};
}

Command parseInfo(const QStringList& files, const QStringList& options)
{
    if (files.size() != 1)
        return WrongUsage{u"info needs one file"_qs};
    return InfoCommand{files[0], options.contains(u"--json"_qs), options.contains(u"--notes"_qs)};
}

} // namespace

Command parseArguments(const QStringList& arguments)
{
    auto [options, words] = split(arguments);
    if (options.contains(u"--help"_qs) || options.contains(u"-h"_qs))
        return HelpCommand{};
    if (options.contains(u"--version"_qs))
        return VersionCommand{};
    if (words.isEmpty() && options.isEmpty())
        return WrongUsage{u"no command is given"_qs};

    const QString command = words.isEmpty() ? QString() : words.takeFirst();
    const bool isInfo = command == u"info"_qs;
    if (!isInfo && command != u"convert"_qs)
        return WrongUsage{u"there is no command \"%1\""_qs.arg(command.isEmpty() ? options.front() : command)};
    const QString unknown = unknownOption(options, isInfo ? QStringList{u"--json"_qs, u"--notes"_qs}
                                                          : QStringList{u"--notes"_qs, u"--gedcom7"_qs});
    if (!unknown.isEmpty())
        return WrongUsage{u"%1 does not know the option %2"_qs.arg(command, unknown)};
    return isInfo ? parseInfo(words, options) : parseConvert(words, options);
}

QString usageText()
{
    return QStringLiteral(R"(Usage:
  lineara-tool convert [--notes] [--gedcom7] IN OUT
  lineara-tool info [--json] [--notes] FILE
  lineara-tool --help | --version

convert reads a family and writes it in the format that OUT's name asks for:
  IN   .lineara (family file), .ged (GEDCOM 5.5 to 7.0 in any character set) or
       .gdz (GEDZIP)
  OUT  .lineara (family file), .ged (GEDCOM 5.5.1), .gdz (GEDZIP, with the
       pictures), .pdf, .png or .svg (picture of the whole family)
OUT is replaced if it is there, and stays as it was if anything fails.

info tells how many persons, links and rows a family has, and who is not linked.

  --gedcom7  a .ged OUT is of version 7.0
  --json     info as JSON
  --notes    tell on standard error every line of IN that was not taken as it
             stands, what the generations had to leave out, and every file that
             OUT names and that is not there
  --help     this text
  --version  the version of the program

Messages go to standard error, each starting with "lineara-tool: ".

Exit codes:
  0  done
  1  IN or FILE could not be read
  2  the arguments make no sense
  3  OUT could not be written
)");
}

} // namespace lineara::tool

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string>

namespace lineara {

/// What one run of lineara-tool came to.
struct ToolRun
{
    int exitCode = -1;
    std::string out;
    std::string err;
};

/// Runs the built program with these arguments, without any screen.
ToolRun runTool(const QStringList& arguments);

/// Path of a family file of the tests, below tests/data/gedcom.
QString testFamily(const QString& name);

/// A file's bytes; null if it is not there.
QByteArray bytesOf(const QString& path);
void writeFile(const QString& path, const QByteArray& bytes);

} // namespace lineara

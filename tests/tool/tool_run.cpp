#include "tool_run.h"

#include <QFile>
#include <QProcess>

#include <stdexcept>

namespace lineara {

ToolRun runTool(const QStringList& arguments)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const char* screen : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(screen));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(LINEARA_TOOL), arguments);
    if (!process.waitForFinished(300'000) || process.exitStatus() != QProcess::NormalExit)
        throw std::runtime_error("lineara-tool did not end by itself");
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

QString testFamily(const QString& name)
{
    return QStringLiteral(LINEARA_TEST_DATA "/gedcom/") + name;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("a test file could not be written");
}

} // namespace lineara

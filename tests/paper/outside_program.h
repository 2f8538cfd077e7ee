#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace lineara {

/// What another program prints; its name and reason where it fails.
inline QString printedBy(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return program + QStringLiteral(": ") + process.errorString() +
               QString::fromUtf8(process.readAllStandardError());
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace lineara

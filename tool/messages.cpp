#include "messages.h"

#include "platform/log.h"

#include <cstdio>

namespace lineara::tool {

namespace {

QString summary(const ImportReport& report)
{
    return u"imported %1 persons and %2 families; %3 links refused, %4 lines kept beside, "
           "%5 lines not taken, %6 lines unreadable"_qs.arg(report.persons)
               .arg(report.families)
               .arg(report.refusedLinks)
               .arg(report.keptLines)
               .arg(report.notTaken)
               .arg(report.unreadableLines);
}

QStringList notKept(const ImportReport& report)
{
    QStringList sentences;
    for (const QString& file : report.leftFiles)
        sentences << u"“%1” of the archive is not kept"_qs.arg(file);
    return sentences;
}

QString leftInSum(const ImportReport& report)
{
    return report.leftFiles.isEmpty() ? QString()
                                      : u"; %1 files of the archive not kept"_qs.arg(report.leftFiles.size());
}

void tellAll(const QStringList& sentences)
{
    for (const QString& sentence : sentences)
        tell(sentence);
}

} // namespace

void tell(const QString& text)
{
    const QByteArray line = "lineara-tool: " + text.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
}

bool print(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
}

Outcome<OpenedFamily> openTold(const QString& path, bool tellNotes)
{
    // Large families log thousands of lines, which would bury the messages that scripts wait for.
    const LogCapture log;
    auto opened = openSettledFamily(path);
    if (opened.failed())
        return opened;
    tellAll(opened.value().repairs);
    if (const auto& report = opened.value().importReport) {
        if (tellNotes)
            tellAll(report->notes + notKept(*report));
        tell(summary(*report) + leftInSum(*report));
    }
    if (tellNotes) {
        const auto lines = log.text();
        tellAll(QString::fromUtf8(lines.data(), static_cast<qsizetype>(lines.size())).split(u'\n', Qt::SkipEmptyParts));
    }
    return opened;
}

} // namespace lineara::tool

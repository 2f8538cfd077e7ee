#include "interchange/import_report.h"

#include "import_notes.h"
#include "import_texts.h"
#include "tag_labels.h"

#include <QStringBuilder>

namespace lineara {
namespace {

QString counted(const QString& what, std::size_t count)
{
    return QString(what % u": " % QString::number(count) % u'\n');
}

QString heading(const QString& text)
{
    return QString(u'\n' % text % u'\n');
}

QString fileLine(const ImportReport& report)
{
    const QString version = report.version.isEmpty() ? ImportTexts::tr("of no stated version")
                                                     : ImportTexts::tr("of version %1").arg(report.version);
    QString text = ImportTexts::tr("A GEDCOM file %1, read as %2.").arg(version, report.charset);
    if (report.isDeclaredWrongly)
        text += u' ' % ImportTexts::tr("It says that it is in %1.").arg(report.declaredCharset);
    return QString(text % u'\n');
}

QString whatCameIn(const ImportReport& report)
{
    return heading(ImportTexts::tr("What came in")) % counted(ImportTexts::tr("Persons"), report.persons) %
           counted(ImportTexts::tr("Families"), report.families) %
           counted(ImportTexts::tr("Links between partners"), report.partnerLinks) %
           counted(ImportTexts::tr("Links between parents and children"), report.offspringLinks) %
           counted(ImportTexts::tr("Pictures"), report.pictures) %
           counted(ImportTexts::tr("Lines taken into the family, of %1").arg(report.lines), report.takenLines);
}

/// "Person: Occupation (INDI.OCCU)"; the tags alone where none of them has a name.
QString called(const QString& path)
{
    QStringList labels;
    bool isKnown = false;
    for (const QString& tag : path.split(u'.')) {
        labels << tagLabel(tag.toStdString());
        isKnown = isKnown || labels.back() != tag;
    }
    return isKnown ? labels.join(QStringLiteral(": ")) % u" (" % path % u')' : path;
}

QString whatWasKept(const ImportReport& report)
{
    QString text = heading(ImportTexts::tr("What was kept beside the family")) %
                   counted(ImportTexts::tr("Records, each as it stands in the file"), report.records) %
                   counted(ImportTexts::tr("Lines that a person has no field for"), report.keptLines);
    for (const auto& [path, lines, firstLine] : report.kept)
        text += ImportTexts::tr("  %1: %2, the first in line %3").arg(called(path)).arg(lines).arg(firstLine) % u'\n';
    return text;
}

/// What only an archive can lose: files beside a genealogy stay where they are.
QString whatWasLeft(const ImportReport& report)
{
    if (report.leftFiles.isEmpty())
        return {};
    QString text = heading(ImportTexts::tr("What stays in the archive alone")) %
                   counted(ImportTexts::tr("Files that Lineara does not keep, and does not export"),
                           static_cast<std::size_t>(report.leftFiles.size()));
    for (const QString& file : report.leftFiles)
        text += u"  " % printable(file) % u'\n';
    return text;
}

QString whatWasRefused(const ImportReport& report)
{
    QString text = heading(ImportTexts::tr("What was refused")) %
                   counted(ImportTexts::tr("Links that no family can have"), report.refusedLinks);
    for (const auto& [reason, links] : report.refusals)
        text += QString(u"  " % counted(reason, links));
    return text % counted(ImportTexts::tr("Lines that say nothing that could be taken"), report.notTaken) %
           counted(ImportTexts::tr("Lines that can't be read"), report.unreadableLines);
}

} // namespace

QString importSummary(const ImportReport& report)
{
    QString text =
        fileLine(report) % whatCameIn(report) % whatWasKept(report) % whatWasLeft(report) % whatWasRefused(report);
    if (!report.notes.isEmpty())
        text += heading(ImportTexts::tr("Line by line")) % report.notes.join(u'\n') % u'\n';
    return text;
}

} // namespace lineara
